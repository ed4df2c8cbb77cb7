#ifndef ORVIKCORE_MOUSEACTION_H
#define ORVIKCORE_MOUSEACTION_H

#include <cstdint>

namespace OrvikCore {

/// What a pointer event reports.
enum class MouseAction : std::int32_t
{
    Nothing = 0,    ///< Nothing to do.
    HoverEnded = 1, ///< The pointer left the view; the highlight is cleared.
    Moved = 2       ///< The pointer moved inside the view.
};

} // namespace OrvikCore

#endif
