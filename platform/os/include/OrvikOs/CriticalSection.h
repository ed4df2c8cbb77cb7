#ifndef ORVIKOS_CRITICALSECTION_H
#define ORVIKOS_CRITICALSECTION_H

#include <mutex>

namespace OrvikOs {

/// A recursive lock: the thread that holds it may lock it again and must unlock it as often.
///
/// Held through Guard wherever possible, so that an exception (a machine fault included) releases
/// it.
///
/// @thread  Any thread; Unlock() on the thread that locked.
class CriticalSection
{
public:
    CriticalSection() = default;

    CriticalSection(const CriticalSection&) = delete;
    CriticalSection& operator=(const CriticalSection&) = delete;

    /// Blocks until the calling thread holds the lock.
    void Lock() { m_mutex.lock(); }

    /// Takes the lock if no other thread holds it. @return true when the calling thread holds it
    /// now.
    bool TryLock() { return m_mutex.try_lock(); }

    /// Gives one Lock() back.
    void Unlock() { m_mutex.unlock(); }

    /// Holds a critical section from construction to destruction.
    class Guard
    {
    public:
        /// Locks @p section (not owned; must outlive the guard).
        explicit Guard(CriticalSection& section) : m_section(section) { m_section.Lock(); }
        ~Guard() { m_section.Unlock(); }

        Guard(const Guard&) = delete;
        Guard& operator=(const Guard&) = delete;

    private:
        CriticalSection& m_section; ///< Not owned.
    };

private:
    std::recursive_mutex m_mutex;
};

} // namespace OrvikOs

#endif
