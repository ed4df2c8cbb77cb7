#include "OrvikCore/MouseButtonEventArgs.h"

namespace OrvikCore {

MouseButtonEventArgs::MouseButtonEventArgs(MouseButton const& changedButton, bool const& isPressed,
                                           int const& column, int const& row,
                                           ModifierKey const& heldModifiers)
    : AMouseEventArgs(column, row),
      modifiers(heldModifiers),
      button(changedButton),
      pressed(isPressed)
{
}

EventArgsType MouseButtonEventArgs::Type()
{
    return EventArgsType::MouseButtonEventArgs;
}

} // namespace OrvikCore
