#ifndef ORVIKCORE_HOTKEY_H
#define ORVIKCORE_HOTKEY_H

#include "OrvikCore/Export.h"
#include "OrvikCore/ModifierKey.h"

#include <string>

namespace OrvikCore {

class KeyEventArgs;

/// A keyboard shortcut: one printable character with at least one modifier key.
///
/// A value. The character is kept in upper case (ASCII letters only); 0 means none. A hotkey
/// without character or without modifier is not valid, and a Controller refuses it.
///
/// @thread  Any thread.
struct ORVIKCORE_API Hotkey
{
public:
    /// Makes a hotkey from a character and up to three modifiers.
    ///
    /// The modifiers are counted by position: 0 when @p first is none, else 1 when @p second is
    /// none, else 3 when @p third is one, else 2; so Ctrl, none, Shift counts 1 with two bits set.
    ///
    /// @param code  character code; see ValidateChar().
    Hotkey(unsigned short code, ModifierKey first, ModifierKey second, ModifierKey third);

    /// Reads a text such as "Ctrl-Shift-a".
    ///
    /// One character alone is accepted and gives a hotkey that is not valid. Otherwise one to three
    /// of "Ctrl", "Shift" and "Alt", each followed by '-', then the character. After the third
    /// modifier, and behind the character, the rest is ignored ("Ctrl-F5" reads as Ctrl-F).
    ///
    /// @throws std::invalid_argument "Invalid argument: " and the text when it has no character,
    /// two
    ///         to four characters or no '-'; "Invalid argument: " and the word for an unknown
    ///         modifier. Compared exactly: "ctrl" is unknown.
    explicit Hotkey(std::wstring text);

    /// @return the character in upper case, 0 when there is none.
    unsigned short Char() const { return character; }
    int ModifierKeysCount() const { return modifierCount; }

    bool HasCtrlModifier() const;
    bool HasAltModifier() const;
    bool HasShiftModifier() const;

    /// @return true with a character and at least one counted modifier.
    bool IsValid() const { return valid; }

    /// Adds @p modifier and counts it once; ignored when empty or sharing a key with those held.
    void AddModifier(ModifierKey modifier);

    /// @return @p code in upper case when that lies in 32..126, else 0; codes outside 1..255 give
    /// 0.
    static unsigned short ValidateChar(int code);

    /// Makes the hotkey that @p event means; presses and releases alike.
    ///
    /// @param event  not kept; may be null.
    /// @return a new hotkey (transferred out), valid when the key is printable and a modifier is
    ///         held; null for a null event.
    static Hotkey* FromKeyEventArgs(KeyEventArgs* event);

    /// @return @p text with each character cut to its low byte.
    static std::string Wstr2str(std::wstring text);

    /// @return @p text with each byte as one character.
    static std::wstring Str2wstr(std::string text);

    /// @return true for equal characters, letter case ignored, and equal modifier masks; the counts
    ///         are not compared.
    ORVIKCORE_API friend bool operator==(const Hotkey& left, const Hotkey& right);

private:
    /// @return the modifier that @p word names. @throws std::invalid_argument as the text
    /// constructor.
    static ModifierKey modifierOf(const std::wstring& word);

    unsigned short character = 0;
    int modifierCount = 0;
    ModifierKey modifiers = ModifierKey::None;
    bool valid = false;
};

} // namespace OrvikCore

#endif
