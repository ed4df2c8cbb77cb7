#ifndef TESTS_TESTGEOMETRY_H
#define TESTS_TESTGEOMETRY_H

#include <TambVizCore/Geometry.h>

#include <memory>
#include <string>

namespace TambVizCore {

/// A unit square in the plane z = 0 from (0, 0, 0) to (1, 1, 0): two triangles, four segments,
/// four points. Triangle 0 lies below the diagonal from (0, 0) to (1, 1), triangle 1 above.
///
/// Its parts, in their order: faces 0 and 1 (one triangle each), edges 0 to 3 (bottom, right, top,
/// left), vertices 0 to 3 (counter-clockwise from the origin).
GeometryBuilder SquareBuilder();

/// The square with an index that tries every primitive.
std::shared_ptr<const Geometry> MakeSquare();

/// Indices of the square's parts.
inline constexpr std::uint32_t kFirstEdge = 2;
inline constexpr std::uint32_t kFirstVertex = 6;

/// The plainest index: asks every primitive, in double precision.
class BruteForceIndex : public IGeometryIndex
{
public:
    /// @param geometry  not owned; holds the index, so it outlives it.
    explicit BruteForceIndex(const Geometry& geometry) : m_geometry(geometry) {}

    bool FindFace(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindEdge(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindVertex(const GeometryQuery& query, GeometryHit& hit) const override;
    std::size_t MemoryBytes() const override { return sizeof(*this); }

private:
    bool findThin(const GeometryQuery& query, PartKind kind, GeometryHit& hit) const;

    const Geometry& m_geometry;
};

} // namespace TambVizCore

#endif
