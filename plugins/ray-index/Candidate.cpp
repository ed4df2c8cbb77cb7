#include "Candidate.h"

#include <algorithm>

namespace OrvikRay {

using TambVizCore::ClipPlane;
using TambVizCore::Geometry;
using TambVizCore::GeometryQuery;
using TambVizCore::PartKind;
using TambVizCore::PartState;

namespace {

/// Some thousand times what double precision rounds, a thousandth of what floats can tell.
constexpr double kBorder = 1e-12;

} // namespace

Vector3 VertexAt(const Geometry& geometry, std::uint32_t index)
{
    return ToVector3(geometry.Positions().Data() + std::size_t{index} * 3);
}

// Moeller and Trumbore, "Fast, Minimum Storage Ray-Triangle Intersection", 1997.
bool HitTriangle(const Geometry& geometry, const Line& line, std::uint32_t triangle,
                 Candidate& candidate)
{
    const std::uint32_t* corners = geometry.Triangles().Data() + std::size_t{triangle} * 3;
    const Vector3 a = VertexAt(geometry, corners[0]);
    const Vector3 toB = VertexAt(geometry, corners[1]) - a;
    const Vector3 toC = VertexAt(geometry, corners[2]) - a;
    const Vector3 across = Cross(line.direction, toC);
    const double determinant = Dot(toB, across);
    if (determinant == 0.0)
        return false;
    const Vector3 fromA = line.origin - a;
    const double u = Dot(fromA, across) / determinant;
    if (!(u >= -kBorder && u <= 1.0 + kBorder))
        return false;
    const Vector3 normal = Cross(fromA, toB);
    const double v = Dot(line.direction, normal) / determinant;
    if (!(v >= -kBorder && u + v <= 1.0 + kBorder))
        return false;
    const double distance = Dot(toC, normal) / determinant;
    if (!(distance >= line.near && distance <= line.far))
        return false;
    candidate = {triangle, distance, 0.0, a + toB * u + toC * v};
    return true;
}

void MeasurePoint(const Line& line, std::uint32_t primitive, const Vector3& point,
                  Candidate& candidate)
{
    const double distance = Dot(point - line.origin, line.direction) / line.squaredLength;
    candidate = {primitive, distance, Length(point - line.At(distance)), point};
}

void MeasureSegment(const Line& line, std::uint32_t primitive, const Vector3& from,
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
    MeasurePoint(line, primitive, from + along * position, candidate);
}

bool IsSeen(const Geometry& geometry, PartKind kind, const GeometryQuery& query,
            const Candidate& candidate)
{
    if (!query.partStates.empty()) {
        const std::uint32_t part = geometry.PartOfPrimitive(kind, candidate.primitive);
        if (part < query.partStates.size() && !query.partStates[part].Has(PartState::kShown))
            return false;
    }
    float position[3];
    Store(candidate.position, position);
    return std::all_of(query.clipPlanes.begin(), query.clipPlanes.end(),
                       [&](const ClipPlane& plane) { return plane.Keeps(position); });
}

} // namespace OrvikRay
