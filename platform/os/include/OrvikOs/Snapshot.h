#ifndef ORVIKOS_SNAPSHOT_H
#define ORVIKOS_SNAPSHOT_H

#include <memory>
#include <mutex>
#include <utility>

namespace OrvikOs {

/// A value that one thread replaces and others read: readers get the whole value of one moment.
///
/// A reader keeps what it got for as long as it likes, however often the value is replaced
/// meanwhile. The lock inside is held only to copy or exchange a pointer; values are built and
/// destroyed outside it.
///
/// @thread  Any thread for every operation.
template <typename T> class Snapshot
{
public:
    /// Holds a default-constructed value.
    Snapshot() : m_value(std::make_shared<const T>()) {}

    /// Holds @p value.
    explicit Snapshot(T value) : m_value(std::make_shared<const T>(std::move(value))) {}

    Snapshot(const Snapshot&) = delete;
    Snapshot& operator=(const Snapshot&) = delete;

    /// Gives the value of this moment. Never null.
    std::shared_ptr<const T> Get() const
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        return m_value;
    }

    /// Replaces the value.
    void Set(T value) { exchange(std::make_shared<const T>(std::move(value))); }

    /// Replaces the value by what @p change makes of a copy of it. Changes of several threads at a
    /// time do not get lost.
    ///
    /// @param change  Callable with T&; runs with other changes held off, must not touch this
    /// snapshot's
    ///                Update() again. What it throws leaves the value as it was.
    template <typename Change> void Update(Change&& change)
    {
        const std::lock_guard<std::mutex> updates(m_updates);
        T value = *Get();
        std::forward<Change>(change)(value);
        Set(std::move(value));
    }

private:
    void exchange(std::shared_ptr<const T> value)
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_value.swap(value);
    }

    mutable std::mutex m_mutex;       ///< Guards m_value.
    std::mutex m_updates;             ///< Held during Update(); taken before m_mutex.
    std::shared_ptr<const T> m_value; ///< Never null.
};

} // namespace OrvikOs

#endif
