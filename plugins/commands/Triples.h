#ifndef PLUGINCOMMANDS_TRIPLES_H
#define PLUGINCOMMANDS_TRIPLES_H

#include <OrvikCore/IDimensionDrawer.h>

#include <cmath>

namespace OrvikCommands {

/// A point or a direction, mm.
using Triple = OrvikCore::Dimension::Point;

inline double Dot(const Triple& a, const Triple& b)
{
    return a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
}

inline Triple Cross(const Triple& a, const Triple& b)
{
    return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

/// @return a + factor * b.
inline Triple Along(const Triple& a, double factor, const Triple& b)
{
    return {a[0] + factor * b[0], a[1] + factor * b[1], a[2] + factor * b[2]};
}

inline double LengthOf(const Triple& a)
{
    return std::hypot(a[0], a[1], a[2]);
}

inline Triple Unit(const Triple& a)
{
    return Along({}, 1.0 / LengthOf(a), a);
}

inline double DistanceBetween(const Triple& a, const Triple& b)
{
    return LengthOf(Along(a, -1.0, b));
}

} // namespace OrvikCommands

#endif
