#include "OrvikCore/KeyEventArgs.h"

#include "FormatText.h"

namespace OrvikCore {

KeyEventArgs::KeyEventArgs(int keyCode, bool isUp, ModifierKey heldModifiers)
    : key(keyCode), up(isUp)
{
    AddModifier(heldModifiers & ModifierKey::Ctrl);
    AddModifier(heldModifiers & ModifierKey::Alt);
    AddModifier(heldModifiers & ModifierKey::Shift);
}

void KeyEventArgs::AddModifier(ModifierKey modifier)
{
    if (modifier == ModifierKey::None || (modifier & modifiers) != ModifierKey::None) {
        return;
    }
    modifiers = modifiers | modifier;
    ++modifierCount;
}

bool KeyEventArgs::HasAltModifier() const
{
    return (modifiers & ModifierKey::Alt) != ModifierKey::None;
}

bool KeyEventArgs::HasCtrlModifier() const
{
    return (modifiers & ModifierKey::Ctrl) != ModifierKey::None;
}

bool KeyEventArgs::HasShiftModifier() const
{
    return (modifiers & ModifierKey::Shift) != ModifierKey::None;
}

bool KeyEventArgs::HasAltModifierOnly() const
{
    return modifiers == ModifierKey::Alt;
}

bool KeyEventArgs::HasCtrlModifierOnly() const
{
    return modifiers == ModifierKey::Ctrl;
}

bool KeyEventArgs::HasShiftModifierOnly() const
{
    return modifiers == ModifierKey::Shift;
}

bool KeyEventArgs::IsSpecialKey() const
{
    // Deliberate: true for the printable keys.
    // Held by KeyEventArgs.PrintableKeysAreSpecial.
    return key >= 0x20 && key <= 0x7E;
}

std::string KeyEventArgs::ToString() const
{
    return FormatText("key = 0x%x up = %d modifiers = %s%s%s", static_cast<unsigned>(key),
                      up ? 1 : 0, HasCtrlModifier() ? "Ctrl " : "", HasAltModifier() ? "Alt " : "",
                      HasShiftModifier() ? "Shift" : "");
}

EventArgsType KeyEventArgs::Type()
{
    return EventArgsType::KeyEventArgs;
}

} // namespace OrvikCore
