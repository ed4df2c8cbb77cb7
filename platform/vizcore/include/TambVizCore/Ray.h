#ifndef TAMBVIZCORE_RAY_H
#define TAMBVIZCORE_RAY_H

#include "TambVizCore/Export.h"

namespace TambVizCore {

/// A pick ray: a half-line with a radius, copied by value.
///
/// The radius is the pick aperture in world units: edges and vertices that come this close to the
/// line count as hit, faces are hit by the line itself.
///
/// @thread Any thread, one at a time for one ray.
class TAMBVIZCORE_API Ray
{
public:
    /// Makes a ray at the origin along +z with radius 0.
    Ray() = default;

    /// @param origin     float[3], world units; copied.
    /// @param direction  float[3]; copied as given, not normalised.
    /// @param radius     world units, 0 or more.
    Ray(const float* origin, const float* direction, const double& radius);

    /// @return float[3], valid while the ray lives.
    const float* Origin() const { return m_origin; }

    /// @return float[3], valid while the ray lives.
    const float* Direction() const { return m_direction; }

    double Radius() const { return m_radius; }

    /// Copies float[3].
    void SetOrigin(const float* origin);

    /// Copies float[3].
    void SetDirection(const float* direction);

    void SetRadius(double radius) { m_radius = radius; }

    bool operator==(const Ray& other) const;

private:
    float m_origin[3] = {0.0f, 0.0f, 0.0f};
    float m_direction[3] = {0.0f, 0.0f, 1.0f};
    double m_radius = 0.0;
};

} // namespace TambVizCore

#endif
