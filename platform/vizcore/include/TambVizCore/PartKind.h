#ifndef TAMBVIZCORE_PARTKIND_H
#define TAMBVIZCORE_PARTKIND_H

#include <cstdint>

namespace TambVizCore {

/// What a part of a geometry, or a sub-entity of an entity, is.
enum class PartKind : std::uint32_t
{
    None = 0,   ///< The whole entity.
    Face = 1,   ///< A range of triangles.
    Edge = 2,   ///< A range of line segments.
    Vertex = 3, ///< A range of points.
};

/// A set of kinds, bit 1 << kind each.
using PartKinds = std::uint32_t;

constexpr PartKinds ToPartKinds(PartKind kind)
{
    return 1u << static_cast<std::uint32_t>(kind);
}

/// Faces, edges and vertices.
inline constexpr PartKinds kAllPartKinds =
    ToPartKinds(PartKind::Face) | ToPartKinds(PartKind::Edge) | ToPartKinds(PartKind::Vertex);

} // namespace TambVizCore

#endif
