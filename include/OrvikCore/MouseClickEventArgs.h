#ifndef ORVIKCORE_MOUSECLICKEVENTARGS_H
#define ORVIKCORE_MOUSECLICKEVENTARGS_H

#include "OrvikCore/AMouseEventArgs.h"
#include "OrvikCore/Export.h"
#include "OrvikCore/ModifierKey.h"
#include "OrvikCore/MouseButton.h"

namespace OrvikCore {

/// A click: a press and a release of one button at nearly the same place.
class ORVIKCORE_API MouseClickEventArgs final : public AMouseEventArgs
{
public:
    /// @param clickedButton the button that was clicked.
    /// @param clickCount    1 for a single click, 2 for a double click.
    /// @param column        window pixels.
    /// @param row           window pixels.
    /// @param heldModifiers every modifier key held now.
    MouseClickEventArgs(MouseButton clickedButton, int clickCount, int column, int row,
                        ModifierKey heldModifiers);

    MouseButton GetMouseButton() const { return button; }
    int Clicks() const { return clicks; }
    ModifierKey ModifierKeys() const { return modifiers; }

    /// @return EventArgsType::MouseClickEventArgs.
    EventArgsType Type() override;

private:
    MouseButton button;
    int clicks;
    ModifierKey modifiers;
};

static_assert(!std::has_virtual_destructor_v<MouseClickEventArgs>);

} // namespace OrvikCore

#endif
