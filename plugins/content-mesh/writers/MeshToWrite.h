#ifndef ORVIKMESH_WRITERS_MESHTOWRITE_H
#define ORVIKMESH_WRITERS_MESHTOWRITE_H

#include "readers/MeshData.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace OrvikMesh {

/// A body on its way into a file. The arrays are not owned and stay as they are while writing.
struct BodyToWrite
{
    std::wstring name;              ///< Any text; may be empty.
    std::optional<MeshColor> color; ///< Of the body as a whole, where its vertices have none.
    /// From the body's units into those of the file: double[16] column-major, affine. A transform
    /// that mirrors turns the triangles around, so that they face outwards again.
    std::array<double, 16> transform{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1};
    std::span<const float> positions;     ///< Three per vertex.
    std::span<const float> normals;       ///< Three per vertex, or empty.
    std::span<const std::uint8_t> colors; ///< Four per vertex: red, green, blue, alpha; or empty.
    std::span<const std::uint32_t> triangles; ///< Three per triangle, each less than VertexCount().
    std::span<const std::uint32_t> segments;  ///< Of a wire, which has no triangles: two each.
    bool isPointCloud = false;                ///< No triangles: each vertex is a point.

    std::size_t VertexCount() const { return positions.size() / 3; }
    std::size_t TriangleCount() const { return triangles.size() / 3; }
    bool IsWire() const { return triangles.empty() && !segments.empty(); }
};

/// What is written into one file.
struct MeshToWrite
{
    std::vector<BodyToWrite> bodies;
};

} // namespace OrvikMesh

#endif
