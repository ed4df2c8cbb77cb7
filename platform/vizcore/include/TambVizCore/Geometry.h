#ifndef TAMBVIZCORE_GEOMETRY_H
#define TAMBVIZCORE_GEOMETRY_H

#include "TambVizCore/Export.h"
#include "TambVizCore/IGeometryIndex.h"
#include "TambVizCore/PartKind.h"
#include "TambVizCore/SharedArray.h"
#include "TambVizCore/VizBox.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TambVizCore {

/// A face, an edge or a vertex of a geometry: a run of primitives of its kind's index array.
struct GeometryPart
{
    bool operator==(const GeometryPart& other) const = default;

    PartKind kind = PartKind::Face;
    std::uint32_t first = 0; ///< First triangle, segment or point of the run.
    std::uint32_t count = 0; ///< Triangles, segments or points; may be 0.
    std::uint64_t id = 0;    ///< Unique in its geometry, not 0; MakePartId gives one.
};

/// The id of the part of a kind with a zero-based index: the kind in the upper 32 bits.
///
/// Content that numbers its faces, edges and vertices from 0 uses it, so that an EntityId's
/// sub-entity and a part convert without a table.
constexpr std::uint64_t MakePartId(PartKind kind, std::uint32_t index)
{
    return (static_cast<std::uint64_t>(kind) << 32) | index;
}

/// The shape of one body: vertex arrays, index arrays, parts. Never changes once built, so nodes,
/// contents and threads share it by std::shared_ptr<const Geometry>; made by GeometryBuilder.
///
/// Invariants: coordinates are finite; every index names a vertex; parts of a kind do not overlap
/// and stay inside the kind's array; parts are in ascending order of their ids.
///
/// @thread Any thread.
class TAMBVIZCORE_API Geometry
{
public:
    ~Geometry();
    Geometry(const Geometry&) = delete;
    Geometry& operator=(const Geometry&) = delete;
    Geometry(Geometry&&) = delete;
    Geometry& operator=(Geometry&&) = delete;

    std::uint32_t VertexCount() const;
    std::uint32_t TriangleCount() const;
    std::uint32_t SegmentCount() const;
    std::uint32_t PointCount() const;

    /// x, y, z per vertex.
    const SharedArray<float>& Positions() const { return m_positions; }
    /// x, y, z per vertex, or empty: then a view derives flat normals.
    const SharedArray<float>& Normals() const { return m_normals; }
    /// r, g, b, a per vertex, or empty. Used where neither part nor node sets a colour.
    const SharedArray<std::uint8_t>& Colors() const { return m_colors; }
    /// Three vertex indices per triangle, counter-clockwise seen from outside.
    const SharedArray<std::uint32_t>& Triangles() const { return m_triangles; }
    /// Two vertex indices per line segment.
    const SharedArray<std::uint32_t>& Segments() const { return m_segments; }
    /// One vertex index per point.
    const SharedArray<std::uint32_t>& Points() const { return m_points; }

    /// In ascending order of their ids; a part index is a position in this list.
    const std::vector<GeometryPart>& Parts() const { return m_parts; }

    /// @return the index of the part with that id; -1 when there is none.
    std::int64_t FindPart(std::uint64_t id) const;

    /// @return the index of the part that holds a primitive; kNoPart when none does.
    std::uint32_t PartOfPrimitive(PartKind kind, std::uint32_t primitive) const;

    /// The box around all vertices, also those that no primitive uses.
    const VizBox& BoundingBox() const { return m_box; }

    /// The box around the vertices of one part; empty for an index out of range.
    VizBox PartBox(std::uint32_t partIndex) const;

    /// True when the triangles close a solid, so that their backs are never seen.
    bool IsClosed() const { return m_closed; }

    /// @return the bytes of arrays and parts, without the index. Arrays that geometries share are
    ///         counted by each.
    std::size_t MemoryBytes() const;

    /// @return the spatial index; null while none was published. Not owned, valid while the
    ///         geometry lives.
    const IGeometryIndex* Index() const;

    /// Keeps @p index (transferred in) as the spatial index, unless one is there already.
    ///
    /// @return false when another was published first; then @p index is deleted. The geometry
    ///         counts as unchanged: an index only answers faster.
    bool PublishIndex(std::unique_ptr<const IGeometryIndex> index) const;

private:
    friend class GeometryBuilder;
    Geometry();

    SharedArray<float> m_positions;
    SharedArray<float> m_normals;
    SharedArray<std::uint8_t> m_colors;
    SharedArray<std::uint32_t> m_triangles;
    SharedArray<std::uint32_t> m_segments;
    SharedArray<std::uint32_t> m_points;
    std::vector<GeometryPart> m_parts;
    /// Per kind (index PartKind - 1): part indices in ascending order of their first primitive.
    std::vector<std::uint32_t> m_byFirst[3];
    VizBox m_box;
    bool m_closed = false;
    /// Owned; set once with release, read with acquire.
    mutable std::atomic<const IGeometryIndex*> m_index = nullptr;
};

/// Collects and checks the arrays of a geometry.
///
/// Nothing that comes in is trusted: Build reads every number once.
///
/// @thread Any thread, one at a time for one builder.
class TAMBVIZCORE_API GeometryBuilder
{
public:
    /// Three floats per vertex. Required unless there are no primitives.
    GeometryBuilder& SetPositions(SharedArray<float> positions);
    /// None, or three floats per vertex.
    GeometryBuilder& SetNormals(SharedArray<float> normals);
    /// None, or four bytes per vertex.
    GeometryBuilder& SetColors(SharedArray<std::uint8_t> colors);
    /// Three indices per triangle.
    GeometryBuilder& SetTriangles(SharedArray<std::uint32_t> triangles);
    /// Two indices per segment.
    GeometryBuilder& SetSegments(SharedArray<std::uint32_t> segments);
    /// One index per point.
    GeometryBuilder& SetPoints(SharedArray<std::uint32_t> points);
    /// In any order; Build sorts them by id.
    GeometryBuilder& SetParts(std::vector<GeometryPart> parts);
    GeometryBuilder& AddPart(const GeometryPart& part);
    /// Says that the triangles close a solid; false at start.
    GeometryBuilder& SetClosed(bool closed);

    /// Checks what was set and makes the geometry; the builder is empty afterwards.
    ///
    /// @param error  receives one of the texts below on failure, is emptied otherwise. N stands
    ///               for a decimal number.
    ///   "The number of coordinates is not a multiple of three."
    ///   "The geometry has more than 4294967295 vertices."
    ///   "The number of normals does not match the number of vertices."
    ///   "The number of colours does not match the number of vertices."
    ///   "The number of triangle indices is not a multiple of three."
    ///   "The number of segment indices is not a multiple of two."
    ///   "The geometry has too many primitives."
    ///   "Vertex N has a coordinate that is not finite."
    ///   "Triangle N names vertex N, but there are only N."  (also "Segment", "Point")
    ///   "The part of id N has no kind."  "A part has the id 0."  "Two parts have the id N."
    ///   "The part of id N reaches beyond its primitives."  "The parts of ids N and N overlap."
    /// @return null on failure.
    std::shared_ptr<const Geometry> Build(std::string& error);

private:
    std::shared_ptr<Geometry> m_geometry;

    Geometry& geometry();
};

} // namespace TambVizCore

#endif
