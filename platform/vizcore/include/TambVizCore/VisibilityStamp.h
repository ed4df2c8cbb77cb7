#ifndef TAMBVIZCORE_VISIBILITYSTAMP_H
#define TAMBVIZCORE_VISIBILITYSTAMP_H

#include "TambVizCore/Export.h"

#include <cstdint>

namespace TambVizCore {

/// @return a number that grows with every change of what can be seen and picked, anywhere in the
///         process: a node or a part is shown or hidden, a node is displaced, added or removed or
///         gets another geometry, section planes or one of the display switches of
///         RenderingOptions change.
///
/// Who keeps a copy of such state beside the main thread learns with one comparison whether it
/// still holds. Marks and colours do not count.
/// @thread Any thread.
TAMBVIZCORE_API std::uint64_t GetVisibilityStamp();

/// Makes the stamp grow. Called after the change, by what keeps the state.
/// @thread Any thread.
TAMBVIZCORE_API void AdvanceVisibilityStamp();

} // namespace TambVizCore

#endif
