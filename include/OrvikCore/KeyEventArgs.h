#ifndef ORVIKCORE_KEYEVENTARGS_H
#define ORVIKCORE_KEYEVENTARGS_H

#include "OrvikCore/AEventArgs.h"
#include "OrvikCore/Export.h"
#include "OrvikCore/ModifierKey.h"

#include <string>

namespace OrvikCore {

/// The press or the release of a key, with the modifier keys held.
///
/// Keys are numbered as character codes where they have one (0x41 for A); other keys carry the
/// host's numbers, of which some are named below.
class ORVIKCORE_API KeyEventArgs final : public AEventArgs
{
public:
    // Numbers of keys without character.
    static constexpr int kEscape = 0x01000000;
    static constexpr int kShift = 0x01000020;
    static constexpr int kCtrl = 0x01000021;
    static constexpr int kAlt = 0x01000023;

    /// Keeps Ctrl, Alt and Shift of @p heldModifiers, counts them, and drops every other bit.
    ///
    /// @param keyCode       the character code or key number.
    /// @param isUp          true for a release.
    /// @param heldModifiers any combination of ModifierKey bits.
    KeyEventArgs(int keyCode, bool isUp, ModifierKey heldModifiers);

    int Key() const { return key; }
    bool IsKeyUp() const { return up; }
    int ModifierKeysCount() const { return modifierCount; }
    ModifierKey ModifierKeys() const { return modifiers; }

    /// Adds @p modifier and counts it once, also when it combines several keys; ignored when it is
    /// empty or shares a key with those held.
    void AddModifier(ModifierKey modifier);

    bool HasAltModifier() const;
    bool HasCtrlModifier() const;
    bool HasShiftModifier() const;

    /// @return true when Alt is held and nothing else.
    bool HasAltModifierOnly() const;
    /// @return true when Ctrl is held and nothing else.
    bool HasCtrlModifierOnly() const;
    /// @return true when Shift is held and nothing else.
    bool HasShiftModifierOnly() const;

    /// @return true for the printable keys, 0x20 to 0x7E.
    bool IsSpecialKey() const;

    /// @return for example "key = 0x41 up = 0 modifiers = Ctrl Alt Shift".
    std::string ToString() const;

    /// @return EventArgsType::KeyEventArgs.
    EventArgsType Type() override;

private:
    int key;
    bool up;
    int modifierCount = 0;
    ModifierKey modifiers = ModifierKey::None;
};

static_assert(!std::has_virtual_destructor_v<KeyEventArgs>);

} // namespace OrvikCore

#endif
