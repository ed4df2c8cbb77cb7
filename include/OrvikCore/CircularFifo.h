#ifndef ORVIKCORE_CIRCULARFIFO_H
#define ORVIKCORE_CIRCULARFIFO_H

#include <array>
#include <atomic>
#include <cstddef>
#include <cstdint>

namespace OrvikCore {

/// A ring of elements between exactly one thread that pushes and exactly one that pops.
///
/// Nothing is allocated and nobody waits. One slot always stays free, so that a full ring and an
/// empty one differ. Each index is written by one side only; its release store hands the slot over
/// to the other side.
///
/// @tparam Element   default-constructible and assignable.
/// @tparam Capacity  number of elements that fit.
template <typename Element, std::size_t Capacity> class CircularFifo
{
public:
    CircularFifo() = default;
    CircularFifo(const CircularFifo&) = delete;
    CircularFifo& operator=(const CircularFifo&) = delete;
    virtual ~CircularFifo() = default;

    /// Appends a copy of the element.
    ///
    /// @return false, with the ring unchanged, when Capacity elements wait already.
    /// @thread The one thread that pushes.
    bool Push(const Element& element)
    {
        const std::uint32_t write = m_write.load(std::memory_order_relaxed);
        const std::uint32_t next = step(write);
        if (next == m_read.load(std::memory_order_acquire)) {
            return false;
        }
        m_slots[write] = element;
        m_write.store(next, std::memory_order_release);
        return true;
    }

    /// Takes the oldest element.
    ///
    /// @return false, with @p element unchanged, when the ring is empty.
    /// @thread The one thread that pops.
    bool Pop(Element& element)
    {
        const std::uint32_t read = m_read.load(std::memory_order_relaxed);
        if (read == m_write.load(std::memory_order_acquire)) {
            return false;
        }
        element = m_slots[read];
        m_read.store(step(read), std::memory_order_release);
        return true;
    }

    /// @return true when nothing waits; on a third thread, or on the pushing one, a snapshot.
    /// @thread Any thread.
    bool IsEmpty() const
    {
        return m_read.load(std::memory_order_acquire) == m_write.load(std::memory_order_acquire);
    }

private:
    static constexpr std::uint32_t kSlots = Capacity + 1;

    static std::uint32_t step(std::uint32_t index) { return (index + 1) % kSlots; }

    std::atomic<std::uint32_t> m_write{0}; ///< Written by the pushing thread.
    std::array<Element, kSlots> m_slots;
    std::atomic<std::uint32_t> m_read{0}; ///< Written by the popping thread.
};

} // namespace OrvikCore

#endif
