#include "SectionCap.h"

#include "Shaders.h"

#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <vector>

namespace ViewOpenGl {
namespace {

/// The share by which the box is widened, so that rounding leaves no gap at its sides.
constexpr double kMargin = 1e-3;

using Point = std::array<double, 3>;

/// A plane cuts at most six edges of a box; each further plane adds at most one corner.
constexpr std::size_t kMostCorners = 6 + kMaxClipPlanes;
constexpr std::size_t kFloatsPerVertex = 6; ///< Position and normal.

struct Plane
{
    explicit Plane(const float* p) : normal{p[0], p[1], p[2]}, offset(p[3]) {}

    double DistanceOf(const Point& p) const
    {
        return normal[0] * p[0] + normal[1] * p[1] + normal[2] * p[2] + offset;
    }

    Point normal; ///< Points to what is kept.
    double offset;
};

Point cornerOf(const TambVizCore::VizBox& box, int corner)
{
    const double margin = kMargin * box.Radius();
    Point point;
    for (int i = 0; i < 3; ++i)
        point[static_cast<std::size_t>(i)] =
            ((corner >> i) & 1) != 0 ? box.Hi()[i] + margin : box.Lo()[i] - margin;
    return point;
}

Point between(const Point& from, const Point& to, double share)
{
    Point point;
    for (std::size_t i = 0; i < 3; ++i)
        point[i] = from[i] + share * (to[i] - from[i]);
    return point;
}

/// Where the plane meets the edges of the box, in no order.
void meetEdges(const Plane& plane, const TambVizCore::VizBox& box, std::vector<Point>& met)
{
    met.clear();
    for (int corner = 0; corner < 8; ++corner)
        for (int axis = 0; axis < 3; ++axis) {
            if (((corner >> axis) & 1) != 0)
                continue;
            const Point from = cornerOf(box, corner);
            const Point to = cornerOf(box, corner | (1 << axis));
            const double a = plane.DistanceOf(from);
            const double b = plane.DistanceOf(to);
            if ((a < 0.0) != (b < 0.0))
                met.push_back(between(from, to, a / (a - b)));
        }
}

/// Cuts off what a plane does not keep of a convex piece (Sutherland and Hodgman).
void cutOff(const Plane& plane, const std::vector<Point>& corners, std::vector<Point>& kept)
{
    kept.clear();
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Point& here = corners[i];
        const Point& next = corners[(i + 1) % corners.size()];
        const double a = plane.DistanceOf(here);
        const double b = plane.DistanceOf(next);
        if (a >= 0.0)
            kept.push_back(here);
        if ((a < 0.0) != (b < 0.0))
            kept.push_back(between(here, next, a / (a - b)));
    }
}

/// Sorts the points around their middle, seen along the normal.
void sortAround(std::vector<Point>& points, const Point& normal)
{
    Point middle = {0.0, 0.0, 0.0};
    for (const Point& point : points)
        for (std::size_t i = 0; i < 3; ++i)
            middle[i] += point[i] / static_cast<double>(points.size());
    // Without the largest component of the normal the order stays.
    std::size_t dropped = 0;
    for (std::size_t i = 1; i < 3; ++i)
        if (std::abs(normal[i]) > std::abs(normal[dropped]))
            dropped = i;
    const std::size_t u = (dropped + 1) % 3;
    const std::size_t v = (dropped + 2) % 3;
    const auto angleOf = [&](const Point& p) {
        return std::atan2(p[v] - middle[v], p[u] - middle[u]);
    };
    std::sort(points.begin(), points.end(),
              [&](const Point& a, const Point& b) { return angleOf(a) < angleOf(b); });
}

} // namespace

bool SectionCap::Place(std::span<const float[4]> planes, std::size_t plane,
                       const TambVizCore::VizBox& box)
{
    const Plane cut(planes[plane]);
    const double length = std::hypot(cut.normal[0], cut.normal[1], cut.normal[2]);
    if (box.IsEmpty() || !(length > 0.0))
        return false;
    meetEdges(cut, box, m_whole);
    if (m_whole.size() < 3)
        return false;
    sortAround(m_whole, cut.normal);
    for (std::size_t i = 0; i < 3; ++i)
        m_normal[i] = static_cast<float>(-cut.normal[i] / length);
    m_kept = m_whole;
    for (std::size_t i = 0; i < planes.size(); ++i) {
        if (i == plane)
            continue;
        cutOff(Plane(planes[i]), m_kept, m_clipped);
        m_kept.swap(m_clipped);
    }
    return true;
}

void SectionCap::DrawKept()
{
    draw(m_kept);
}

void SectionCap::DrawWhole()
{
    draw(m_whole);
}

void SectionCap::prepare()
{
    if (m_array)
        return;
    m_array = MakeVertexArray();
    glBindVertexArray(m_array.Get());
    constexpr std::array<float, kMostCorners* kFloatsPerVertex> kEmpty = {};
    m_buffer = MakeBuffer(GL_ARRAY_BUFFER, kEmpty.data(), sizeof(kEmpty));
    constexpr GLsizei kStride = kFloatsPerVertex * sizeof(float);
    glEnableVertexAttribArray(kPositionLocation);
    glVertexAttribPointer(kPositionLocation, 3, GL_FLOAT, GL_FALSE, kStride, nullptr);
    glEnableVertexAttribArray(kNormalLocation);
    glVertexAttribPointer(kNormalLocation, 3, GL_FLOAT, GL_FALSE, kStride,
                          reinterpret_cast<const void*>(3 * sizeof(float)));
}

void SectionCap::draw(const std::vector<Point>& corners)
{
    if (corners.size() < 3)
        return;
    prepare();
    std::array<float, kMostCorners* kFloatsPerVertex> vertices = {};
    const std::size_t count = std::min(corners.size(), kMostCorners);
    for (std::size_t corner = 0; corner < count; ++corner)
        for (std::size_t i = 0; i < 3; ++i) {
            vertices[kFloatsPerVertex * corner + i] = static_cast<float>(corners[corner][i]);
            vertices[kFloatsPerVertex * corner + 3 + i] = m_normal[i];
        }
    glBindVertexArray(m_array.Get());
    WriteBuffer(GL_ARRAY_BUFFER, m_buffer, 0, vertices.data(),
                count * kFloatsPerVertex * sizeof(float));
    glDrawArrays(GL_TRIANGLE_FAN, 0, static_cast<GLsizei>(count));
}

} // namespace ViewOpenGl
