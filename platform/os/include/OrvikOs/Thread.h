#ifndef ORVIKOS_THREAD_H
#define ORVIKOS_THREAD_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace OrvikOs {

struct ThreadState;

/// Gives the system's number of the calling thread.
///
/// On Linux the main thread's number equals the process number. Never 0.
///
/// @thread  Any thread.
ORVIKOS_API std::uint32_t CurrentThreadId();

/// Gives the system's number of this process.
///
/// @thread  Any thread.
ORVIKOS_API std::uint32_t CurrentProcessId();

/// Offers the processor to another thread that is ready to run; returns at once when there is none.
///
/// @thread  Any thread.
ORVIKOS_API void YieldThread();

/// A thread of execution with a name, a stack of its own and a guard of 64 KiB below that stack.
///
/// The guard is what lets a stack overflow on such a thread become an exception (see FaultScope). A
/// thread ends in one of four ways: its body returns and Join() collects it; the destructor joins
/// it; Abandon() lets it run on without an owner; Park() stops it for good where it stands. No
/// thread is ever cancelled or killed on Linux, because the locks that it holds would stay locked
/// in the middle of an operation.
///
/// The body should catch its own exceptions: one that escapes it ends the program through
/// std::terminate.
///
/// @thread  The thread that started it, unless an operation says otherwise.
class ORVIKOS_API Thread
{
public:
    /// Longest name kept by the system, in characters; a longer one is cut.
    static constexpr std::size_t kMaxNameLength = 15;

    /// Bytes of address space below the stack that are kept inaccessible.
    static constexpr std::size_t kGuardBytes = 64 * 1024;

    /// Stack of a thread that asks for none in particular, in bytes.
    static constexpr std::size_t kDefaultStackBytes = 8 * 1024 * 1024;

    Thread();

    /// Joins a thread that still runs: blocks until its body returns. Does nothing for one that was
    /// joined, parked or abandoned.
    ~Thread();

    Thread(const Thread&) = delete;
    Thread& operator=(const Thread&) = delete;

    /// Starts @p body on a new thread, which may run before this call returns.
    ///
    /// @param body        Called once, on the new thread; destroyed there when it has returned.
    /// @param stackBytes  Bytes of stack, the guard not counted; values below 64 KiB are raised to
    /// it.
    /// @return false when the system refuses a thread or this object has started one before.
    bool Start(std::function<void()> body, std::size_t stackBytes = kDefaultStackBytes);

    /// Names the thread for debuggers and system tools.
    ///
    /// @param name  ASCII; only the first 15 characters are used.
    /// @return false when the thread does not run (any more) or the system refuses.
    bool SetName(const std::string& name);

    /// Tells whether Start() succeeded and the thread has not been joined, parked or abandoned
    /// since.
    bool IsStarted() const;

    /// Tells whether the body has returned. False before Start().
    ///
    /// @thread  Any thread.
    bool HasFinished() const;

    /// Gives the number that CurrentThreadId() returns on the thread; 0 before Start(), kept after
    /// the end.
    std::uint32_t Id() const;

    /// Gives the system's handle of the thread as a number for traces; 0 before Start(), kept after
    /// the end.
    std::uint64_t NativeHandle() const;

    /// Blocks until the body has returned; returns at once when nothing is started.
    void Join();

    /// Blocks until the body has returned, but at most for @p timeoutMs milliseconds.
    ///
    /// @return true when the thread has ended and was collected, or when nothing is started.
    bool JoinFor(int timeoutMs);

    /// Stops a stuck thread for good where it stands and gives it up.
    ///
    /// On Linux the thread is made to wait for ever by a private signal: none of its destructors
    /// runs, what it holds stays held and what it can reach must stay alive until the process ends.
    /// On Windows it is terminated. Either way this object owns no thread afterwards.
    ///
    /// @param timeoutMs  Milliseconds to wait for the thread's acknowledgement.
    /// @return true when the thread has acknowledged, has ended by itself, or nothing was started;
    /// false when
    ///         it did not answer in time (it may still stop later, and counts as abandoned).
    bool Park(int timeoutMs);

    /// Lets the thread run on without an owner; what it can reach must stay alive until the process
    /// ends.
    void Abandon();

private:
    ThreadState* m_state =
        nullptr;            ///< Shared with the running thread by a count; null when none is owned.
    std::uint32_t m_id = 0; ///< System number of the thread that was started last.
    std::uint64_t m_handle = 0; ///< System handle of the thread that was started last, for traces.
    bool m_finished = false;    ///< Set when a thread known to have ended was given up.
};

} // namespace OrvikOs

#endif
