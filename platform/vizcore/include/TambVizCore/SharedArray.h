#ifndef TAMBVIZCORE_SHAREDARRAY_H
#define TAMBVIZCORE_SHAREDARRAY_H

#include <cstddef>
#include <memory>
#include <span>
#include <utility>
#include <vector>

namespace TambVizCore {

/// A read-only array that several geometries may share; copying copies a pointer and a size.
///
/// Made from a vector (moved in, not copied) or from a block that the maker filled without
/// clearing it first, or from memory that something else keeps alive. An array of no elements is a
/// good value.
///
/// @thread Any thread: the elements never change.
template <class T> class SharedArray
{
public:
    SharedArray() = default;

    /// Takes the vector over, without a copy of its elements.
    explicit SharedArray(std::vector<T>&& values)
    {
        auto owner = std::make_shared<const std::vector<T>>(std::move(values));
        m_size = owner->size();
        m_data = std::shared_ptr<const T>(owner, owner->data());
    }

    /// Takes a block over (transferred in), for instance from std::make_unique_for_overwrite.
    SharedArray(std::unique_ptr<T[]> block, std::size_t size) : m_size(size)
    {
        const std::shared_ptr<const T[]> owner(std::move(block));
        m_data = std::shared_ptr<const T>(owner, owner.get());
    }

    /// Shares a block of @p size elements that lives as long as any copy of @p first.
    SharedArray(std::shared_ptr<const T> first, std::size_t size)
        : m_data(std::move(first)), m_size(size)
    {
    }

    /// @return the first element, null when empty and made from nothing; valid while any copy
    /// lives.
    const T* Data() const { return m_data.get(); }
    std::size_t Size() const { return m_size; }
    bool IsEmpty() const { return m_size == 0; }
    std::size_t MemoryBytes() const { return m_size * sizeof(T); }
    std::span<const T> Span() const { return {m_data.get(), m_size}; }

    /// The index must be below Size().
    const T& operator[](std::size_t index) const { return m_data.get()[index]; }

private:
    std::shared_ptr<const T> m_data;
    std::size_t m_size = 0;
};

} // namespace TambVizCore

#endif
