#ifndef ORVIKMESH_READERS_WELDKERNEL_H
#define ORVIKMESH_READERS_WELDKERNEL_H

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// The table and the vertices of a weld as plain pointers; all of it is owned by the caller.
struct WeldTable
{
    std::uint32_t* slots = nullptr; ///< Vertex index + 1; 0 is free.
    unsigned shift = 0;             ///< 64 - log2 of the number of slots.
    float* positions = nullptr;     ///< Three per vertex.
    std::uint32_t vertexCount = 0;
    std::uint32_t vertexLimit = 0; ///< Room in positions, and what the slots may hold.
};

/// Progress of WeldTriangles() over one run of triangles.
struct WeldRun
{
    const std::byte* records = nullptr; ///< Next triangle's nine floats.
    std::size_t stride = 0;
    std::size_t remaining = 0;        ///< Triangles still to weld.
    std::uint32_t* indices = nullptr; ///< Where the next three indices go.
    std::size_t dropped = 0;          ///< Triangles left out.
};

/// Welds until the run is done or the table might overflow; the caller then grows it and goes on.
///
/// The innermost loop of the STL readers. It calls nothing and owns nothing, so that a machine
/// fault in it (a file cut short while it is mapped) unwinds cleanly.
void WeldTriangles(WeldTable& table, WeldRun& run);

/// Welds single points: newIndex[i] becomes the index of the i-th point. The table has room.
void FindOrAddPoints(WeldTable& table, const float* points, std::size_t count,
                     std::uint32_t* newIndex);

/// Enters vertices 0 to vertexCount - 1, which are known to differ, into an empty table.
void RefillTable(WeldTable& table);

} // namespace OrvikMesh

#endif
