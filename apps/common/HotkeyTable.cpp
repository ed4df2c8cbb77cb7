#include "HotkeyTable.h"

#include "ConfigurationFile.h"

#include <OrvikCore/KeyEventArgs.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <memory>
#include <optional>
#include <stdexcept>
#include <utility>

namespace Pellux {

using OrvikCore::Hotkey;

namespace {

const wchar_t kSection[] = L"hotkeys";

/// @param reason  Receives what is wrong with the text unless there is a result.
std::optional<Hotkey> readHotkey(const std::wstring& text, std::wstring& reason)
{
    std::optional<Hotkey> key;
    try {
        key.emplace(text);
    } catch (const std::invalid_argument& error) {
        reason = TambVizCore::Utils::StringToWstring(error.what());
        return std::nullopt;
    }
    // A hotkey reads one character and passes over the rest, so "Ctrl-F5" would mean "Ctrl-F".
    if (key->IsValid() && text.size() == text.rfind(L'-') + 2)
        return key;
    reason = L"\"" + text +
             L"\" is no shortcut: it needs Ctrl, Shift or Alt, a '-' behind each of "
             L"them, and one character";
    return std::nullopt;
}

} // namespace

bool HotkeyTable::Read(ConfigurationFile& configuration, std::wstring& errorText)
{
    m_entries.clear();
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    configuration.FillSection(kSection, &pairs);
    bool good = true;
    for (const auto& [text, script] : pairs) {
        const auto same = std::find_if(m_entries.begin(), m_entries.end(),
                                       [&text](const Entry& entry) { return entry.text == text; });
        if (same != m_entries.end()) {
            same->script += L"\n" + script;
            continue;
        }
        std::wstring reason;
        const std::optional<Hotkey> key = readHotkey(text, reason);
        if (const Entry* const other = key ? find(*key) : nullptr)
            reason = L"\"" + text + L"\" is the same shortcut as \"" + other->text + L"\"";
        if (reason.empty()) {
            m_entries.push_back({text, *key, script});
            continue;
        }
        good = false;
        errorText += (errorText.empty() ? L"" : L"\n") + configuration.GetPlace(kSection, text) +
                     L": " + reason;
    }
    std::erase_if(m_entries, [](const Entry& entry) {
        return entry.script.find_first_not_of(L" \t\r\n") == std::wstring::npos;
    });
    return good;
}

const HotkeyTable::Entry* HotkeyTable::Find(OrvikCore::KeyEventArgs& event) const
{
    const std::unique_ptr<Hotkey> key(Hotkey::FromKeyEventArgs(&event));
    return key->IsValid() ? find(*key) : nullptr;
}

const HotkeyTable::Entry* HotkeyTable::find(const Hotkey& key) const
{
    const auto found = std::find_if(m_entries.begin(), m_entries.end(),
                                    [&key](const Entry& entry) { return entry.key == key; });
    return found == m_entries.end() ? nullptr : &*found;
}

} // namespace Pellux
