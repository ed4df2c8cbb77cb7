#ifndef ORVIKOS_EVENT_H
#define ORVIKOS_EVENT_H

#include "OrvikOs/Export.h"

#include <cstdint>
#include <string>

namespace OrvikOs {

/// The error that Event::LastError() gives for a name that is taken.
inline constexpr unsigned kErrorAlreadyExists = 183;

/// A wait ended because the event was set; the event is not set any more.
inline constexpr unsigned kWaitSignalled = 0;
/// A wait for messages ended because there is input.
inline constexpr unsigned kWaitInput = 1;
/// A wait ended because the owner of what was waited for has died. Events never give it.
inline constexpr unsigned kWaitAbandoned = 0x80;
/// A wait ended because its time is up.
inline constexpr unsigned kWaitTimeout = 258;
/// A wait could not be carried out, for instance because the event is closed.
inline constexpr unsigned kWaitFailed = 0xFFFFFFFFu;

/// An auto-reset event: set by one thread, taken by the wait of one other.
///
/// Setting it twice before a wait counts once. A named event claims its name for the user of this
/// machine until it is closed or the process ends, however it ends; the name is a claim only, a
/// second process cannot open the event through it. On Linux the claim is a socket in the abstract
/// name space, so that no file is left behind; where such sockets are not to be had, names are
/// unique within the process only.
///
/// @thread  Set() on any thread; everything else on the thread that created it.
class ORVIKOS_API Event
{
public:
    Event();

    /// Closes the event.
    ~Event();

    Event(const Event&) = delete;
    Event& operator=(const Event&) = delete;

    /// Creates the event, not set, and claims its name. An event held before is closed first.
    ///
    /// @param name  Any text; the empty name makes an unnamed event, which never collides.
    /// @return false when the name is taken (LastError() is then 183) or the system has no event to
    /// give
    ///         (LastError() is then the system's error). After a failure nothing is held, so that a
    ///         later attempt with the same name does not meet this one.
    bool Create(const std::wstring& name);

    /// Creates an unnamed event, not set. An event held before is closed first.
    bool Create();

    /// Tells whether an event is held.
    bool IsCreated() const;

    /// Gives the error of the last Create(): 0 after success, 183 for a name that is taken.
    unsigned LastError() const;

    /// Sets the event: the wait of one thread ends.
    ///
    /// @return false when no event is held.
    /// @thread  Any thread; also from a handler of a system signal.
    bool Set() noexcept;

    /// Takes the event if it is set, without waiting.
    ///
    /// @return true when it was set; it is not set afterwards.
    bool TryTake() noexcept;

    /// Waits until the event is set and takes it.
    ///
    /// @param timeoutMs  Milliseconds; a negative value waits without end.
    /// @return kWaitSignalled, kWaitTimeout, or kWaitFailed when no event is held.
    unsigned Wait(int timeoutMs);

    /// Releases the event and its name; does nothing when none is held.
    void Close();

    /// Gives what the system can wait for: a pollable descriptor on Linux, a handle on Windows; -1
    /// when no event is held. Not owned by the caller; valid until Close(). Readable means set.
    std::intptr_t NativeHandle() const;

private:
    bool claimName(const std::wstring& name);
    void releaseName();

    std::intptr_t m_handle = -1; ///< Owned descriptor or handle; -1 when none.
    std::intptr_t m_claim = -1;  ///< Owned descriptor that holds the name; -1 when none.
    std::wstring m_processClaim; ///< Name held in the list of this process; empty when none.
    unsigned m_lastError = 0;    ///< Error of the last Create().
};

} // namespace OrvikOs

#endif
