#ifndef ORVIKCORE_MOUSEBUTTONEVENTARGS_H
#define ORVIKCORE_MOUSEBUTTONEVENTARGS_H

#include "OrvikCore/AMouseEventArgs.h"
#include "OrvikCore/Export.h"
#include "OrvikCore/ModifierKey.h"
#include "OrvikCore/MouseButton.h"

namespace OrvikCore {

/// The press or the release of one mouse button.
class ORVIKCORE_API MouseButtonEventArgs final : public AMouseEventArgs
{
public:
    /// @param changedButton the button that went down or up.
    /// @param isPressed     true for a press, false for a release.
    /// @param column        window pixels.
    /// @param row           window pixels.
    /// @param heldModifiers every modifier key held now.
    MouseButtonEventArgs(MouseButton const& changedButton, bool const& isPressed, int const& column,
                         int const& row, ModifierKey const& heldModifiers);

    ModifierKey ModifierKeys() const { return modifiers; }
    MouseButton GetMouseButtons() const { return button; }
    bool IsPressed() const { return pressed; }

    /// @return EventArgsType::MouseButtonEventArgs.
    EventArgsType Type() override;

private:
    ModifierKey modifiers;
    MouseButton button;
    bool pressed;
};

static_assert(!std::has_virtual_destructor_v<MouseButtonEventArgs>);

} // namespace OrvikCore

#endif
