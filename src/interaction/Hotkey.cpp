#include "OrvikCore/Hotkey.h"

#include "HotkeyTexts.h"

#include "OrvikCore/KeyEventArgs.h"

#include <memory>
#include <stdexcept>

namespace OrvikCore {

namespace {

/// Between a modifier and what follows it.
constexpr wchar_t kSeparator = L'-';

/// A text holds at most this many modifiers; what looks like a further one is not read.
constexpr int kMaxModifiers = 3;

/// The shortest text with a modifier: "Alt-x".
constexpr std::size_t kMinLengthWithModifier = 5;

int toUpperAscii(int code)
{
    return code >= 'a' && code <= 'z' ? code - 'a' + 'A' : code;
}

std::invalid_argument invalidArgument(const std::wstring& text)
{
    return std::invalid_argument(kInvalidHotkeyArgument + Hotkey::Wstr2str(text));
}

} // namespace

Hotkey::Hotkey(unsigned short code, ModifierKey first, ModifierKey second, ModifierKey third)
    : character(ValidateChar(code))
{
    if (character == 0) {
        return;
    }
    modifiers = first | second | third;
    // Deliberate: counted by position, not by bits.
    // Held by Hotkey.CountsModifiersByPosition.
    if (first == ModifierKey::None) {
        modifierCount = 0;
    } else if (second == ModifierKey::None) {
        modifierCount = 1;
    } else {
        modifierCount = third != ModifierKey::None ? 3 : 2;
    }
    valid = modifierCount > 0;
}

Hotkey::Hotkey(std::wstring text)
{
    if (text.size() == 1) {
        character = ValidateChar(static_cast<int>(text[0]));
        return;
    }
    std::size_t separator = text.find(kSeparator);
    if (text.size() < kMinLengthWithModifier || separator == std::wstring::npos) {
        throw invalidArgument(text);
    }
    AddModifier(modifierOf(text.substr(0, separator)));
    for (int count = 1; count < kMaxModifiers; ++count) {
        const std::size_t next = text.find(kSeparator, separator + 1);
        if (next == std::wstring::npos) {
            break;
        }
        AddModifier(modifierOf(text.substr(separator + 1, next - separator - 1)));
        separator = next;
    }
    const bool hasCharacter = separator + 1 < text.size();
    character = hasCharacter ? ValidateChar(static_cast<int>(text[separator + 1])) : 0;
    valid = character != 0 && modifierCount > 0;
}

bool Hotkey::HasCtrlModifier() const
{
    return (modifiers & ModifierKey::Ctrl) != ModifierKey::None;
}

bool Hotkey::HasAltModifier() const
{
    return (modifiers & ModifierKey::Alt) != ModifierKey::None;
}

bool Hotkey::HasShiftModifier() const
{
    return (modifiers & ModifierKey::Shift) != ModifierKey::None;
}

void Hotkey::AddModifier(ModifierKey modifier)
{
    if (modifier != ModifierKey::None && (modifier & modifiers) == ModifierKey::None) {
        modifiers = modifiers | modifier;
        ++modifierCount;
    }
    valid = character != 0 && modifierCount > 0;
}

unsigned short Hotkey::ValidateChar(int code)
{
    const int upper = code >= 1 && code <= 255 ? toUpperAscii(code) : 0;
    return upper >= 32 && upper <= 126 ? static_cast<unsigned short>(upper) : 0;
}

Hotkey* Hotkey::FromKeyEventArgs(KeyEventArgs* event)
{
    if (event == nullptr) {
        return nullptr;
    }
    // Deliberate: presses and releases alike.
    // Held by Hotkey.IsMadeFromPressAndReleaseAlike.
    const unsigned short code = ValidateChar(event->Key());
    auto hotkey =
        std::make_unique<Hotkey>(code, ModifierKey::None, ModifierKey::None, ModifierKey::None);
    if (hotkey->character != 0 && event->ModifierKeysCount() >= 1) {
        hotkey->modifiers = event->ModifierKeys();
        hotkey->modifierCount = event->ModifierKeysCount();
        hotkey->valid = true;
    }
    return hotkey.release();
}

std::string Hotkey::Wstr2str(std::wstring text)
{
    std::string narrow;
    narrow.reserve(text.size());
    for (const wchar_t unit : text) {
        narrow.push_back(static_cast<char>(static_cast<unsigned>(unit) & 0xFFu));
    }
    return narrow;
}

std::wstring Hotkey::Str2wstr(std::string text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (const char byte : text) {
        wide.push_back(static_cast<wchar_t>(static_cast<unsigned char>(byte)));
    }
    return wide;
}

bool operator==(const Hotkey& left, const Hotkey& right)
{
    return toUpperAscii(left.character) == toUpperAscii(right.character) &&
           left.modifiers == right.modifiers;
}

ModifierKey Hotkey::modifierOf(const std::wstring& word)
{
    if (word == kCtrlWord) {
        return ModifierKey::Ctrl;
    }
    if (word == kShiftWord) {
        return ModifierKey::Shift;
    }
    if (word == kAltWord) {
        return ModifierKey::Alt;
    }
    throw invalidArgument(word);
}

} // namespace OrvikCore
