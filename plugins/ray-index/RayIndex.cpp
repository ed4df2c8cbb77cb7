#include "BoxTree.h"
#include "Line.h"
#include "Vector3.h"

#include <TambVizCore/Geometry.h>

#include <OrvikRay/RayIndex.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

namespace OrvikRay {

using TambVizCore::ClipPlane;
using TambVizCore::Geometry;
using TambVizCore::GeometryHit;
using TambVizCore::GeometryQuery;
using TambVizCore::PartKind;
using TambVizCore::PartState;

namespace {

/// A point of a primitive that lies beside the line, or on it.
struct Candidate
{
    std::uint32_t primitive = 0;
    double distance = 0.0;
    double deviation = 0.0;
    Vector3 position{};
};

class RayIndex final : public TambVizCore::IGeometryIndex
{
public:
    explicit RayIndex(const Geometry& geometry);

    bool FindFace(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindEdge(const GeometryQuery& query, GeometryHit& hit) const override;
    bool FindVertex(const GeometryQuery& query, GeometryHit& hit) const override;
    std::size_t MemoryBytes() const override;

private:
    template <typename Measure>
    bool findBeside(const BoxTree& tree, PartKind kind, const GeometryQuery& query,
                    const Measure& measure, GeometryHit& hit) const;
    bool isSeen(PartKind kind, const GeometryQuery& query, const Candidate& candidate) const;
    void fill(PartKind kind, const Candidate& candidate, GeometryHit& hit) const;
    Vector3 vertex(std::uint32_t index) const
    {
        return ToVector3(m_geometry.Positions().Data() + std::size_t{index} * 3);
    }
    bool hitTriangle(const Line& line, std::uint32_t triangle, double far,
                     Candidate& candidate) const;

    const Geometry& m_geometry; ///< Not owned; it owns this index.
    BoxTree m_triangles;
    BoxTree m_segments;
    BoxTree m_points;
};

/// Boxes of primitives of @p corners vertices each.
std::vector<Box> boxesOf(const Geometry& geometry, std::span<const std::uint32_t> indices,
                         std::size_t corners)
{
    std::vector<Box> boxes(indices.size() / corners);
    for (std::size_t i = 0; i < boxes.size(); ++i) {
        boxes[i] = Box::Empty();
        for (std::size_t corner = 0; corner < corners; ++corner)
            boxes[i].Add(geometry.Positions().Data() +
                         std::size_t{indices[i * corners + corner]} * 3);
    }
    return boxes;
}

RayIndex::RayIndex(const Geometry& geometry) : m_geometry(geometry)
{
    m_triangles.Build(boxesOf(geometry, geometry.Triangles().Span(), 3));
    m_segments.Build(boxesOf(geometry, geometry.Segments().Span(), 2));
    m_points.Build(boxesOf(geometry, geometry.Points().Span(), 1));
}

/// Whether a hit counts: its part is shown and no plane cuts it away.
bool RayIndex::isSeen(PartKind kind, const GeometryQuery& query, const Candidate& candidate) const
{
    if (!query.partStates.empty()) {
        const std::uint32_t part = m_geometry.PartOfPrimitive(kind, candidate.primitive);
        if (part < query.partStates.size() && !query.partStates[part].Has(PartState::kShown))
            return false;
    }
    float position[3];
    Store(candidate.position, position);
    return std::all_of(query.clipPlanes.begin(), query.clipPlanes.end(),
                       [&](const ClipPlane& plane) { return plane.Keeps(position); });
}

void RayIndex::fill(PartKind kind, const Candidate& candidate, GeometryHit& hit) const
{
    hit.kind = kind;
    hit.partIndex = m_geometry.PartOfPrimitive(kind, candidate.primitive);
    hit.primitive = candidate.primitive;
    hit.distance = static_cast<float>(candidate.distance);
    hit.deviation = static_cast<float>(candidate.deviation);
    Store(candidate.position, hit.position);
}

/// Cuts the line with a triangle, from either side.
bool RayIndex::hitTriangle(const Line& line, std::uint32_t triangle, double far,
                           Candidate& candidate) const
{
    const std::uint32_t* corners = m_geometry.Triangles().Data() + std::size_t{triangle} * 3;
    const Vector3 a = vertex(corners[0]);
    const Vector3 toB = vertex(corners[1]) - a;
    const Vector3 toC = vertex(corners[2]) - a;
    const Vector3 across = Cross(line.direction, toC);
    const double determinant = Dot(toB, across);
    if (determinant == 0.0)
        return false;
    const Vector3 fromA = line.origin - a;
    const double u = Dot(fromA, across) / determinant;
    if (!(u >= 0.0 && u <= 1.0))
        return false;
    const Vector3 normal = Cross(fromA, toB);
    const double v = Dot(line.direction, normal) / determinant;
    if (!(v >= 0.0 && u + v <= 1.0))
        return false;
    const double distance = Dot(toC, normal) / determinant;
    if (!(distance >= line.near && distance <= far))
        return false;
    candidate = {triangle, distance, 0.0, a + toB * u + toC * v};
    return true;
}

bool RayIndex::FindFace(const GeometryQuery& query, GeometryHit& hit) const
{
    const Line line(query);
    const std::span<const BoxTree::Node> nodes = m_triangles.Nodes();
    if (nodes.empty() || !(line.squaredLength > 0.0))
        return false;
    Candidate best;
    double far = line.far;
    bool found = false;
    std::uint32_t stack[BoxTree::kMaxDepth];
    std::size_t depth = 0;
    stack[depth++] = 0;
    while (depth > 0) {
        const std::uint32_t at = stack[--depth];
        const BoxTree::Node& node = nodes[at];
        double enter = line.near;
        double leave = far;
        if (!line.Clip(node.box, 0.0, enter, leave))
            continue;
        if (node.count == 0) {
            // The nearer child is looked at first: what it finds shortens the line.
            double enterLeft = line.near;
            double enterRight = line.near;
            double leaveLeft = far;
            double leaveRight = far;
            const bool hitsLeft = line.Clip(nodes[at + 1].box, 0.0, enterLeft, leaveLeft);
            const bool hitsRight = line.Clip(nodes[node.first].box, 0.0, enterRight, leaveRight);
            const bool leftFirst = enterLeft <= enterRight;
            if (leftFirst ? hitsRight : hitsLeft)
                stack[depth++] = leftFirst ? node.first : at + 1;
            if (leftFirst ? hitsLeft : hitsRight)
                stack[depth++] = leftFirst ? at + 1 : node.first;
            continue;
        }
        for (std::uint32_t i = 0; i < node.count; ++i) {
            Candidate candidate;
            const std::uint32_t triangle = m_triangles.Order()[node.first + i];
            if (hitTriangle(line, triangle, far, candidate) &&
                (!found || candidate.distance < far || triangle < best.primitive) &&
                isSeen(PartKind::Face, query, candidate)) {
                best = candidate;
                far = candidate.distance;
                found = true;
            }
        }
    }
    if (!found)
        return false;
    fill(PartKind::Face, best, hit);
    const std::uint32_t* corners = m_geometry.Triangles().Data() + std::size_t{best.primitive} * 3;
    const Vector3 a = vertex(corners[0]);
    const Vector3 normal = Cross(vertex(corners[1]) - a, vertex(corners[2]) - a);
    const double size = Length(normal);
    const double sign = Dot(normal, line.direction) > 0.0 ? -1.0 : 1.0;
    Store(size > 0.0 ? normal * (sign / size) : line.direction * (-1.0 / Length(line.direction)),
          hit.normal);
    return true;
}

/// Finds the primitive that lies nearest to the line within the aperture.
///
/// @param measure  measure(line, primitive, candidate) sets the point of the primitive nearest to
///                 the line between its ends, its distance along and its deviation from the line.
template <typename Measure>
bool RayIndex::findBeside(const BoxTree& tree, PartKind kind, const GeometryQuery& query,
                          const Measure& measure, GeometryHit& hit) const
{
    const Line line(query);
    if (!line.HasDirection())
        return false;
    Candidate best;
    bool found = false;
    const auto meets = [&line](const Box& box) {
        double enter = -std::numeric_limits<double>::infinity();
        double leave = std::numeric_limits<double>::infinity();
        return line.Clip(box, line.RadiusAt(box) * (1.0 + 1e-9), enter, leave);
    };
    tree.Walk(meets, [&](std::uint32_t primitive) {
        Candidate candidate;
        measure(line, primitive, candidate);
        const double room = line.radius + line.growth * candidate.distance;
        if (!(candidate.distance >= line.near && candidate.distance <= line.far) ||
            !(candidate.deviation <= room))
            return;
        const double tie = room * 1e-6;
        const bool isNearer = candidate.deviation < best.deviation - tie;
        const bool isEqual = candidate.deviation <= best.deviation + tie;
        const bool isEarlier =
            candidate.distance < best.distance ||
            (candidate.distance == best.distance && candidate.primitive < best.primitive);
        if ((!found || isNearer || (isEqual && isEarlier)) && isSeen(kind, query, candidate)) {
            best = candidate;
            found = true;
        }
    });
    if (!found)
        return false;
    fill(kind, best, hit);
    Store(line.direction * (-1.0 / std::sqrt(line.squaredLength)), hit.normal);
    return true;
}

void measurePoint(const Line& line, std::uint32_t primitive, const Vector3& point,
                  Candidate& candidate)
{
    const double distance = Dot(point - line.origin, line.direction) / line.squaredLength;
    candidate = {primitive, distance, Length(point - (line.origin + line.direction * distance)),
                 point};
}

/// The point of a segment that is nearest to the line.
void measureSegment(const Line& line, std::uint32_t primitive, const Vector3& from,
                    const Vector3& to, Candidate& candidate)
{
    const Vector3 along = to - from;
    const Vector3 offset = from - line.origin;
    const double alongAlong = Dot(along, along);
    const double alongLine = Dot(along, line.direction);
    const double determinant = alongAlong * line.squaredLength - alongLine * alongLine;
    double position = 0.0;
    if (determinant > alongAlong * line.squaredLength * 1e-14) {
        position =
            (alongLine * Dot(offset, line.direction) - line.squaredLength * Dot(offset, along)) /
            determinant;
        position = std::clamp(position, 0.0, 1.0);
    } else if (alongLine < 0.0) {
        // Parallel: every point is equally near; the end that comes first along the line counts.
        position = 1.0;
    }
    measurePoint(line, primitive, from + along * position, candidate);
}

bool RayIndex::FindEdge(const GeometryQuery& query, GeometryHit& hit) const
{
    const auto measure = [this](const Line& line, std::uint32_t segment, Candidate& candidate) {
        const std::uint32_t* ends = m_geometry.Segments().Data() + std::size_t{segment} * 2;
        measureSegment(line, segment, vertex(ends[0]), vertex(ends[1]), candidate);
    };
    return findBeside(m_segments, PartKind::Edge, query, measure, hit);
}

bool RayIndex::FindVertex(const GeometryQuery& query, GeometryHit& hit) const
{
    const auto measure = [this](const Line& line, std::uint32_t point, Candidate& candidate) {
        measurePoint(line, point, vertex(m_geometry.Points()[point]), candidate);
    };
    return findBeside(m_points, PartKind::Vertex, query, measure, hit);
}

std::size_t RayIndex::MemoryBytes() const
{
    return sizeof *this + m_triangles.MemoryBytes() + m_segments.MemoryBytes() +
           m_points.MemoryBytes();
}

} // namespace

std::unique_ptr<const TambVizCore::IGeometryIndex>
BuildRayIndex(const TambVizCore::Geometry& geometry)
{
    return std::make_unique<RayIndex>(geometry);
}

} // namespace OrvikRay
