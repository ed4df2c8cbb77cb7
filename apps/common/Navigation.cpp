#include "Navigation.h"

#include "ConfigurationFile.h"
#include "NavigationStrategy.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/IViewOp.h>
#include <OrvikCore/MessageType.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/ViewOpDrag.h>
#include <TambVizCore/IView3D.h>

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace Pellux {

using OrvikCore::ASession;
using OrvikCore::IViewOpState;
using OrvikCore::SessionMgr;
using TambVizCore::EntityId;

namespace {

const wchar_t kSection[] = L"navigation";
const wchar_t kPreset[] = L"preset";
const wchar_t kDefault[] = L"default";
const wchar_t kCustom[] = L"custom";

std::wstring noPreset(const std::wstring& name)
{
    return L"\"" + name +
           L"\" is no preset; there are default, left-rotates, middle-rotates and right-rotates";
}

/// Adds a row to those that the configuration has had so far.
/// @return what is wrong when its buttons and keys stand there already; else empty.
std::wstring noteRow(const std::wstring& text,
                     std::vector<std::pair<OrvikCore::MouseGesture, std::wstring>>& rows)
{
    OrvikCore::MouseGesture gesture;
    OrvikCore::MouseGesture::FromText(text, gesture);
    const auto same = std::find_if(rows.begin(), rows.end(),
                                   [&gesture](const auto& row) { return row.first == gesture; });
    if (same == rows.end()) {
        rows.emplace_back(gesture, text);
        return {};
    }
    return same->second == text ? L"\"" + text + L"\" has more than one action"
                                : L"\"" + text + L"\" is the same row as \"" + same->second + L"\"";
}

void windowSize(int& width, int& height)
{
    if (TambVizCore::IView3D* const view = SessionMgr::Instance().CurrentSession().View3D())
        view->GetWindowSize(width, height);
}

/// Selects what was selected before, and then what a rubber band has found.
void selectBoth(const std::vector<EntityId>& before)
{
    ASession& session = SessionMgr::Instance().CurrentSession();
    std::vector<EntityId> all = before;
    std::unordered_set<EntityId> present(before.begin(), before.end());
    for (const EntityId& entity : session.GetPickedEntities())
        if (present.insert(entity).second)
            all.push_back(entity);
    session.UnSelect();
    session.SetPickedEntities(all);
    for (const EntityId& entity : all)
        session.Select(entity);
}

} // namespace

Navigation::Navigation() : m_state(std::make_shared<NavigationState>()) {}

Navigation::~Navigation() = default;

bool Navigation::Read(ConfigurationFile& configuration, std::wstring& errorText)
{
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    configuration.FillSection(kSection, &pairs);
    bool good = true;
    const auto fail = [&](const std::wstring& key, const std::wstring& reason) {
        good = false;
        errorText += (errorText.empty() ? L"" : L"\n") + configuration.GetPlace(kSection, key) +
                     L": " + reason;
    };
    const auto preset = std::find_if(pairs.begin(), pairs.end(),
                                     [](const auto& pair) { return pair.first == kPreset; });
    if (preset != pairs.end() && !SetNavigation(preset->second))
        fail(kPreset, noPreset(preset->second));
    if (const NavigationTable* const base = findTable(m_name))
        m_custom = *base;
    std::vector<std::pair<OrvikCore::MouseGesture, std::wstring>> rows;
    for (const auto& [key, value] : pairs) {
        if (key == kPreset)
            continue;
        std::wstring reason = m_custom.SetRow(key, value);
        if (reason.empty())
            reason = noteRow(key, rows);
        if (!reason.empty())
            fail(key, reason);
        else
            m_hasCustom = true;
    }
    if (m_hasCustom)
        m_name = kCustom;
    return good;
}

void Navigation::Attach(OrvikCore::Controller& controller)
{
    Detach();
    m_controller = &controller;
    m_controller->AddListener(this);
    apply();
}

void Navigation::Detach()
{
    if (m_controller != nullptr)
        m_controller->RemoveListener(this);
    m_controller = nullptr;
}

std::vector<std::wstring> Navigation::ListNavigations() const
{
    std::vector<std::wstring> names = {kDefault};
    for (const NavigationPreset& preset : NavigationPresets())
        names.emplace_back(preset.name);
    if (m_hasCustom)
        names.emplace_back(kCustom);
    return names;
}

std::wstring Navigation::GetNavigation() const
{
    return m_name;
}

bool Navigation::SetNavigation(const std::wstring& name)
{
    if (name != kDefault && findTable(name) == nullptr)
        return false;
    m_name = name;
    apply();
    return true;
}

bool Navigation::SetRows(const std::vector<std::pair<std::wstring, std::wstring>>& rows,
                         const std::wstring& preset, std::wstring& errorText)
{
    const NavigationTable* const base = preset == kCustom ? nullptr : findTable(preset);
    if (base == nullptr && preset != kDefault) {
        errorText = noPreset(preset);
        return false;
    }
    NavigationTable table = base == nullptr ? NavigationTable() : *base;
    std::vector<std::pair<OrvikCore::MouseGesture, std::wstring>> taken;
    for (const auto& [gesture, action] : rows) {
        errorText = table.SetRow(gesture, action);
        if (errorText.empty())
            errorText = noteRow(gesture, taken);
        if (!errorText.empty())
            return false;
    }
    m_custom = table;
    m_hasCustom = !rows.empty();
    return SetNavigation(m_hasCustom ? std::wstring(kCustom) : preset);
}

/// @return the table of a name; null for the default, which is none, and for unknown names.
const NavigationTable* Navigation::findTable(const std::wstring& name) const
{
    if (m_hasCustom && name == kCustom)
        return &m_custom;
    const auto& presets = NavigationPresets();
    const auto found = std::find_if(presets.begin(), presets.end(),
                                    [&name](const auto& preset) { return preset.name == name; });
    return found == presets.end() ? nullptr : &found->table;
}

void Navigation::apply()
{
    m_state->isAdding = false;
    if (m_controller == nullptr)
        return;
    const NavigationTable* const table = findTable(m_name);
    m_controller->SetStrategy(
        table == nullptr ? nullptr
                         : new NavigationStrategy(m_controller, *table, &windowSize, m_state));
}

void Navigation::ControllerNotify(OrvikCore::IViewOp* op)
{
    if (op == nullptr || op->Type() != OrvikCore::ViewOpType::Drag)
        return;
    if (m_state->isAdding && op->State() == IViewOpState::Start)
        m_before = SessionMgr::Instance().CurrentSession().GetPickedEntities();
    else if (m_state->isAdding && op->State() == IViewOpState::End)
        selectBoth(m_before);
    const std::wstring command =
        m_echo.Follow(static_cast<const OrvikCore::ViewOpDrag&>(*op), m_state->isAdding);
    if (!command.empty())
        SessionMgr::Instance().CurrentSession().PrintMessage(command,
                                                             OrvikCore::MessageType::Output);
}

} // namespace Pellux
