#ifndef ORVIKCORE_MOUSEEVENTARGS_H
#define ORVIKCORE_MOUSEEVENTARGS_H

#include "OrvikCore/AMouseEventArgs.h"
#include "OrvikCore/Export.h"
#include "OrvikCore/ModifierKey.h"
#include "OrvikCore/MouseAction.h"
#include "OrvikCore/MouseButton.h"

namespace OrvikCore {

/// A motion of the pointer, or its leaving the view.
class ORVIKCORE_API MouseEventArgs final : public AMouseEventArgs
{
public:
    /// @param mouseAction   what happened.
    /// @param column        window pixels.
    /// @param row           window pixels.
    /// @param heldButtons   every button held now.
    /// @param heldModifiers every modifier key held now.
    MouseEventArgs(MouseAction mouseAction, int column, int row, MouseButton heldButtons,
                   ModifierKey heldModifiers);

    MouseAction GetMouseAction() const { return action; }
    MouseButton GetMouseButtons() const { return buttons; }
    ModifierKey ModifierKeys() const { return modifiers; }

    /// @return EventArgsType::MouseEventArgs.
    EventArgsType Type() override;

private:
    MouseAction action;
    MouseButton buttons;
    ModifierKey modifiers;
};

static_assert(!std::has_virtual_destructor_v<MouseEventArgs>);

} // namespace OrvikCore

#endif
