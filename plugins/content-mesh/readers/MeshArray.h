#ifndef ORVIKMESH_READERS_MESHARRAY_H
#define ORVIKMESH_READERS_MESHARRAY_H

#include <cstddef>
#include <cstdlib>
#include <new>
#include <type_traits>
#include <utility>

namespace OrvikMesh {

/// A growable array of plain values whose new elements are not initialised.
///
/// Millions of coordinates are written once and never read before; clearing them first would cost
/// as much as reading the file. Growing moves whole pages where the allocator can, so a generous
/// capacity costs address space, not memory, until it is written. Move only; owned by one thread.
template <class T> class MeshArray
{
    static_assert(std::is_trivially_copyable_v<T> && std::is_trivially_destructible_v<T>);

public:
    MeshArray() = default;
    ~MeshArray() { std::free(m_data); }
    MeshArray(const MeshArray&) = delete;
    MeshArray& operator=(const MeshArray&) = delete;
    MeshArray(MeshArray&& other) noexcept { Swap(other); }
    MeshArray& operator=(MeshArray&& other) noexcept
    {
        MeshArray taken(std::move(other));
        Swap(taken);
        return *this;
    }

    T* Data() { return m_data; }
    const T* Data() const { return m_data; }
    std::size_t Size() const { return m_size; }
    std::size_t Capacity() const { return m_capacity; }
    bool IsEmpty() const { return m_size == 0; }
    T& operator[](std::size_t index) { return m_data[index]; }
    const T& operator[](std::size_t index) const { return m_data[index]; }
    T* begin() { return m_data; }
    T* end() { return m_data + m_size; }
    const T* begin() const { return m_data; }
    const T* end() const { return m_data + m_size; }

    /// Makes room for @p capacity elements; the elements present stay.
    ///
    /// @throws std::bad_alloc when the memory cannot be had; the array is unchanged.
    void Reserve(std::size_t capacity)
    {
        if (capacity > m_capacity)
            setCapacity(capacity);
    }

    /// Sets the number of elements; those that are new hold anything.
    ///
    /// @throws std::bad_alloc as Reserve().
    void Resize(std::size_t size)
    {
        Reserve(size);
        m_size = size;
    }

    /// Appends @p value; the capacity doubles when it is used up.
    void PushBack(const T& value)
    {
        const T copy = value;
        if (m_size == m_capacity)
            setCapacity(m_capacity < 64 ? 64 : m_capacity * 2);
        m_data[m_size++] = copy;
    }

    /// Gives back what Reserve() took in excess.
    void ShrinkToFit()
    {
        if (m_size == 0) {
            std::free(m_data);
            m_data = nullptr;
            m_capacity = 0;
        } else if (m_size < m_capacity) {
            setCapacity(m_size);
        }
    }

    void Swap(MeshArray& other) noexcept
    {
        std::swap(m_data, other.m_data);
        std::swap(m_size, other.m_size);
        std::swap(m_capacity, other.m_capacity);
    }

private:
    void setCapacity(std::size_t capacity)
    {
        if (capacity > static_cast<std::size_t>(-1) / sizeof(T))
            throw std::bad_alloc();
        void* moved = std::realloc(m_data, capacity * sizeof(T));
        if (!moved)
            throw std::bad_alloc();
        m_data = static_cast<T*>(moved);
        m_capacity = capacity;
    }

    T* m_data = nullptr; ///< Owned; from std::realloc.
    std::size_t m_size = 0;
    std::size_t m_capacity = 0;
};

} // namespace OrvikMesh

#endif
