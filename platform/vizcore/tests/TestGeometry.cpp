#include "TestGeometry.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace TambVizCore {

namespace {

struct Point
{
    double x, y, z;
};

Point operator+(const Point& a, const Point& b)
{
    return {a.x + b.x, a.y + b.y, a.z + b.z};
}

Point operator-(const Point& a, const Point& b)
{
    return {a.x - b.x, a.y - b.y, a.z - b.z};
}

Point operator*(const Point& a, double f)
{
    return {a.x * f, a.y * f, a.z * f};
}

double dot(const Point& a, const Point& b)
{
    return a.x * b.x + a.y * b.y + a.z * b.z;
}

Point cross(const Point& a, const Point& b)
{
    return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

Point load(const float* p)
{
    return {p[0], p[1], p[2]};
}

void store(const Point& p, float* out)
{
    out[0] = static_cast<float>(p.x);
    out[1] = static_cast<float>(p.y);
    out[2] = static_cast<float>(p.z);
}

Point vertex(const Geometry& geometry, std::uint32_t index)
{
    return load(geometry.Positions().Data() + std::size_t{index} * 3);
}

bool isShown(const GeometryQuery& query, std::uint32_t part)
{
    return part == kNoPart || query.partStates.empty() ||
           query.partStates[part].Has(PartState::kShown);
}

bool isKept(const GeometryQuery& query, const float* position)
{
    return std::all_of(query.clipPlanes.begin(), query.clipPlanes.end(),
                       [position](const ClipPlane& plane) { return plane.Keeps(position); });
}

/// The point of a segment that lies nearest to the line, and the foot's place along the line.
Point nearestOnSegment(const Point& a, const Point& b, const Point& origin, const Point& d)
{
    const Point along = b - a;
    const Point away = a - origin;
    const double dd = dot(d, d);
    const double ll = dot(along, along);
    const double dl = dot(d, along);
    const double denominator = dd * ll - dl * dl;
    if (denominator < 1e-12 * dd * ll || ll == 0.0) {
        return a;
    }
    const double s = (dl * dot(away, d) - dd * dot(away, along)) / denominator;
    return a + along * std::clamp(s, 0.0, 1.0);
}

} // namespace

bool BruteForceIndex::FindFace(const GeometryQuery& query, GeometryHit& hit) const
{
    const Point origin = load(query.origin);
    const Point d = load(query.direction);
    double best = static_cast<double>(query.maxDistance);
    bool found = false;
    for (std::uint32_t t = 0; t < m_geometry.TriangleCount(); ++t) {
        const std::uint32_t part = m_geometry.PartOfPrimitive(PartKind::Face, t);
        const std::uint32_t* corner = m_geometry.Triangles().Data() + std::size_t{t} * 3;
        const Point a = vertex(m_geometry, corner[0]);
        const Point ab = vertex(m_geometry, corner[1]) - a;
        const Point ac = vertex(m_geometry, corner[2]) - a;
        const Point p = cross(d, ac);
        const double determinant = dot(ab, p);
        if (!isShown(query, part) || determinant == 0.0) {
            continue;
        }
        const Point q = cross(origin - a, ab);
        const double u = dot(origin - a, p) / determinant;
        const double v = dot(d, q) / determinant;
        const double distance = dot(ac, q) / determinant;
        if (u < 0.0 || v < 0.0 || u + v > 1.0 || distance > best ||
            distance < static_cast<double>(query.minDistance)) {
            continue;
        }
        float position[3];
        store(origin + d * distance, position);
        if (!isKept(query, position)) {
            continue;
        }
        Point normal = cross(ab, ac);
        normal = normal * ((dot(normal, d) > 0.0 ? -1.0 : 1.0) / std::sqrt(dot(normal, normal)));
        hit = GeometryHit{PartKind::Face, part, t, static_cast<float>(distance)};
        store(origin + d * distance, hit.position);
        store(normal, hit.normal);
        best = distance;
        found = true;
    }
    return found;
}

bool BruteForceIndex::FindEdge(const GeometryQuery& query, GeometryHit& hit) const
{
    return findThin(query, PartKind::Edge, hit);
}

bool BruteForceIndex::FindVertex(const GeometryQuery& query, GeometryHit& hit) const
{
    return findThin(query, PartKind::Vertex, hit);
}

bool BruteForceIndex::findThin(const GeometryQuery& query, PartKind kind, GeometryHit& hit) const
{
    const Point origin = load(query.origin);
    const Point d = load(query.direction);
    const bool isEdge = kind == PartKind::Edge;
    const std::uint32_t count = isEdge ? m_geometry.SegmentCount() : m_geometry.PointCount();
    double best = 0.0;
    bool found = false;
    for (std::uint32_t i = 0; i < count; ++i) {
        const std::uint32_t part = m_geometry.PartOfPrimitive(kind, i);
        Point point = vertex(m_geometry, isEdge ? m_geometry.Segments()[std::size_t{i} * 2]
                                                : m_geometry.Points()[i]);
        if (isEdge) {
            const Point end = vertex(m_geometry, m_geometry.Segments()[std::size_t{i} * 2 + 1]);
            point = nearestOnSegment(point, end, origin, d);
        }
        const double distance = dot(point - origin, d) / dot(d, d);
        const Point beside = point - (origin + d * distance);
        const double deviation = std::sqrt(dot(beside, beside));
        const double aperture =
            static_cast<double>(query.radius) + static_cast<double>(query.radiusGrowth) * distance;
        float position[3];
        store(point, position);
        if (!isShown(query, part) || !isKept(query, position) || deviation > aperture ||
            distance < static_cast<double>(query.minDistance) ||
            distance > static_cast<double>(query.maxDistance)) {
            continue;
        }
        if (found && deviation >= best) {
            continue;
        }
        hit =
            GeometryHit{kind, part, i, static_cast<float>(distance), static_cast<float>(deviation)};
        store(point, hit.position);
        store(d * (-1.0 / std::sqrt(dot(d, d))), hit.normal);
        best = deviation;
        found = true;
    }
    return found;
}

GeometryBuilder SquareBuilder()
{
    GeometryBuilder builder;
    builder.SetPositions(SharedArray<float>(std::vector<float>{0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0}))
        .SetTriangles(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2, 0, 2, 3}))
        .SetSegments(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 1, 2, 2, 3, 3, 0}))
        .SetPoints(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2, 3}));
    for (std::uint32_t i = 0; i < 4; ++i) {
        if (i < 2) {
            builder.AddPart({PartKind::Face, i, 1, MakePartId(PartKind::Face, i)});
        }
        builder.AddPart({PartKind::Edge, i, 1, MakePartId(PartKind::Edge, i)});
        builder.AddPart({PartKind::Vertex, i, 1, MakePartId(PartKind::Vertex, i)});
    }
    return builder;
}

std::shared_ptr<const Geometry> MakeSquare()
{
    std::string error;
    auto square = SquareBuilder().Build(error);
    square->PublishIndex(std::make_unique<BruteForceIndex>(*square));
    return square;
}

} // namespace TambVizCore
