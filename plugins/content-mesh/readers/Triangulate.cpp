#include "readers/Triangulate.h"

#include <cmath>

namespace OrvikMesh {

namespace {

/// Tests for an ear per corner of the polygon; sound polygons need two or three.
constexpr std::size_t kTestsPerCorner = 16;

void appendFan(std::size_t count, std::vector<std::uint32_t>& triangles)
{
    for (std::uint32_t i = 2; i < count; ++i)
        triangles.insert(triangles.end(), {0u, i - 1, i});
}

} // namespace

bool Triangulator::Split(const float* positions, const std::uint32_t* corners, std::size_t count,
                         std::vector<std::uint32_t>& triangles)
{
    triangles.clear();
    if (count > kMaxEarCorners) {
        appendFan(count, triangles);
        return false;
    }
    if (count > 3)
        flatten(positions, corners, count);
    if (count == 3 || isConvex())
        appendFan(count, triangles);
    else
        cutEars(triangles);
    return true;
}

/// Projects along the axis that the polygon faces most, mirrored where needed, so that its area is
/// positive. The normal is the sum over all sides, which also holds for polygons that are not flat.
void Triangulator::flatten(const float* positions, const std::uint32_t* corners, std::size_t count)
{
    double normal[3] = {0.0, 0.0, 0.0};
    const float* from = positions + std::size_t{corners[count - 1]} * 3;
    for (std::size_t i = 0; i < count; ++i) {
        const float* to = positions + std::size_t{corners[i]} * 3;
        normal[0] += (double{from[1]} - to[1]) * (double{from[2]} + to[2]);
        normal[1] += (double{from[2]} - to[2]) * (double{from[0]} + to[0]);
        normal[2] += (double{from[0]} - to[0]) * (double{from[1]} + to[1]);
        from = to;
    }
    std::size_t axis = 0;
    for (std::size_t i = 1; i < 3; ++i)
        if (std::fabs(normal[i]) > std::fabs(normal[axis]))
            axis = i;
    const std::size_t u = (axis + 1) % 3;
    const std::size_t v = (axis + 2) % 3;
    const double sign = normal[axis] < 0.0 ? -1.0 : 1.0;
    m_points.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        const float* position = positions + std::size_t{corners[i]} * 3;
        m_points[i] = {sign * position[u], position[v]};
    }
}

double Triangulator::turn(std::size_t a, std::size_t b, std::size_t c) const
{
    return (m_points[b].x - m_points[a].x) * (m_points[c].y - m_points[a].y) -
           (m_points[b].y - m_points[a].y) * (m_points[c].x - m_points[a].x);
}

/// Whether no corner turns inwards and the border goes around once.
bool Triangulator::isConvex() const
{
    const std::size_t count = m_points.size();
    int signChanges = 0;
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t next = (i + 1) % count;
        const std::size_t afterNext = (i + 2) % count;
        if (turn(i, next, afterNext) < 0.0)
            return false;
        const double step = m_points[next].x - m_points[i].x;
        const double nextStep = m_points[afterNext].x - m_points[next].x;
        signChanges += (step < 0.0) != (nextStep < 0.0) ? 1 : 0;
    }
    return signChanges <= 2;
}

bool Triangulator::isEar(std::size_t before, std::size_t tip, std::size_t after) const
{
    if (turn(before, tip, after) < 0.0)
        return false;
    const auto isSamePoint = [this](std::size_t a, std::size_t b) {
        return m_points[a].x == m_points[b].x && m_points[a].y == m_points[b].y;
    };
    for (const std::uint32_t other : m_ring) {
        if (other == before || other == tip || other == after)
            continue;
        // A corner that the ring passes twice (a bridge to a hole) does not block an ear.
        if (isSamePoint(other, before) || isSamePoint(other, tip) || isSamePoint(other, after))
            continue;
        if (turn(before, tip, other) >= 0.0 && turn(tip, after, other) >= 0.0 &&
            turn(after, before, other) >= 0.0)
            return false;
    }
    return true;
}

void Triangulator::cutEars(std::vector<std::uint32_t>& triangles)
{
    m_ring.resize(m_points.size());
    for (std::uint32_t i = 0; i < m_ring.size(); ++i)
        m_ring[i] = i;
    std::size_t at = 0;
    std::size_t misses = 0;
    std::size_t testsLeft = m_ring.size() * kTestsPerCorner;
    while (m_ring.size() > 3) {
        const std::size_t left = m_ring.size();
        const std::uint32_t before = m_ring[(at + left - 1) % left];
        const std::uint32_t tip = m_ring[at % left];
        const std::uint32_t after = m_ring[(at + 1) % left];
        // A border that crosses itself may have no ear left; cutting anyway ends the loop.
        if (misses < left && testsLeft > 0 && !isEar(before, tip, after)) {
            ++misses;
            --testsLeft;
            at = (at + 1) % left;
            continue;
        }
        triangles.insert(triangles.end(), {before, tip, after});
        m_ring.erase(m_ring.begin() + static_cast<std::ptrdiff_t>(at % left));
        at = at % m_ring.size();
        misses = 0;
    }
    triangles.insert(triangles.end(), {m_ring[0], m_ring[1], m_ring[2]});
}

} // namespace OrvikMesh
