#ifndef ORVIKMESH_READERS_SCALARKERNEL_H
#define ORVIKMESH_READERS_SCALARKERNEL_H

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

// Values of any type in rows of bytes. The loops own nothing and call nothing that does.

enum class ScalarType : std::uint8_t
{
    Int8,
    UInt8,
    Int16,
    UInt16,
    Int32,
    UInt32,
    Float32,
    Float64,
};

/// @return 1, 2, 4 or 8.
std::size_t SizeOf(ScalarType type);

/// One value of many rows.
struct ScalarColumn
{
    const std::byte* first = nullptr; ///< The value in the first row; any alignment.
    std::size_t rowBytes = 0;
    ScalarType type = ScalarType::Float32;
    bool isSwapped = false; ///< The byte order is not that of this machine.
};

/// Reads a column as floats into every @p step-th element of @p target.
void ReadScalars(const ScalarColumn& column, std::size_t count, float* target, std::size_t step);

/// Copies a column of bytes into every fourth element of @p target.
void CopyBytes(const ScalarColumn& column, std::size_t count, std::uint8_t* target);

/// Reads one value of any type.
double ReadScalar(const std::byte* at, ScalarType type, bool isSwapped);

/// Reads one vertex index. @return kNone for what is none: negative, not whole, too large.
std::uint32_t ReadIndex(const std::byte* at, ScalarType type, bool isSwapped);

} // namespace OrvikMesh

#endif
