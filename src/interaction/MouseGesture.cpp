#include "OrvikCore/MouseGesture.h"

#include <algorithm>
#include <cstddef>
#include <iterator>

namespace OrvikCore {

namespace {

template <typename Flag> struct NamedFlag
{
    const wchar_t* name;
    Flag flag;
};

constexpr NamedFlag<ModifierKey> kModifiers[] = {
    {L"Ctrl", ModifierKey::Ctrl}, {L"Shift", ModifierKey::Shift}, {L"Alt", ModifierKey::Alt}};

constexpr NamedFlag<MouseButton> kButtons[] = {{L"left", MouseButton::Selection},
                                               {L"middle", MouseButton::Zoom},
                                               {L"right", MouseButton::Menu}};

/// Adds the flag that a word names. @return false for an unknown word and for a flag held already.
template <typename Flag, std::size_t N>
bool addNamed(const NamedFlag<Flag> (&table)[N], const std::wstring& word, Flag& flags)
{
    const auto found = std::find_if(std::begin(table), std::end(table),
                                    [&word](const auto& entry) { return word == entry.name; });
    if (found == std::end(table) || (flags & found->flag) != Flag::None) {
        return false;
    }
    flags = flags | found->flag;
    return true;
}

template <typename Flag, std::size_t N>
void appendNames(const NamedFlag<Flag> (&table)[N], Flag flags, wchar_t separator,
                 std::wstring& text)
{
    for (const auto& [name, flag] : table) {
        if ((flags & flag) != Flag::None) {
            text += (text.empty() ? std::wstring() : std::wstring(1, separator)) + name;
        }
    }
}

bool readButtons(const std::wstring& text, MouseButton& buttons)
{
    std::size_t begin = 0;
    for (std::size_t plus = text.find(L'+'); plus != std::wstring::npos;
         plus = text.find(L'+', begin)) {
        if (!addNamed(kButtons, text.substr(begin, plus - begin), buttons)) {
            return false;
        }
        begin = plus + 1;
    }
    return addNamed(kButtons, text.substr(begin), buttons);
}

} // namespace

bool MouseGesture::FromText(const std::wstring& text, MouseGesture& gesture)
{
    MouseGesture read;
    std::size_t begin = 0;
    for (std::size_t dash = text.find(L'-'); dash != std::wstring::npos;
         dash = text.find(L'-', begin)) {
        if (!addNamed(kModifiers, text.substr(begin, dash - begin), read.modifiers)) {
            return false;
        }
        begin = dash + 1;
    }
    const std::wstring last = text.substr(begin);
    const bool isModifier = addNamed(kModifiers, last, read.modifiers);
    if (!text.empty() && !isModifier && !readButtons(last, read.buttons)) {
        return false;
    }
    gesture = read;
    return true;
}

std::wstring MouseGesture::ToText() const
{
    std::wstring keys;
    appendNames(kModifiers, modifiers, L'-', keys);
    std::wstring held;
    appendNames(kButtons, buttons, L'+', held);
    return keys + (keys.empty() || held.empty() ? L"" : L"-") + held;
}

} // namespace OrvikCore
