#ifndef ORVIKRAY_CANDIDATE_H
#define ORVIKRAY_CANDIDATE_H

#include "Line.h"

#include <TambVizCore/Geometry.h>

#include <OrvikRay/Vector3.h>

#include <cstdint>

namespace OrvikRay {

/// A point of a primitive that lies beside the line, or on it.
struct Candidate
{
    std::uint32_t primitive = 0;
    double distance = 0.0;  ///< Of the foot on the line, in multiples of its direction.
    double deviation = 0.0; ///< From the line.
    Vector3 position;
};

/// The vertex of an index, which must be below the geometry's VertexCount().
Vector3 VertexAt(const TambVizCore::Geometry& geometry, std::uint32_t index);

/// Cuts the line with a triangle, from either side. What lies on the border is hit, to 1e-12 of
/// the triangle's size, so that rounding opens no gap between neighbours.
///
/// @return false, with @p candidate untouched, when the line misses it between its ends.
bool HitTriangle(const TambVizCore::Geometry& geometry, const Line& line, std::uint32_t triangle,
                 Candidate& candidate);

/// Finds where a point lies beside the line.
void MeasurePoint(const Line& line, std::uint32_t primitive, const Vector3& point,
                  Candidate& candidate);

/// Finds the point of a segment that is nearest to the line; of a parallel one, the end that comes
/// first along the line.
void MeasureSegment(const Line& line, std::uint32_t primitive, const Vector3& from,
                    const Vector3& to, Candidate& candidate);

/// Whether a hit counts: its part is shown and no plane cuts it away.
bool IsSeen(const TambVizCore::Geometry& geometry, TambVizCore::PartKind kind,
            const TambVizCore::GeometryQuery& query, const Candidate& candidate);

} // namespace OrvikRay

#endif
