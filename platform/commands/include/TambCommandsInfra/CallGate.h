#ifndef TAMBCOMMANDSINFRA_CALLGATE_H
#define TAMBCOMMANDSINFRA_CALLGATE_H

#include "TambCommandsInfra/Export.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <type_traits>
#include <utility>

namespace TambCommandsInfra {

/// The one way from any thread to the main thread: a queue that only the main thread drains.
///
/// The host creates one gate on its main thread, early; from then on Call() and Post() carry
/// functions to that thread, in the order in which they were handed in (calls and posts in one
/// queue). On the main thread itself, and while no gate exists, they run the function at once on
/// the calling thread, so that unit tests need no gate.
///
/// Every wait of the main thread that goes through OrvikOs (MsgWait, WaitForWakeSources,
/// ServeWakeSources) drains the gate, within about a hundred microseconds. What is drained runs
/// under a fault scope: a machine fault in it becomes an exception, which a caller receives like
/// any other. A drained function may wait and so drain again.
///
/// Life: one at a time. Close() before the worker is stopped; destroy it on the main thread when no
/// other thread uses it any more, before what posted functions refer to.
///
/// A caller must not hold a lock that the main thread may want.
class TAMBCOMMANDSINFRA_API CallGate
{
public:
    /// Payload in bytes from which on Post() waits for the main thread.
    static constexpr std::size_t kMaxPendingBytes = std::size_t{8} * 1024 * 1024;

    /// Bytes that every posted function counts in addition to its declared payload.
    static constexpr std::size_t kBytesPerPost = 128;

    /// Opens the gate: the calling thread becomes the one that drains it.
    ///
    /// @throws std::logic_error "A call gate exists already." when there is one.
    /// @throws std::runtime_error "The call gate has no wake event." when the system gives none.
    /// @thread  Main thread.
    CallGate();

    /// Closes the gate and removes it; calls and posts run at once from then on.
    ///
    /// @thread  Main thread.
    ~CallGate();

    CallGate(const CallGate&) = delete;
    CallGate& operator=(const CallGate&) = delete;

    /// Runs @p function on the main thread, waits for it, and gives its result.
    ///
    /// @param function  Callable without arguments; stays the caller's, runs at most once, and is
    /// never touched
    ///                  after this call has returned or thrown.
    /// @throws whatever @p function throws.
    /// @throws std::runtime_error "The application is closing." when the gate is or gets closed
    /// before the
    ///         function was begun. A function that was begun is always finished first.
    /// @thread  Any thread.
    template <typename Function> static std::invoke_result_t<Function&> Call(Function&& function)
    {
        using Result = std::invoke_result_t<Function&>;
        auto& callable = function;
        if constexpr (std::is_void_v<Result>) {
            auto task = [&callable] { callable(); };
            runAndWait(&invoke<decltype(task)>, &task);
        } else if constexpr (std::is_reference_v<Result>) {
            std::remove_reference_t<Result>* result = nullptr;
            auto task = [&callable, &result] {
                Result&& reference = callable();
                result = std::addressof(reference);
            };
            runAndWait(&invoke<decltype(task)>, &task);
            return static_cast<Result>(*result);
        } else {
            std::optional<Result> result;
            auto task = [&callable, &result] { result.emplace(callable()); };
            runAndWait(&invoke<decltype(task)>, &task);
            return std::move(*result);
        }
    }

    /// Hands @p function to the main thread and returns.
    ///
    /// What it throws there is written to the debug output; when it runs at once (main thread, no
    /// gate) the exception reaches the caller. It is destroyed on the thread that ran it, or that
    /// closed the gate.
    ///
    /// @param function      Callable without arguments, moved or copied in; must not refer to the
    /// caller's stack.
    /// @param payloadBytes  Memory that it keeps alive, roughly. Once kMaxPendingBytes are pending
    /// a post waits
    ///                      until the main thread has caught up or the gate is closed.
    /// @return false when the gate is closed: the function was not run and never will be.
    /// @thread  Any thread.
    template <typename Function> static bool Post(Function&& function, std::size_t payloadBytes = 0)
    {
        using Stored = PostedFunction<std::decay_t<Function>>;
        if (RunsInline()) {
            function();
            return true;
        }
        return enqueue(std::make_unique<Stored>(std::forward<Function>(function)), payloadBytes);
    }

    /// Tells whether Call() and Post() run at once: on the main thread, or while no gate exists.
    ///
    /// @thread  Any thread.
    static bool RunsInline();

    /// Closes the gate of the process, if there is one; see Close(). For a forced stop.
    ///
    /// @thread  Any thread.
    static void CloseCurrent();

    /// Fails pending and later calls with "The application is closing.", drops pending posts, and
    /// wakes posts that wait. Later calls do nothing. On the main thread functions still run at
    /// once.
    ///
    /// @thread  Any thread.
    void Close();

    /// Tells whether Close() was called.
    ///
    /// @thread  Any thread.
    bool IsClosed() const;

    /// Runs what is queued at this moment; what is queued meanwhile waits for the next time, so
    /// that a flood of posts cannot starve the main thread.
    ///
    /// @return the number of functions run.
    /// @thread  Main thread.
    std::size_t Drain();

private:
    struct State;
    struct Posted
    {
        virtual ~Posted() = default;
        virtual void Run() = 0;
    };
    template <typename Function> struct PostedFunction final : Posted
    {
        template <typename Argument>
        explicit PostedFunction(Argument&& argument) : m_function(std::forward<Argument>(argument))
        {
        }
        void Run() override { m_function(); }
        Function m_function; ///< The function that was posted.
    };
    using Invoke = void (*)(void* task);

    template <typename Task> static void invoke(void* task) { (*static_cast<Task*>(task))(); }
    static void runAndWait(Invoke invoke, void* task);
    static bool enqueue(std::unique_ptr<Posted> posted, std::size_t payloadBytes);

    std::shared_ptr<State> m_state; ///< Shared with the threads that wait in it.
};

} // namespace TambCommandsInfra

#endif
