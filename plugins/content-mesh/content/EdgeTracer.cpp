#include "content/EdgeTracer.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>
#include <utility>

namespace OrvikMesh {

namespace {

/// The two patches beside a crease, the lower first; a border has kNoTriangle as the second.
using PatchPair = std::pair<std::uint32_t, std::uint32_t>;

class Tracer
{
public:
    Tracer(const TriangleSides& sides, const float* positions, double cornerAngleDegrees);

    TracedEdges Run();

private:
    void gatherCreases();
    bool isCorner(std::uint32_t point) const;
    bool isBent(std::uint32_t point, std::uint32_t a, std::uint32_t b) const;
    PatchPair patchesOf(std::uint32_t crease) const;
    std::uint32_t otherEnd(std::uint32_t crease, std::uint32_t point) const;
    void traceFrom(std::uint32_t point, std::uint32_t crease);
    std::uint32_t neighbour(std::uint32_t crease, std::uint32_t point) const;

    const TriangleSides& m_sides;
    const float* m_positions;
    const double m_cornerCosine;
    std::vector<std::uint32_t> m_first; ///< Per point: where its creases begin in m_atPoint.
    std::vector<std::uint32_t> m_atPoint;
    std::vector<bool> m_isCorner; ///< Per point.
    std::vector<bool> m_isDone;   ///< Per crease.
    TracedEdges m_edges;
};

Tracer::Tracer(const TriangleSides& sides, const float* positions, double cornerAngleDegrees)
    : m_sides(sides),
      m_positions(positions),
      m_cornerCosine(std::cos(cornerAngleDegrees * std::numbers::pi / 180.0))
{
}

void Tracer::gatherCreases()
{
    m_first.assign(m_sides.pointVertex.size() + 1, 0);
    for (const CreaseSide& crease : m_sides.creases) {
        ++m_first[crease.from + 1];
        ++m_first[crease.to + 1];
    }
    std::partial_sum(m_first.begin(), m_first.end(), m_first.begin());
    m_atPoint.resize(m_first.back());
    std::vector<std::uint32_t> next(m_first.begin(), m_first.end() - 1);
    for (std::uint32_t i = 0; i < m_sides.creases.size(); ++i) {
        m_atPoint[next[m_sides.creases[i].from]++] = i;
        m_atPoint[next[m_sides.creases[i].to]++] = i;
    }
}

PatchPair Tracer::patchesOf(std::uint32_t crease) const
{
    const CreaseSide& side = m_sides.creases[crease];
    const std::uint32_t first = m_sides.patch[side.firstTriangle];
    const std::uint32_t other =
        side.otherTriangle == kNoTriangle ? kNoTriangle : m_sides.patch[side.otherTriangle];
    return {std::min(first, other), std::max(first, other)};
}

std::uint32_t Tracer::otherEnd(std::uint32_t crease, std::uint32_t point) const
{
    const CreaseSide& side = m_sides.creases[crease];
    return side.from == point ? side.to : side.from;
}

/// Whether a line through a point, from a to b, turns by more than the corner angle.
bool Tracer::isBent(std::uint32_t point, std::uint32_t a, std::uint32_t b) const
{
    const auto place = [this](std::uint32_t p) {
        return m_positions + std::size_t{m_sides.pointVertex[p]} * 3;
    };
    double dot = 0.0;
    double squaredIn = 0.0;
    double squaredOut = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        const double in = double{place(point)[i]} - place(a)[i];
        const double out = double{place(b)[i]} - place(point)[i];
        dot += in * out;
        squaredIn += in * in;
        squaredOut += out * out;
    }
    return dot < m_cornerCosine * std::sqrt(squaredIn * squaredOut);
}

bool Tracer::isCorner(std::uint32_t point) const
{
    const std::uint32_t first = m_first[point];
    const std::uint32_t count = m_first[point + 1] - first;
    if (count != 2)
        return count > 0;
    const std::uint32_t a = m_atPoint[first];
    const std::uint32_t b = m_atPoint[first + 1];
    return patchesOf(a) != patchesOf(b) || isBent(point, otherEnd(a, point), otherEnd(b, point));
}

/// @return the crease that goes on at @p point after @p crease; kNoTriangle at a corner.
std::uint32_t Tracer::neighbour(std::uint32_t crease, std::uint32_t point) const
{
    if (m_isCorner[point])
        return kNoTriangle;
    const std::uint32_t first = m_first[point];
    return m_atPoint[first] == crease ? m_atPoint[first + 1] : m_atPoint[first];
}

/// Follows a line that begins at a point with a crease until a corner or a crease that is done.
void Tracer::traceFrom(std::uint32_t point, std::uint32_t crease)
{
    const auto begin = static_cast<std::uint32_t>(m_edges.segments.size() / 2);
    while (crease != kNoTriangle && !m_isDone[crease]) {
        m_isDone[crease] = true;
        const std::uint32_t next = otherEnd(crease, point);
        m_edges.segments.push_back(m_sides.pointVertex[point]);
        m_edges.segments.push_back(m_sides.pointVertex[next]);
        point = next;
        crease = neighbour(crease, point);
    }
    m_edges.edges.push_back(
        {begin, static_cast<std::uint32_t>(m_edges.segments.size() / 2) - begin});
}

TracedEdges Tracer::Run()
{
    gatherCreases();
    const auto pointCount = static_cast<std::uint32_t>(m_sides.pointVertex.size());
    m_isCorner.resize(pointCount);
    for (std::uint32_t point = 0; point < pointCount; ++point) {
        m_isCorner[point] = isCorner(point);
        if (m_isCorner[point])
            m_edges.vertices.push_back(m_sides.pointVertex[point]);
    }
    m_isDone.assign(m_sides.creases.size(), false);
    for (std::uint32_t first = 0; first < m_sides.creases.size(); ++first) {
        if (m_isDone[first])
            continue;
        // Back to where the line begins: a corner, or this crease again in a closed loop.
        std::uint32_t crease = first;
        std::uint32_t point = m_sides.creases[first].from;
        for (std::uint32_t before = neighbour(crease, point);
             before != kNoTriangle && before != first; before = neighbour(crease, point)) {
            crease = before;
            point = otherEnd(crease, point);
        }
        if (neighbour(crease, point) == first) {
            crease = first;
            point = m_sides.creases[first].from;
        }
        traceFrom(point, crease);
    }
    return std::move(m_edges);
}

} // namespace

TracedEdges TraceEdges(const TriangleSides& sides, const float* positions,
                       double cornerAngleDegrees)
{
    return Tracer(sides, positions, cornerAngleDegrees).Run();
}

} // namespace OrvikMesh
