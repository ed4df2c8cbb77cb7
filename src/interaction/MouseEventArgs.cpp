#include "OrvikCore/MouseEventArgs.h"

namespace OrvikCore {

MouseEventArgs::MouseEventArgs(MouseAction mouseAction, int column, int row,
                               MouseButton heldButtons, ModifierKey heldModifiers)
    : AMouseEventArgs(column, row),
      action(mouseAction),
      buttons(heldButtons),
      modifiers(heldModifiers)
{
}

EventArgsType MouseEventArgs::Type()
{
    return EventArgsType::MouseEventArgs;
}

} // namespace OrvikCore
