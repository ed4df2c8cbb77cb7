#include "InputQueue.h"

#include "HotkeyTable.h"
#include "TreeMenu.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/MessageType.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/Utils.h>

#include <exception>
#include <type_traits>
#include <utility>

namespace Pellux {

using OrvikCore::ASession;
using OrvikCore::KeyEventArgs;
using OrvikCore::MessageType;
using OrvikCore::SessionMgr;

InputQueue::InputQueue(const HotkeyTable& hotkeys, std::function<void()> ensureTree)
    : m_hotkeys(hotkeys), m_ensureTree(std::move(ensureTree))
{
}

InputQueue::~InputQueue() = default;

void InputQueue::PostMotion(const OrvikCore::MouseEventArgs& event)
{
    m_events.emplace_back(event);
}

void InputQueue::PostButton(const OrvikCore::MouseButtonEventArgs& event)
{
    m_events.emplace_back(event);
}

void InputQueue::PostClick(const OrvikCore::MouseClickEventArgs& event)
{
    m_events.emplace_back(event);
}

void InputQueue::PostWheel(const OrvikCore::MouseWheelEventArgs& event)
{
    m_events.emplace_back(event);
}

void InputQueue::PostKey(const KeyEventArgs& event)
{
    m_events.emplace_back(event);
}

void InputQueue::PostMenuItem(const std::wstring& item, const TambVizCore::EntityId& entity)
{
    m_events.emplace_back(MenuChoice{item, entity});
}

void InputQueue::Clear()
{
    m_events.clear();
}

bool InputQueue::Play(const Player& player)
{
    if (m_isPlaying)
        return true;
    m_isPlaying = true;
    bool good = false;
    try {
        good = playAll(player);
    } catch (const std::exception& error) {
        SessionMgr::Instance().CurrentSession().PrintMessage(
            TambVizCore::Utils::StringToWstring(error.what()), MessageType::Error);
    }
    m_isPlaying = false;
    m_events.clear();
    return good;
}

bool InputQueue::playAll(const Player& player)
{
    while (!m_events.empty()) {
        if (!player.goOn())
            return false;
        Event event = std::move(m_events.front());
        m_events.pop_front();
        if (!playOne(event, player))
            return false;
    }
    return true;
}

bool InputQueue::playOne(Event& event, const Player& player)
{
    if (auto* const key = std::get_if<KeyEventArgs>(&event))
        return playKey(*key, player);
    if (const auto* const choice = std::get_if<MenuChoice>(&event))
        return playMenu(*choice);
    OrvikCore::Controller* const controller =
        SessionMgr::Instance().CurrentSession().GetController();
    std::visit(
        [controller](auto& args) {
            if constexpr (!std::is_same_v<decltype(args), MenuChoice&>)
                if (controller != nullptr)
                    controller->HandleWindowEvent(&args);
        },
        event);
    return true;
}

bool InputQueue::playKey(KeyEventArgs& event, const Player& player)
{
    if (const HotkeyTable::Entry* const hotkey = m_hotkeys.Find(event))
        return event.IsKeyUp() || player.runScript(hotkey->script, hotkey->text);
    if (OrvikCore::Controller* const controller =
            SessionMgr::Instance().CurrentSession().GetController())
        controller->HandleWindowEvent(&event);
    return true;
}

bool InputQueue::playMenu(const MenuChoice& choice)
{
    if (m_ensureTree)
        m_ensureTree();
    ASession& session = SessionMgr::Instance().CurrentSession();
    std::wstring reason;
    if (RunTreeMenuItem(session, choice.item, choice.entity, reason))
        return true;
    session.PrintMessage(reason, MessageType::Error);
    return false;
}

} // namespace Pellux
