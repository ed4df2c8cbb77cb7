#ifndef PELLUX_VIEW_EVENTTRANSLATION_H
#define PELLUX_VIEW_EVENTTRANSLATION_H

#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/ModifierKey.h>
#include <OrvikCore/MouseButton.h>

#include <Qt>
#include <optional>

QT_BEGIN_NAMESPACE
class QKeyEvent;
QT_END_NAMESPACE

namespace Pellux {

/// Ctrl, Alt and Shift; every other modifier is dropped.
OrvikCore::ModifierKey ToModifiers(Qt::KeyboardModifiers modifiers);

/// Left 1, right 2, middle 4; every other button is dropped.
OrvikCore::MouseButton ToButtons(Qt::MouseButtons buttons);

/// The key as the core numbers it: its character code where it has one, else Qt's number. The
/// modifiers leave the key itself out, so that Ctrl alone is pressed without modifiers.
///
/// @param isUp  true for a release.
/// @return nothing for what the core is not told of: an unknown key, and the release of a key with
///         a character.
std::optional<OrvikCore::KeyEventArgs> ToKey(const QKeyEvent& event, bool isUp);

/// Turns wheel angles into whole notches.
class WheelNotches
{
public:
    /// @param eighths  How far the wheel was turned away from the user, eighths of a degree; fine
    ///                 wheels send less than a notch at a time.
    /// @return whole notches so far not answered; positive towards the user.
    int Add(int eighths);

private:
    int m_rest = 0; ///< Eighths of a degree that make no notch yet.
};

} // namespace Pellux

#endif
