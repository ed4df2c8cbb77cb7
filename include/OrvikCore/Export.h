#ifndef ORVIKCORE_EXPORT_H
#define ORVIKCORE_EXPORT_H

#include <OrvikOs/Export.h>

// Marks the classes, functions and data that OrvikCore exports.
#ifdef ORVIKCORE_EXPORTS
#define ORVIKCORE_API ORVIK_EXPORT
#else
#define ORVIKCORE_API ORVIK_IMPORT
#endif

#endif
