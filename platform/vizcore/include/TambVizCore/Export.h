#ifndef TAMBVIZCORE_EXPORT_H
#define TAMBVIZCORE_EXPORT_H

#include <OrvikOs/Export.h>

// Marks the classes and functions that TambVizCore exports.
#ifdef TAMBVIZCORE_EXPORTS
#define TAMBVIZCORE_API ORVIK_EXPORT
#else
#define TAMBVIZCORE_API ORVIK_IMPORT
#endif

#endif
