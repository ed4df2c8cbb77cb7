#include "Line.h"

#include <algorithm>
#include <limits>

namespace OrvikRay {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

Line::Line(const TambVizCore::GeometryQuery& query)
    : origin(ToVector3(query.origin)),
      direction(ToVector3(query.direction)),
      squaredLength(Dot(direction, direction)),
      near(query.minDistance),
      far(query.maxDistance),
      radius(query.radius),
      growth(query.radiusGrowth)
{
    invert();
}

Line::Line(const Vector3& start, const Vector3& along, double aperture, double apertureGrowth)
    : origin(start),
      direction(along),
      squaredLength(Dot(along, along)),
      near(0.0),
      far(kInfinity),
      radius(aperture),
      growth(apertureGrowth)
{
    invert();
}

void Line::invert()
{
    const double components[3] = {direction.x, direction.y, direction.z};
    const double places[3] = {origin.x, origin.y, origin.z};
    for (std::size_t i = 0; i < 3; ++i) {
        m_origin[i] = places[i];
        m_inverse[i] = components[i] == 0.0 ? kInfinity : 1.0 / components[i];
    }
}

double Line::RadiusAt(const Box& box) const
{
    if (growth == 0.0)
        return radius;
    const Vector3 farthest = {direction.x > 0.0 ? box.hi[0] : box.lo[0],
                              direction.y > 0.0 ? box.hi[1] : box.lo[1],
                              direction.z > 0.0 ? box.hi[2] : box.lo[2]};
    const double distance = Dot(farthest - origin, direction) / squaredLength;
    return std::max(0.0, radius + growth * std::max(0.0, distance));
}

} // namespace OrvikRay
