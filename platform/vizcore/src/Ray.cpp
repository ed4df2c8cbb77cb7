#include "TambVizCore/Ray.h"

#include <algorithm>

namespace TambVizCore {

Ray::Ray(const float* origin, const float* direction, const double& radius) : m_radius(radius)
{
    SetOrigin(origin);
    SetDirection(direction);
}

void Ray::SetOrigin(const float* origin)
{
    std::copy(origin, origin + 3, m_origin);
}

void Ray::SetDirection(const float* direction)
{
    std::copy(direction, direction + 3, m_direction);
}

bool Ray::operator==(const Ray& other) const
{
    return std::equal(m_origin, m_origin + 3, other.m_origin) &&
           std::equal(m_direction, m_direction + 3, other.m_direction) &&
           m_radius == other.m_radius;
}

} // namespace TambVizCore
