#ifndef ORVIKCORE_CONTROLLER_H
#define ORVIKCORE_CONTROLLER_H

#include "OrvikCore/EventArgsType.h"
#include "OrvikCore/Export.h"

#include <OrvikOs/CriticalSection.h>

#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

class AMouseEventArgs;
class IControllerListener;
class IViewOp;
class Input2OpStrategy;
class KeyEventArgs;
class MouseButtonEventArgs;
class MouseClickEventArgs;
class MouseEventArgs;
class MouseWheelEventArgs;
class OpStack;
struct Hotkey;

/// Turns the window events of one view into view operations and delivers them to its listeners.
///
/// Keeps the last two pointer positions, runs hotkeys as scripts, lets the host switch event types
/// off, and passes every other event to its input strategy. Created by its view, with sticky
/// selection, an empty operation stack, every event enabled, no hotkeys and no listeners.
///
/// Events may be nested: a listener that pumps window messages (a pick waits for its job) may bring
/// another event to the same controller. The operation in delivery then stays alive until its own
/// delivery has ended, each operation is delivered once, and the operation of the innermost event
/// stays on the stack.
///
/// @thread  Events: one thread, that of the window. Listeners and SelectionSetSticky(): any thread.
///          Hotkeys and disabled events: the thread that delivers events.
class ORVIKCORE_API Controller
{
public:
    Controller();
    Controller(const Controller&) = delete;
    Controller& operator=(const Controller&) = delete;

    /// Deletes the operations, the stack and the strategy; listeners and hotkeys are left alone.
    virtual ~Controller();

    /// @return the column of the latest pointer event, window pixels; 0 before the first.
    int MouseX() const { return mouseX; }
    /// @return the row of the latest pointer event, window pixels; 0 before the first.
    int MouseY() const { return mouseY; }
    /// @return the column of the pointer event before the latest, window pixels.
    int PrevX() const { return prevX; }
    /// @return the row of the pointer event before the latest, window pixels.
    int PrevY() const { return prevY; }

    /// Appends @p listener (not owned); one that is added twice is notified twice.
    void AddListener(IControllerListener* listener);

    /// Removes every occurrence of @p listener; it is not notified any more, also when the removal
    /// happens during a delivery.
    void RemoveListener(IControllerListener* listener);

    /// Binds @p key (not owned, must outlive the controller) to @p script; a null or invalid hotkey
    /// is ignored. Of equal hotkeys the one added first counts.
    void AddHotkey(Hotkey* key, std::wstring script);

    /// Removes the first hotkey equal to @p key by value; a null @p key is ignored.
    void RemoveHotkey(Hotkey* key);

    /// Lets events of @p type through again, however often they were disabled.
    void EnableEvent(EventArgsType type);

    /// Drops events of @p type from now on.
    void DisableEvent(EventArgsType type);

    void EnableAllEvents();

    /// Drops events of every type; types that were disabled before are entered once more.
    void DisableAllEvents();

    bool IsEnabled(EventArgsType type) const;

    /// Handles a pointer motion. @param event  not kept; null gives false.
    /// @return true when the event meant an operation.
    bool HandleWindowEvent(MouseEventArgs* event);

    /// Handles a button's press or release. @param event  not kept; null gives false.
    /// @return true when the event meant an operation.
    bool HandleWindowEvent(MouseButtonEventArgs* event);

    /// Handles a click. @param event  not kept; null gives false.
    /// @return true when the event meant an operation.
    bool HandleWindowEvent(MouseClickEventArgs* event);

    /// Handles a turn of the wheel. @param event  not kept; may be null.
    /// @return true whenever wheel events are enabled.
    bool HandleWindowEvent(MouseWheelEventArgs* event);

    /// Handles a key: runs its hotkey, or else asks the strategy. @param event  not kept.
    /// @return true when a hotkey's script succeeded or the event meant an operation.
    bool HandleWindowEvent(KeyEventArgs* event);

    /// Runs the script of the first hotkey equal to @p key (not null) and drops its output.
    ///
    /// @return the script's success; false for an unknown hotkey, an empty script or no shell.
    bool HandleHotkey(Hotkey const* key);

    /// @return true when a plain click picks.
    bool SelectionIsSticky();

    /// Replaces the strategy unless it is of the wanted kind already; the operation stack stays.
    void SelectionSetSticky(bool isSticky);

    /// Replaces the strategy; the operation stack stays.
    ///
    /// SelectionSetSticky() replaces it again where it answers SelectionIsSticky() otherwise.
    ///
    /// @param replacement  transferred in; made for this controller. Null: one that picks with a
    ///                     plain click, as at the start.
    /// @thread             Any thread, not from within a conversion of the strategy.
    void SetStrategy(Input2OpStrategy* replacement);

protected:
    /// Makes the latest position the one before, and that of @p event the latest; null: nothing.
    virtual void setPositions(AMouseEventArgs* event);

    /// @return true unless a derived controller vetoes @p event.
    virtual bool isValidRequest(AMouseEventArgs* event);
    /// @return true unless a derived controller vetoes @p event.
    virtual bool isValidRequest(KeyEventArgs* event);

    virtual bool isEventEnabled(MouseEventArgs* event);
    virtual bool isEventEnabled(MouseButtonEventArgs* event);
    virtual bool isEventEnabled(MouseClickEventArgs* event);
    virtual bool isEventEnabled(MouseWheelEventArgs* event);
    virtual bool isEventEnabled(KeyEventArgs* event);

    /// Delivers the operations on the stack, newest first, and leaves the last one there.
    ///
    /// While the job dispatcher is busy, hit tests and highlights are taken but not delivered.
    virtual void notifyListeners();

private:
    friend class Input2OpStrategy; // Takes the operation stack.

    template <typename Event> bool convert(Event* event);
    template <typename Event> bool handleMouseEvent(Event* event);
    void deliver(IViewOp& op);
    bool isListening(const IControllerListener* listener);

    int mouseX = 0;
    int mouseY = 0;
    int prevX = 0;
    int prevY = 0;
    std::vector<std::pair<Hotkey*, std::wstring>> m_hotkeys; ///< Hotkeys not owned.
    OpStack* opStack;                                        ///< Owned.
    Input2OpStrategy* strategy;                              ///< Owned; replaced under its lock.
    std::vector<IControllerListener*> m_listeners;           ///< Not owned; under its lock.
    std::vector<EventArgsType> m_disabledEvents;
    OrvikOs::CriticalSection m_listenerLock;
    OrvikOs::CriticalSection m_strategyLock;
};

} // namespace OrvikCore

#endif
