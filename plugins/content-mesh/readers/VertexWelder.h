#ifndef ORVIKMESH_READERS_VERTEXWELDER_H
#define ORVIKMESH_READERS_VERTEXWELDER_H

#include "readers/MeshArray.h"

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// Gives equal points one vertex index: an open-addressing hash over the exact bits of three
/// floats.
///
/// Points are equal when their bits are, with -0 taken as 0. Vertices are numbered in the order in
/// which they are first met. A triangle with a coordinate that is not finite is dropped and
/// counted. The table grows with the number of different points, at most three per triangle
/// offered. One thread; several welders can work side by side and be joined with Append().
class VertexWelder
{
public:
    /// @param expectedVertices  A guess that avoids growing; 0 is allowed.
    explicit VertexWelder(std::size_t expectedVertices);

    /// Welds @p count triangles, each nine floats in the byte order of the machine, and appends
    /// their indices to @p triangles.
    ///
    /// @param records  Address of the first triangle's first float; any alignment.
    /// @param stride   Bytes from one triangle to the next, at least 36.
    /// @throws std::bad_alloc when memory runs out; std::length_error beyond 2^32 - 2 vertices.
    void AddTriangles(const std::byte* records, std::size_t stride, std::size_t count,
                      MeshArray<std::uint32_t>& triangles);

    /// Takes over the vertices of a welder whose triangles come after all of this one's.
    ///
    /// @param newIndex  Receives, for each vertex of @p later, its index in this welder.
    void Append(const VertexWelder& later, MeshArray<std::uint32_t>& newIndex);

    /// Adds points; three floats each, all finite. newIndex[i] becomes the vertex of the i-th.
    void AddPoints(const float* points, std::size_t count, MeshArray<std::uint32_t>& newIndex);

    std::size_t VertexCount() const { return m_vertexCount; }
    /// Triangles left out because a coordinate is not a finite number.
    std::size_t DroppedCount() const { return m_droppedCount; }
    /// Frees the table and hands out the positions, three floats per vertex; the welder is done.
    MeshArray<float> TakePositions();

private:
    void grow(std::size_t neededVertices);

    MeshArray<std::uint32_t> m_slots; ///< Vertex index + 1; 0 is free. The size is a power of two.
    MeshArray<float> m_positions;     ///< Size is the room; m_vertexCount * 3 floats are filled.
    std::size_t m_vertexCount = 0;
    std::size_t m_droppedCount = 0;
};

/// @param records  As VertexWelder::AddTriangles() takes them.
/// @return the first triangle with a coordinate that is not a finite number; @p count without one.
std::size_t FindNonFiniteTriangle(const std::byte* records, std::size_t stride, std::size_t count);

/// Numbers points by the exact bits of their coordinates, in the order in which places are first
/// met; -0 counts as 0. All must be finite.
///
/// @param points    Three floats each.
/// @param numberOf  Receives the number of each point's place.
void WeldPoints(const float* points, std::size_t count, MeshArray<std::uint32_t>& numberOf);

} // namespace OrvikMesh

#endif
