#include "NavigationTable.h"

#include <algorithm>
#include <iterator>

namespace Pellux {

using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;

namespace {

constexpr std::pair<const wchar_t*, NavigationAction> kActions[] = {
    {L"rotate", NavigationAction::Rotate}, {L"pan", NavigationAction::Pan},
    {L"zoom", NavigationAction::Zoom},     {L"window-zoom", NavigationAction::WindowZoom},
    {L"select", NavigationAction::Select}, {L"add", NavigationAction::Add},
    {L"none", NavigationAction::None},
};

constexpr MouseButton kLeft = MouseButton::Selection;
constexpr MouseButton kMiddle = MouseButton::Zoom;
constexpr MouseButton kRight = MouseButton::Menu;
constexpr ModifierKey kNone = ModifierKey::None;
constexpr ModifierKey kCtrl = ModifierKey::Ctrl;
constexpr ModifierKey kShift = ModifierKey::Shift;
constexpr ModifierKey kAlt = ModifierKey::Alt;

NavigationTable leftRotates()
{
    return NavigationTable({{{kNone, kLeft}, NavigationAction::Rotate},
                            {{kNone, kMiddle}, NavigationAction::Pan},
                            {{kNone, kRight}, NavigationAction::Zoom},
                            {{kShift, kLeft}, NavigationAction::Select},
                            {{kCtrl | kShift, kLeft}, NavigationAction::Add},
                            {{kAlt, kLeft}, NavigationAction::WindowZoom}});
}

NavigationTable middleRotates()
{
    return NavigationTable({{{kNone, kLeft}, NavigationAction::Select},
                            {{kCtrl, kLeft}, NavigationAction::Add},
                            {{kNone, kMiddle}, NavigationAction::Rotate},
                            {{kCtrl, kMiddle}, NavigationAction::Pan},
                            {{kShift, kMiddle}, NavigationAction::Zoom},
                            {{kAlt, kLeft}, NavigationAction::WindowZoom}});
}

NavigationTable rightRotates()
{
    return NavigationTable({{{kNone, kLeft}, NavigationAction::Select},
                            {{kCtrl, kLeft}, NavigationAction::Add},
                            {{kNone, kRight}, NavigationAction::Rotate},
                            {{kNone, kMiddle}, NavigationAction::Pan},
                            {{kShift, kRight}, NavigationAction::Pan},
                            {{kCtrl, kRight}, NavigationAction::Zoom},
                            {{kAlt, kLeft}, NavigationAction::WindowZoom}});
}

} // namespace

bool ReadNavigationAction(const std::wstring& text, NavigationAction& action)
{
    const auto found = std::find_if(std::begin(kActions), std::end(kActions),
                                    [&text](const auto& entry) { return text == entry.first; });
    if (found == std::end(kActions))
        return false;
    action = found->second;
    return true;
}

std::vector<std::wstring> NavigationActionNames()
{
    std::vector<std::wstring> names;
    for (const auto& [name, action] : kActions)
        names.emplace_back(name);
    return names;
}

NavigationTable::NavigationTable(std::vector<Row> rows) : m_rows(std::move(rows)) {}

NavigationAction NavigationTable::Find(const MouseGesture& gesture) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&gesture](const Row& row) { return row.first == gesture; });
    return found == m_rows.end() ? NavigationAction::None : found->second;
}

void NavigationTable::Set(const MouseGesture& gesture, NavigationAction action)
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&gesture](const Row& row) { return row.first == gesture; });
    if (found != m_rows.end())
        found->second = action;
    else
        m_rows.emplace_back(gesture, action);
}

std::wstring NavigationTable::SetRow(const std::wstring& gesture, const std::wstring& action)
{
    OrvikCore::MouseGesture read;
    if (!OrvikCore::MouseGesture::FromText(gesture, read) || read.buttons == MouseButton::None)
        return L"\"" + gesture +
               L"\" names no buttons; examples are left, Ctrl-left and "
               L"Ctrl-Shift-left+middle";
    NavigationAction wanted = NavigationAction::None;
    if (!ReadNavigationAction(action, wanted))
        return L"\"" + action +
               L"\" is no action; there are rotate, pan, zoom, window-zoom, "
               L"select, add and none";
    Set(read, wanted);
    return {};
}

const std::vector<NavigationPreset>& NavigationPresets()
{
    static const std::vector<NavigationPreset> presets = {{L"left-rotates", leftRotates()},
                                                          {L"middle-rotates", middleRotates()},
                                                          {L"right-rotates", rightRotates()}};
    return presets;
}

} // namespace Pellux
