#include "view/EventTranslation.h"

#include <QKeyEvent>

namespace Pellux {
namespace {

using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;

/// One notch of a usual wheel: 15 degrees.
constexpr int kEighthsOfNotch = 120;

/// Qt's own numbers begin here; below are characters.
constexpr int kFirstKeyWithoutCharacter = 0x01000000;

Qt::KeyboardModifiers modifierOfKey(int key)
{
    switch (key) {
    case Qt::Key_Control:
        return Qt::ControlModifier;
    case Qt::Key_Shift:
        return Qt::ShiftModifier;
    case Qt::Key_Alt:
        return Qt::AltModifier;
    default:
        return Qt::NoModifier;
    }
}

} // namespace

ModifierKey ToModifiers(Qt::KeyboardModifiers modifiers)
{
    auto result = ModifierKey::None;
    if (modifiers.testFlag(Qt::ControlModifier))
        result = result | ModifierKey::Ctrl;
    if (modifiers.testFlag(Qt::AltModifier))
        result = result | ModifierKey::Alt;
    if (modifiers.testFlag(Qt::ShiftModifier))
        result = result | ModifierKey::Shift;
    return result;
}

MouseButton ToButtons(Qt::MouseButtons buttons)
{
    int result = 0;
    if (buttons.testFlag(Qt::LeftButton))
        result |= 1;
    if (buttons.testFlag(Qt::RightButton))
        result |= 2;
    if (buttons.testFlag(Qt::MiddleButton))
        result |= 4;
    return static_cast<MouseButton>(result);
}

std::optional<OrvikCore::KeyEventArgs> ToKey(const QKeyEvent& event, bool isUp)
{
    const int key = event.key();
    if (key == 0 || key == Qt::Key_unknown || (isUp && key < kFirstKeyWithoutCharacter))
        return std::nullopt;
    return OrvikCore::KeyEventArgs(key, isUp, ToModifiers(event.modifiers() & ~modifierOfKey(key)));
}

int WheelNotches::Add(int eighths)
{
    if (eighths == 0)
        return 0;
    // Turning back begins anew.
    if ((eighths > 0) != (m_rest > 0))
        m_rest = 0;
    m_rest += eighths;
    const int notches = m_rest / kEighthsOfNotch;
    m_rest -= notches * kEighthsOfNotch;
    return -notches;
}

} // namespace Pellux
