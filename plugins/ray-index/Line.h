#ifndef ORVIKRAY_LINE_H
#define ORVIKRAY_LINE_H

#include "BoxTree.h"

#include <TambVizCore/IGeometryIndex.h>

#include <OrvikRay/Vector3.h>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <limits>

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

    double m_origin[3];
    double m_inverse[3]; ///< Infinite where the direction is 0.
};

// In the header, because walking a tree consists of little else.
inline bool Line::Clip(const Box& box, double margin, double& enter, double& leave) const
{
    double first = enter;
    double last = leave;
    for (std::size_t i = 0; i < 3; ++i) {
        const double inverse = m_inverse[i];
        const double low = double{box.lo[i]} - margin - m_origin[i];
        const double high = double{box.hi[i]} + margin - m_origin[i];
        if (inverse == std::numeric_limits<double>::infinity()) {
            if (low > 0.0 || high < 0.0)
                return false;
            continue;
        }
        const bool isRising = inverse > 0.0;
        first = std::max(first, (isRising ? low : high) * inverse);
        last = std::min(last, (isRising ? high : low) * inverse);
    }
    enter = first;
    leave = last;
    // The products round: a box that is only touched must not be lost.
    return first <= last + std::abs(last) * 1e-12;
}

} // namespace OrvikRay

#endif
