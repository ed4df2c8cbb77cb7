#include "OrvikCore/MouseClickEventArgs.h"

namespace OrvikCore {

MouseClickEventArgs::MouseClickEventArgs(MouseButton clickedButton, int clickCount, int column,
                                         int row, ModifierKey heldModifiers)
    : AMouseEventArgs(column, row),
      button(clickedButton),
      clicks(clickCount),
      modifiers(heldModifiers)
{
}

EventArgsType MouseClickEventArgs::Type()
{
    return EventArgsType::MouseClickEventArgs;
}

} // namespace OrvikCore
