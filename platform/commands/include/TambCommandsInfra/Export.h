#ifndef TAMBCOMMANDSINFRA_EXPORT_H
#define TAMBCOMMANDSINFRA_EXPORT_H

#include <OrvikOs/Export.h>

// Marks the classes, functions and data that TambCommandsInfra exports.
#ifdef TAMBCOMMANDSINFRA_EXPORTS
#define TAMBCOMMANDSINFRA_API ORVIK_EXPORT
#else
#define TAMBCOMMANDSINFRA_API ORVIK_IMPORT
#endif

#endif
