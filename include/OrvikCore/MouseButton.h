#ifndef ORVIKCORE_MOUSEBUTTON_H
#define ORVIKCORE_MOUSEBUTTON_H

#include <cstdint>

namespace OrvikCore {

/// Mouse buttons held during an event, as bit flags that combine.
enum class MouseButton : std::int32_t
{
    None = 0,
    Selection = 1, ///< Picks, drags and rotates; the left button of a right-handed mouse.
    Menu = 2,      ///< Opens menus; the right button. The core's strategies give it no meaning.
    Zoom = 4,      ///< Zooms by vertical motion; the middle button. With Selection (5) it pans.
};

/// @return the buttons held in @p left or in @p right.
constexpr MouseButton operator|(MouseButton left, MouseButton right)
{
    return static_cast<MouseButton>(static_cast<std::int32_t>(left) |
                                    static_cast<std::int32_t>(right));
}

/// @return the buttons held in both @p left and @p right.
constexpr MouseButton operator&(MouseButton left, MouseButton right)
{
    return static_cast<MouseButton>(static_cast<std::int32_t>(left) &
                                    static_cast<std::int32_t>(right));
}

} // namespace OrvikCore

#endif
