#ifndef ORVIKOS_THREADWATCH_H
#define ORVIKOS_THREADWATCH_H

#include "OrvikOs/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

namespace OrvikOs {

/// The code of some of the libraries that the process has loaded.
///
/// @thread  Any thread; Contains() also in a signal handler.
class ORVIKOS_API LibraryCode
{
public:
    /// Takes the libraries that are loaded now.
    ///
    /// @param prefix  How their file names begin, without folder: "libTK". ASCII.
    explicit LibraryCode(const std::string& prefix);

    /// Tells whether an address lies in the code of one of them.
    bool Contains(std::uintptr_t address) const noexcept;

    /// Tells whether there is no such library.
    bool IsEmpty() const { return m_regions.empty(); }

private:
    struct Region
    {
        std::uintptr_t begin;
        std::uintptr_t end;
    };
    std::vector<Region> m_regions;
};

/// Bounds how long a thread stays in code of somebody else that never asks whether it should stop.
///
/// While alive, it looks in on the thread that made it every kIntervalMs: it interrupts the thread
/// by a signal and asks a question. When the answer is Interrupt and the thread is within the given
/// libraries at this moment, an exception leaves from there, as FaultScope does it for a machine
/// fault: destructors of all callers run, except those of the innermost function and of frames
/// whose tables would end the program. What those held is not given back, so this is for code that
/// would else never come to an end. Code outside of the libraries (the memory allocator, the
/// runtime, the program itself) is never left by force; the next look comes soon.
///
/// Watches nest; the innermost one of a thread looks in, the others rest. It never looks in on
/// Windows, on processors other than x86-64, and under the thread sanitizer, which holds signals
/// back.
///
/// @thread  The thread that made it destroys it. That thread must be in a FaultScope for the
///          exception to be thrown.
class ORVIKOS_API ThreadWatch
{
public:
    /// Time between two looks, in milliseconds.
    static constexpr unsigned kIntervalMs = 10;

    enum class Answer
    {
        GoOn,
        GoOnClosely, ///< Look in again after a millisecond.
        Interrupt,
    };

    /// Says what to do with the thread now. Called in a signal handler on the watched thread: may
    /// only read and write plain and atomic variables, and call what is said to be usable there.
    ///
    /// @param cpuMs  Processor time that the thread has used so far, in milliseconds.
    using Question = Answer (*)(void* context, std::uint64_t cpuMs) noexcept;

    /// Must throw; in ordinary context, on the stack of the interrupted code. A C++ exception that
    /// does not derive from std::exception is only seen by handlers of exactly its type.
    using Thrower = void (*)(void* context);

    /// @param code     Not owned; outlives the watch.
    /// @param context  Handed to both; not owned.
    ThreadWatch(const LibraryCode& code, Question question, Thrower thrower, void* context);
    ~ThreadWatch();

    ThreadWatch(const ThreadWatch&) = delete;
    ThreadWatch& operator=(const ThreadWatch&) = delete;

    /// Tells whether it looks in at all: false where the system cannot.
    bool IsActive() const { return m_isActive; }

private:
    friend struct ThreadWatchHandler;

    const LibraryCode* m_code; ///< Not owned.
    Question m_question;
    Thrower m_thrower;
    void* m_context;            ///< Not owned.
    ThreadWatch* m_outer;       ///< Not owned; looks in again afterwards. Null for none.
    std::uintptr_t m_timer = 0; ///< The system's.
    bool m_isActive = false;
    bool m_isHurried = false; ///< Looks in every millisecond.
};

/// Gives the memory that the process has in use now, in bytes; 0 where the system does not tell.
///
/// @thread  Any thread; also in a signal handler.
ORVIKOS_API std::size_t ResidentBytes() noexcept;

} // namespace OrvikOs

#endif
