#ifndef TAMBVIZCORE_ALLOWTHROW_H
#define TAMBVIZCORE_ALLOWTHROW_H

#include "TambVizCore/Export.h"

namespace TambVizCore {

/// @return whether a failed conversion between identifiers throws; false at start.
/// @thread Any thread.
TAMBVIZCORE_API bool GetAllowThrow();

/// Sets what GetAllowThrow returns, for the whole process.
/// @thread Any thread.
TAMBVIZCORE_API void SetAllowThrow(bool allow);

} // namespace TambVizCore

#endif
