#include "OrvikCore/Controller.h"

#include "OrvikCore/Hotkey.h"
#include "OrvikCore/IControllerListener.h"
#include "OrvikCore/IViewOp.h"
#include "OrvikCore/Input2OpStrategySelect.h"
#include "OrvikCore/Input2OpStrategyStickySelect.h"
#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseButtonEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"
#include "OrvikCore/OpStack.h"
#include "OrvikCore/SessionMgr.h"
#include "OrvikCore/Shell.h"

#include <algorithm>
#include <memory>

namespace OrvikCore {

namespace {

using Lock = OrvikOs::CriticalSection::Guard;

/// Keeps an operation alive while it is delivered.
class OpPin
{
public:
    OpPin(OpStack& stack, IViewOp* op) : m_stack(stack), m_op(op) { m_stack.Pin(m_op); }
    ~OpPin()
    {
        if (!m_released) {
            m_stack.Unpin(m_op);
        }
    }
    OpPin(const OpPin&) = delete;
    OpPin& operator=(const OpPin&) = delete;

    /// Ends the pin. @return true when the operation was discarded meanwhile.
    bool Release()
    {
        m_released = true;
        return m_stack.Unpin(m_op);
    }

private:
    OpStack& m_stack;
    IViewOp* m_op; ///< Not owned.
    bool m_released = false;
};

} // namespace

Controller::Controller()
{
    auto stack = std::make_unique<OpStack>();
    opStack = stack.get();
    strategy = new Input2OpStrategyStickySelect(this);
    stack.release();
}

Controller::~Controller()
{
    opStack->Clear();
    delete opStack;
    delete strategy;
}

void Controller::AddListener(IControllerListener* listener)
{
    const Lock lock(m_listenerLock);
    m_listeners.push_back(listener);
}

void Controller::RemoveListener(IControllerListener* listener)
{
    const Lock lock(m_listenerLock);
    std::erase(m_listeners, listener);
}

void Controller::AddHotkey(Hotkey* key, std::wstring script)
{
    if (key != nullptr && key->IsValid()) {
        m_hotkeys.emplace_back(key, std::move(script));
    }
}

void Controller::RemoveHotkey(Hotkey* key)
{
    if (key == nullptr) {
        return;
    }
    const auto found = std::find_if(m_hotkeys.begin(), m_hotkeys.end(),
                                    [key](const auto& entry) { return *entry.first == *key; });
    if (found != m_hotkeys.end()) {
        m_hotkeys.erase(found);
    }
}

void Controller::EnableEvent(EventArgsType type)
{
    std::erase(m_disabledEvents, type);
}

void Controller::DisableEvent(EventArgsType type)
{
    if (IsEnabled(type)) {
        m_disabledEvents.push_back(type);
    }
}

void Controller::EnableAllEvents()
{
    m_disabledEvents.clear();
}

void Controller::DisableAllEvents()
{
    // Deliberate: without looking at what is disabled already, so that a type may be there twice.
    // Held by ControllerTest.OneEnablingUndoesRepeatedDisabling.
    m_disabledEvents.insert(m_disabledEvents.end(),
                            {EventArgsType::MouseEventArgs, EventArgsType::MouseButtonEventArgs,
                             EventArgsType::MouseClickEventArgs, EventArgsType::MouseWheelEventArgs,
                             EventArgsType::KeyEventArgs});
}

bool Controller::IsEnabled(EventArgsType type) const
{
    return std::find(m_disabledEvents.begin(), m_disabledEvents.end(), type) ==
           m_disabledEvents.end();
}

bool Controller::HandleWindowEvent(MouseEventArgs* event)
{
    return handleMouseEvent(event);
}

bool Controller::HandleWindowEvent(MouseButtonEventArgs* event)
{
    return handleMouseEvent(event);
}

bool Controller::HandleWindowEvent(MouseClickEventArgs* event)
{
    return handleMouseEvent(event);
}

bool Controller::HandleWindowEvent(MouseWheelEventArgs* event)
{
    setPositions(event);
    if (!isEventEnabled(event) || !isValidRequest(event)) {
        return false;
    }
    convert(event);
    // Deliberate: true whatever the strategy answered.
    // Held by ControllerTest.WheelEventGivesTrueWithoutAnOperation.
    return true;
}

bool Controller::HandleWindowEvent(KeyEventArgs* event)
{
    if (!isEventEnabled(event) || !isValidRequest(event)) {
        return false;
    }
    const std::unique_ptr<Hotkey> hotkey(Hotkey::FromKeyEventArgs(event));
    if (hotkey != nullptr && hotkey->IsValid() && HandleHotkey(hotkey.get())) {
        return true;
    }
    return convert(event);
}

bool Controller::HandleHotkey(Hotkey const* key)
{
    const auto found = std::find_if(m_hotkeys.begin(), m_hotkeys.end(),
                                    [key](const auto& entry) { return *entry.first == *key; });
    if (found == m_hotkeys.end() || found->second.empty()) {
        return false;
    }
    const std::wstring script = found->second; // The script may change the table.
    Shell* shell = SessionMgr::Instance().GetShell();
    std::wstring output;
    return shell != nullptr && shell->RunScript(script, output);
}

bool Controller::SelectionIsSticky()
{
    const Lock lock(m_strategyLock);
    return strategy->SelectionIsSticky();
}

void Controller::SelectionSetSticky(bool isSticky)
{
    const Lock lock(m_strategyLock);
    if (strategy->SelectionIsSticky() == isSticky) {
        return;
    }
    std::unique_ptr<Input2OpStrategy> replacement;
    if (isSticky) {
        replacement = std::make_unique<Input2OpStrategyStickySelect>(this);
    } else {
        replacement = std::make_unique<Input2OpStrategySelect>(this);
    }
    delete strategy;
    strategy = replacement.release();
}

void Controller::SetStrategy(Input2OpStrategy* replacement)
{
    std::unique_ptr<Input2OpStrategy> next(replacement);
    if (next == nullptr) {
        next = std::make_unique<Input2OpStrategyStickySelect>(this);
    }
    const Lock lock(m_strategyLock);
    delete strategy;
    strategy = next.release();
}

void Controller::setPositions(AMouseEventArgs* event)
{
    if (event == nullptr) {
        return;
    }
    prevX = mouseX;
    prevY = mouseY;
    mouseX = event->X();
    mouseY = event->Y();
}

bool Controller::isValidRequest(AMouseEventArgs*)
{
    return true;
}

bool Controller::isValidRequest(KeyEventArgs*)
{
    return true;
}

bool Controller::isEventEnabled(MouseEventArgs*)
{
    return IsEnabled(EventArgsType::MouseEventArgs);
}

bool Controller::isEventEnabled(MouseButtonEventArgs*)
{
    return IsEnabled(EventArgsType::MouseButtonEventArgs);
}

bool Controller::isEventEnabled(MouseClickEventArgs*)
{
    return IsEnabled(EventArgsType::MouseClickEventArgs);
}

bool Controller::isEventEnabled(MouseWheelEventArgs*)
{
    return IsEnabled(EventArgsType::MouseWheelEventArgs);
}

bool Controller::isEventEnabled(KeyEventArgs*)
{
    return IsEnabled(EventArgsType::KeyEventArgs);
}

void Controller::notifyListeners()
{
    if (opStack->IsEmpty()) {
        return;
    }
    IViewOp* delivered = nullptr; // Owned here between its Pop() and the end of the next delivery.
    while (!opStack->IsEmpty()) {
        opStack->Discard(delivered);
        delivered = nullptr;
        IViewOp* op = opStack->Top();
        OpPin pin(*opStack, op);
        if (op != nullptr) {
            deliver(*op);
        }
        if (pin.Release()) {
            return; // A nested event has replaced it, and delivered what was left.
        }
        delivered = opStack->Pop();
    }
    opStack->Push(delivered);
}

template <typename Event> bool Controller::convert(Event* event)
{
    bool hasOp = false;
    {
        const Lock lock(m_strategyLock);
        hasOp = strategy->ConvertWindowEvent(event);
    }
    if (hasOp) {
        notifyListeners();
    }
    return hasOp;
}

template <typename Event> bool Controller::handleMouseEvent(Event* event)
{
    // Deliberate: positions are tracked while the event is disabled.
    // Held by ControllerTest.DisabledMouseEventsStillShiftThePositions.
    setPositions(event);
    if (!isEventEnabled(event) || !isValidRequest(event)) {
        return false;
    }
    return convert(event);
}

void Controller::deliver(IViewOp& op)
{
    // A hover must not queue behind the job that runs.
    const bool isHover = op.Type() == ViewOpType::HitTest || op.Type() == ViewOpType::Highlight;
    if (isHover && JobDispatcher::Instance().IsBusy()) {
        return;
    }
    const Lock lock(m_listenerLock);
    const std::vector<IControllerListener*> listeners = m_listeners; // They may change it.
    for (IControllerListener* listener : listeners) {
        if (listener != nullptr && isListening(listener)) {
            listener->ControllerNotify(&op);
        }
    }
}

bool Controller::isListening(const IControllerListener* listener)
{
    return std::find(m_listeners.begin(), m_listeners.end(), listener) != m_listeners.end();
}

} // namespace OrvikCore
