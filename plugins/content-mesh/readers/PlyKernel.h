#ifndef ORVIKMESH_READERS_PLYKERNEL_H
#define ORVIKMESH_READERS_PLYKERNEL_H

#include "readers/PlyHeader.h"

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

// The inner loops over binary PLY data. They own nothing and call nothing that does.

/// One property of many rows.
struct PlyColumn
{
    const std::byte* first = nullptr; ///< The value in the first row; any alignment.
    std::size_t rowBytes = 0;
    PlyType type = PlyType::Float32;
    bool isSwapped = false; ///< The byte order is not that of this machine.
};

/// Reads a column as floats into every @p step-th element of @p target.
void ReadPlyFloats(const PlyColumn& column, std::size_t count, float* target, std::size_t step);

/// Copies a column of bytes into every fourth element of @p target.
void CopyPlyBytes(const PlyColumn& column, std::size_t count, std::uint8_t* target);

/// Reads one value of any type.
double ReadPlyValue(const std::byte* at, PlyType type, bool isSwapped);

/// Reads one vertex index. @return kNone for what is none: negative, not whole, too large.
std::uint32_t ReadPlyIndex(const std::byte* at, PlyType type, bool isSwapped);

/// Rows that are expected to hold triangles: a count of one byte, three indices of four, and
/// something of fixed size before and after.
struct PlyTriangleRun
{
    const std::byte* first = nullptr;
    std::size_t rowBytes = 0;    ///< Of the row of a triangle.
    std::size_t countOffset = 0; ///< Of the list in its row.
    std::size_t rows = 0;        ///< As many lie in memory.
    std::uint32_t vertexCount = 0;
    bool isSwapped = false;
    std::uint32_t* indices = nullptr; ///< Room for three per row.
};

/// Reads rows up to the first that is no triangle or has an index out of range.
///
/// @return the number of rows read.
std::size_t ReadPlyTriangles(const PlyTriangleRun& run);

} // namespace OrvikMesh

#endif
