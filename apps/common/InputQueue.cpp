#include "InputQueue.h"

#include "HotkeyTable.h"
#include "JournalText.h"
#include "TreeMenu.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/IApplication.h>
#include <OrvikCore/ICameraProvider.h>
#include <OrvikCore/IInputProvider.h>
#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/MessageType.h>
#include <OrvikCore/RayPickJob.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikOs/MsgWait.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/Vector.h>

#include <exception>
#include <memory>
#include <type_traits>
#include <utility>

namespace Pellux {

using OrvikCore::ASession;
using OrvikCore::KeyEventArgs;
using OrvikCore::MessageType;
using OrvikCore::SessionMgr;

namespace {

/// How far from the pointer hover looks, as views do.
constexpr int kHoverAperturePixels = 4;

/// A job has ended for whoever waited for it a moment before the worker says that it is idle, and
/// until then a controller drops hovers.
void waitForTheWorker()
{
    while (OrvikCore::JobDispatcher::Instance().IsBusy())
        OrvikOs::ServeWakeSources();
}

/// Models make ready what finds things under the pointer when a pick passes them for the first
/// time, and a hover, which does not wait, finds nothing before. A pick without consequences along
/// the hover's ray, as a job, has them do so.
void prepareHover(ASession& session, int x, int y)
{
    auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(session.View3D());
    if (provider == nullptr)
        return;
    TambVizCore::Ray ray = provider->GetCamera()->Make3DRay(x, y, kHoverAperturePixels);
    // Hover also finds what lies behind the eye in parallel projection.
    const float* const center = session.View3D()->GetGeometryCenter();
    float toCenter[3];
    TambVizCore::Subtract(center, ray.Origin(), toCenter);
    float back[3] = {ray.Direction()[0], ray.Direction()[1], ray.Direction()[2]};
    TambVizCore::Multiply(back,
                          -TambVizCore::Length(toCenter) - session.View3D()->GetGeometryRadius());
    float origin[3];
    TambVizCore::Add(ray.Origin(), back, origin);
    ray.SetOrigin(origin);
    OrvikCore::JobDispatcher::Instance().ExecuteParked(
        std::make_shared<OrvikCore::RayPickJob>(session.Document(), ray));
    waitForTheWorker();
}

} // namespace

InputQueue::InputQueue(const HotkeyTable& hotkeys, std::function<void()> ensureTree,
                       std::function<void()> endGesture)
    : m_hotkeys(hotkeys), m_ensureTree(std::move(ensureTree)), m_endGesture(std::move(endGesture))
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
        waitForTheWorker();
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
    ASession& session = SessionMgr::Instance().CurrentSession();
    if (auto* const motion = std::get_if<OrvikCore::MouseEventArgs>(&event);
        motion != nullptr && motion->GetMouseButtons() == OrvikCore::MouseButton::None &&
        (motion->ModifierKeys() & OrvikCore::ModifierKey::Shift) != OrvikCore::ModifierKey::None)
        prepareHover(session, motion->X(), motion->Y());
    OrvikCore::Controller* const controller = session.GetController();
    std::visit(
        [controller](auto& args) {
            if constexpr (!std::is_same_v<decltype(args), MenuChoice&>)
                if (controller != nullptr)
                    controller->HandleWindowEvent(&args);
        },
        event);
    const auto* const button = std::get_if<OrvikCore::MouseButtonEventArgs>(&event);
    if (button != nullptr && !button->IsPressed() && m_endGesture)
        m_endGesture();
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
    if (RunTreeMenuItem(session, choice.item, choice.entity, reason)) {
        const std::wstring form = MenuForm(choice.item, choice.entity);
        OrvikCore::IApplication* const application = SessionMgr::Instance().GetApplication();
        if (!form.empty() && application != nullptr)
            application->RecordCommand(form);
        return true;
    }
    session.PrintMessage(reason, MessageType::Error);
    return false;
}

InputQueue* CurrentInputQueue()
{
    auto* const provider =
        dynamic_cast<OrvikCore::IInputProvider*>(SessionMgr::Instance().GetApplication());
    return provider == nullptr ? nullptr : dynamic_cast<InputQueue*>(provider->GetInputQueue());
}

} // namespace Pellux
