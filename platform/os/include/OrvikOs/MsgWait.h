#ifndef ORVIKOS_MSGWAIT_H
#define ORVIKOS_MSGWAIT_H

#include "OrvikOs/Event.h"
#include "OrvikOs/Export.h"
#include "OrvikOs/Thread.h"

#include <cstdint>
#include <vector>

namespace OrvikOs {

/// Kinds of input that can end a wait; combined into a mask. The values are those of the Windows
/// QS_ bits.
inline constexpr unsigned kInputMouseMove = 0x02;   ///< QS_MOUSEMOVE: the pointer has moved.
inline constexpr unsigned kInputMouseButton = 0x04; ///< QS_MOUSEBUTTON: a button went down or up.
inline constexpr unsigned kInputTimer = 0x10;       ///< QS_TIMER: a timer has run out.
inline constexpr unsigned kInputPaint = 0x20;       ///< QS_PAINT: a window wants to be painted.

/// The message that asks the application to end (WM_QUIT).
inline constexpr unsigned kMessageQuit = 0x12;

/// One message of the host's queue.
struct Message
{
    unsigned id =
        0; ///< Kind of message, numbered as on Windows; kMessageQuit ends the application.
    void* window = nullptr;   ///< Window that it is for; not owned, may be null.
    std::uint64_t wParam = 0; ///< First detail; its meaning depends on the kind.
    std::int64_t lParam = 0;  ///< Second detail; its meaning depends on the kind.
};

/// The host's message queue, as the waits of the main thread see it.
///
/// On Windows a source over the thread's own queue is in place from the start. On Linux there is
/// none: waits then end only by their event or their time-out, until the host supplies a source.
///
/// @thread  Main thread for every operation.
class ORVIKOS_API IMessageSource
{
public:
    virtual ~IMessageSource();

    /// Tells whether input of one of the kinds in @p mask is waiting. Called often; must not block.
    virtual bool HasInput(unsigned mask) = 0;

    /// Looks at the next message of any kind, also of kinds outside every mask. Must not block.
    ///
    /// @param message  Receives the message; untouched on false.
    /// @param remove   true takes the message out of the queue.
    /// @return false when the queue is empty.
    virtual bool Peek(Message& message, bool remove) = 0;

    /// Turns a key message into character messages where the system works that way.
    virtual void Translate(const Message& message) = 0;

    /// Hands the message to its window. May run any code of the host, also a wait inside this wait.
    virtual void Dispatch(const Message& message) = 0;

    /// Gives a descriptor that is readable when there may be input, or -1 when there is none to
    /// wait for. Not owned by the caller. The default is -1.
    virtual std::intptr_t InputHandle();

    /// Gives the longest time in milliseconds between two calls of HasInput() during a wait when
    /// InputHandle() is -1. Values below 1 count as 1. The default is 10.
    virtual int PollIntervalMs();
};

/// Work that reaches the main thread from elsewhere, served by every wait of that thread.
///
/// Whoever brings work sets the wake event; the next wait, or the one in progress, takes the event
/// and calls Serve() within about a hundred microseconds. The source must outlive its registration.
class ORVIKOS_API IWakeSource
{
public:
    virtual ~IWakeSource();

    /// Gives the event that is set when there is work. Not owned by the caller; the same object
    /// every time, created before registration and alive until the source is unregistered.
    virtual Event& WakeEvent() = 0;

    /// Does the waiting work. May bring further work, wait again inside, and throw: what it throws
    /// leaves the wait that called it.
    ///
    /// @thread  The thread that the source is registered for.
    virtual void Serve() = 0;
};

/// Replaces the queue that waits look at.
///
/// @param source  Not owned; must live until it is replaced. Null puts the system's own source
/// back: none on
///                Linux, the calling thread's queue on Windows.
/// @return the source in place before, null for the system's own.
/// @thread  Main thread.
ORVIKOS_API IMessageSource* SetMessageSource(IMessageSource* source);

/// Gives the queue that waits look at; null when there is none. Not owned by the caller.
///
/// @thread  Main thread.
ORVIKOS_API IMessageSource* GetMessageSource();

/// Adds @p source to those served by the waits of the thread @p threadId. A second registration of
/// the same source is ignored.
///
/// @param source    Not owned; unregister it before it dies.
/// @param threadId  Number of the thread that serves it; by default the calling thread.
/// @thread  Any thread.
ORVIKOS_API void RegisterWakeSource(IWakeSource& source,
                                    std::uint32_t threadId = CurrentThreadId());

/// Removes @p source; does nothing when it is not registered.
///
/// @thread  The thread that serves it, or any thread while that thread is known not to wait.
ORVIKOS_API void UnregisterWakeSource(IWakeSource& source);

/// Waits until @p event is set, input is there, or the time is up; serves the wake sources of the
/// calling thread meanwhile.
///
/// The event wins over input, input over work to serve.
///
/// @param event      Taken when the result is kWaitSignalled.
/// @param timeoutMs  Milliseconds; a negative value waits without end. Time spent in wake sources
/// counts.
/// @param mask       Kinds of input that end the wait; 0 for none.
/// @return kWaitSignalled, kWaitInput (nothing was taken from the queue), kWaitTimeout, or
/// kWaitFailed when
///         @p event is closed.
/// @thread  Any thread; input is looked at on the main thread only by agreement of the callers.
ORVIKOS_API unsigned MsgWait(Event& event, int timeoutMs, unsigned mask);

/// Serves every wake source of the calling thread whose event is set, once, and returns.
///
/// For busy loops and for hosts whose own loop waits elsewhere.
///
/// @return true when at least one was served.
/// @thread  Any thread.
ORVIKOS_API bool ServeWakeSources();

/// Gives what the wake events of the calling thread's sources are waited for by
/// (Event::NativeHandle), in the order of registration: for hosts whose own loop can wait for more
/// than its own input. Where one is ready, ServeWakeSources() has work. Not owned by the caller;
/// each is good as long as its source is registered.
///
/// @thread  Any thread.
ORVIKOS_API std::vector<std::intptr_t> WakeHandles();

/// Waits until a wake source of the calling thread has work, serves it, and returns; or until input
/// is there, or the time is up. For the idle wait of a host without an event loop.
///
/// @param timeoutMs  Milliseconds; a negative value waits without end.
/// @param mask       Kinds of input that end the wait; 0 for none.
/// @return kWaitSignalled when a source was served, kWaitInput, kWaitTimeout, or kWaitFailed when
/// there is
///         neither a source nor a message queue to wait for and the wait would never end.
/// @thread  Any thread.
ORVIKOS_API unsigned WaitForWakeSources(int timeoutMs, unsigned mask = 0);

} // namespace OrvikOs

#endif
