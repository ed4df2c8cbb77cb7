#include "content/PrimitiveDistance.h"

#include <algorithm>
#include <utility>

namespace OrvikModel {

namespace {

NearestPoints between(const Vector3& from, const Vector3& to)
{
    const Vector3 way = to - from;
    return {Dot(way, way), from, to};
}

NearestPoints turned(const NearestPoints& points)
{
    return {points.squaredDistance, points.to, points.from};
}

void keepNearer(NearestPoints& best, const NearestPoints& other)
{
    if (other.squaredDistance < best.squaredDistance)
        best = other;
}

NearestPoints pointSegment(const Vector3& point, const Vector3& a, const Vector3& b)
{
    const Vector3 along = b - a;
    const double size = Dot(along, along);
    const double share = size > 0.0 ? std::clamp(Dot(point - a, along) / size, 0.0, 1.0) : 0.0;
    return between(point, a + along * share);
}

/// Finds the parameters of the nearest points of two segments by clamping one after the other
/// (Ericson, Real-Time Collision Detection, 2005, section 5.1.9).
NearestPoints segmentSegment(const Vector3& a, const Vector3& b, const Vector3& c, const Vector3& d)
{
    const Vector3 u = b - a;
    const Vector3 v = d - c;
    const Vector3 w = a - c;
    const double uu = Dot(u, u);
    const double vv = Dot(v, v);
    if (!(uu > 0.0))
        return pointSegment(a, c, d);
    if (!(vv > 0.0))
        return turned(pointSegment(c, a, b));
    const double uv = Dot(u, v);
    const double uw = Dot(u, w);
    const double vw = Dot(v, w);
    const double denominator = uu * vv - uv * uv;
    double s = 0.0;
    if (denominator > 0.0)
        s = std::clamp((uv * vw - uw * vv) / denominator, 0.0, 1.0);
    double t = (uv * s + vw) / vv;
    if (t < 0.0 || t > 1.0) {
        t = std::clamp(t, 0.0, 1.0);
        s = std::clamp((uv * t - uw) / uu, 0.0, 1.0);
    }
    return between(a + u * s, c + v * t);
}

/// Tells whether a point of the plane of a triangle lies inside it.
bool isInside(const Vector3& point, const Vector3* corner, const Vector3& normal)
{
    for (int i = 0; i < 3; ++i) {
        const Vector3& a = corner[i];
        const Vector3& b = corner[(i + 1) % 3];
        if (Dot(Cross(b - a, point - a), normal) < 0.0)
            return false;
    }
    return true;
}

Vector3 normalOf(const Vector3* corner)
{
    return Cross(corner[1] - corner[0], corner[2] - corner[0]);
}

NearestPoints pointTriangle(const Vector3& point, const Vector3* corner)
{
    const Vector3 normal = normalOf(corner);
    const double size = Dot(normal, normal);
    if (size > 0.0) {
        const Vector3 foot = point - normal * (Dot(point - corner[0], normal) / size);
        if (isInside(foot, corner, normal))
            return between(point, foot);
    }
    NearestPoints best = pointSegment(point, corner[0], corner[1]);
    keepNearer(best, pointSegment(point, corner[1], corner[2]));
    keepNearer(best, pointSegment(point, corner[2], corner[0]));
    return best;
}

NearestPoints segmentTriangle(const Vector3& a, const Vector3& b, const Vector3* corner)
{
    // 1. Where the segment passes through the triangle.
    const Vector3 normal = normalOf(corner);
    const double before = Dot(a - corner[0], normal);
    const double after = Dot(b - corner[0], normal);
    if ((before < 0.0) != (after < 0.0)) {
        const Vector3 crossing = a + (b - a) * (before / (before - after));
        if (isInside(crossing, corner, normal))
            return between(crossing, crossing);
    }
    // 2. Else an end of the segment or a side of the triangle is nearest.
    NearestPoints best = pointTriangle(a, corner);
    keepNearer(best, pointTriangle(b, corner));
    for (int i = 0; i < 3; ++i)
        keepNearer(best, segmentSegment(a, b, corner[i], corner[(i + 1) % 3]));
    return best;
}

NearestPoints triangleTriangle(const Vector3* a, const Vector3* b)
{
    NearestPoints best = segmentTriangle(a[0], a[1], b);
    for (int i = 0; i < 3; ++i) {
        keepNearer(best, segmentTriangle(a[i], a[(i + 1) % 3], b));
        keepNearer(best, turned(segmentTriangle(b[i], b[(i + 1) % 3], a)));
    }
    return best;
}

/// @param from  Has no more corners than @p to.
NearestPoints findNearest(const Primitive& from, const Primitive& to)
{
    const Vector3* a = from.corner;
    const Vector3* b = to.corner;
    switch (from.corners) {
    case 1:
        if (to.corners == 1)
            return between(a[0], b[0]);
        return to.corners == 2 ? pointSegment(a[0], b[0], b[1]) : pointTriangle(a[0], b);
    case 2:
        return to.corners == 2 ? segmentSegment(a[0], a[1], b[0], b[1])
                               : segmentTriangle(a[0], a[1], b);
    default:
        return triangleTriangle(a, b);
    }
}

} // namespace

NearestPoints FindNearest(const Primitive& from, const Primitive& to)
{
    return from.corners <= to.corners ? findNearest(from, to) : turned(findNearest(to, from));
}

} // namespace OrvikModel
