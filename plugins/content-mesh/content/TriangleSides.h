#ifndef ORVIKMESH_CONTENT_TRIANGLESIDES_H
#define ORVIKMESH_CONTENT_TRIANGLESIDES_H

#include <TambVizCore/Geometry.h>

#include <cstdint>
#include <vector>

namespace OrvikMesh {

/// A side of the mesh that is an edge: a crease, a border, or where more than two triangles meet.
struct CreaseSide
{
    std::uint32_t from; ///< Point numbers, see TriangleSides::pointVertex.
    std::uint32_t to;
    std::uint32_t firstTriangle; ///< The one whose side runs from `from` to `to`.
    std::uint32_t otherTriangle; ///< kNoTriangle at a border or where more than two meet.
};

inline constexpr std::uint32_t kNoTriangle = 0xFFFFFFFFu;

/// What the sides of a mesh say: which triangles hang together smoothly, and where edges run.
struct TriangleSides
{
    std::vector<std::uint32_t> pointVertex; ///< Per point: the first vertex at that place.
    std::vector<std::uint32_t> patch; ///< Per triangle: its patch, numbered by first triangle.
    std::uint32_t patchCount = 0;
    std::vector<CreaseSide> creases; ///< In the order of triangles and their sides.
    /// Every side has two triangles in opposite directions, and no shell is inside out.
    bool isClosed = false;
};

/// Finds the sides of a geometry's triangles. Triangles without area join one neighbour and carry
/// no patch over; sides of no length are no sides.
TriangleSides FindSides(const TambVizCore::Geometry& geometry, double creaseAngleDegrees);

} // namespace OrvikMesh

#endif
