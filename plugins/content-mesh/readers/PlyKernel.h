#ifndef ORVIKMESH_READERS_PLYKERNEL_H
#define ORVIKMESH_READERS_PLYKERNEL_H

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

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
/// Owns nothing and calls nothing that does.
///
/// @return the number of rows read.
std::size_t ReadPlyTriangles(const PlyTriangleRun& run);

} // namespace OrvikMesh

#endif
