#ifndef ORVIKRAY_LINE_H
#define ORVIKRAY_LINE_H

#include "BoxTree.h"
#include "Vector3.h"

#include <TambVizCore/IGeometryIndex.h>

namespace OrvikRay {

/// A query's line in double precision, with what boxes are tested against. Distances along it are
/// multiples of its direction.
class Line
{
public:
    explicit Line(const TambVizCore::GeometryQuery& query);

    /// A line of any length but 0 without limits: from 0 to infinity.
    Line(const Vector3& origin, const Vector3& direction, double radius, double growth);

    /// False for a direction of length 0, which hits nothing.
    bool HasDirection() const { return squaredLength > 0.0; }

    /// The piece of the line inside a box grown by @p margin.
    ///
    /// @param enter, leave  in: the piece to look at; out: the piece inside.
    /// @return false when it misses; a box that is only touched is met.
    bool Clip(const Box& box, double margin, double& enter, double& leave) const;

    /// The largest aperture anywhere beside a box.
    double RadiusAt(const Box& box) const;

    Vector3 At(double distance) const { return origin + direction * distance; }

    Vector3 origin;
    Vector3 direction;
    double squaredLength; ///< Of the direction.
    double near;
    double far;
    double radius; ///< Aperture at the origin.
    double growth; ///< Of the aperture per multiple of the direction.

private:
    void invert();

    double m_inverse[3]; ///< Infinite where the direction is 0.
};

} // namespace OrvikRay

#endif
