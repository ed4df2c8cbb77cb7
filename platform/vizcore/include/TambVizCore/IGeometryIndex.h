#ifndef TAMBVIZCORE_IGEOMETRYINDEX_H
#define TAMBVIZCORE_IGEOMETRYINDEX_H

#include "TambVizCore/ClipPlane.h"
#include "TambVizCore/Export.h"
#include "TambVizCore/PartKind.h"
#include "TambVizCore/PartState.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>

namespace TambVizCore {

/// Stands for "belongs to no part" where a part index is expected.
inline constexpr std::uint32_t kNoPart = 0xFFFFFFFFu;

/// One question to a geometry's index. All lengths and planes are in the geometry's own units.
struct GeometryQuery
{
    float origin[3] = {0.0f, 0.0f, 0.0f};
    /// Any length but 0: distances are multiples of it, so they survive a change of units.
    float direction[3] = {0.0f, 0.0f, 1.0f};
    /// Hits nearer or farther than these, in multiples of the direction, do not count.
    float minDistance = 0.0f;
    float maxDistance = std::numeric_limits<float>::max();
    /// The aperture of edges and vertices: the radius at the origin and its growth per multiple of
    /// the direction. Growth 0 is a cylinder (parallel projection), radius 0 a cone.
    float radius = 0.0f;
    float radiusGrowth = 0.0f;
    /// State of each part, by part index; hidden parts are not hit. Empty: every part is shown.
    std::span<const PartState> partStates;
    /// What any of the planes cuts away is not hit.
    std::span<const ClipPlane> clipPlanes;
    /// Asks for faces as their triangles lie, also of an index that knows the exact surfaces.
    bool facetsOnly = false;
};

/// What a query found. All lengths are in the geometry's own units.
struct GeometryHit
{
    PartKind kind = PartKind::None;
    /// The part, or kNoPart for a primitive that belongs to none.
    std::uint32_t partIndex = kNoPart;
    /// The triangle, segment or point, counted within its index array.
    std::uint32_t primitive = 0;
    /// Where along the ray, in multiples of the direction: for edges and vertices the foot of the
    /// hit point on the ray. Of faces, where the exact surface lies if the index knows it.
    float distance = 0.0f;
    /// Of faces: where the triangle lies that shows the place, in the same. Edges and vertices are
    /// drawn beside the triangles, so this is what they may lie behind.
    float facetDistance = 0.0f;
    /// How far the hit point lies beside the ray; 0 for faces.
    float deviation = 0.0f;
    /// The point on the exact surface, the triangle or the segment, or the vertex.
    float position[3] = {0.0f, 0.0f, 0.0f};
    /// The normal of the exact surface or, where the index knows none, of the triangle; unit
    /// length, turned towards the origin of the ray. For edges and vertices the reversed unit
    /// direction.
    float normal[3] = {0.0f, 0.0f, 0.0f};
};

/// Finds what a ray hits in one immutable geometry.
///
/// Built once per geometry and held by it (Geometry::PublishIndex). It keeps no reference to the
/// scene: transforms, visibility and planes come with each query.
///
/// @thread Any thread, any number at the same time; queries are const and hold no lock.
class TAMBVIZCORE_API IGeometryIndex
{
public:
    virtual ~IGeometryIndex();

    /// Finds the nearest face of which the line itself hits a triangle, from either side. An index
    /// that knows the exact surfaces compares and answers their distances.
    /// @return false, with @p hit untouched, when there is none.
    virtual bool FindFace(const GeometryQuery& query, GeometryHit& hit) const = 0;

    /// Finds the segment within the aperture that passes nearest to the line; of two that pass
    /// equally near (to 1e-6 of the aperture), the one with the smaller distance.
    /// @return false, with @p hit untouched, when there is none.
    virtual bool FindEdge(const GeometryQuery& query, GeometryHit& hit) const = 0;

    /// Finds the point within the aperture that lies nearest to the line; same rule.
    /// @return false, with @p hit untouched, when there is none.
    virtual bool FindVertex(const GeometryQuery& query, GeometryHit& hit) const = 0;

    /// @return the bytes that the index holds, without the geometry's own arrays.
    virtual std::size_t MemoryBytes() const = 0;

    /// @return how far faces that are found may lie beside their triangles; 0 for an index that
    ///         knows the triangles only.
    virtual float Deviation() const { return 0.0f; }
};

} // namespace TambVizCore

#endif
