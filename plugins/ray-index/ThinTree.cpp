#include "ThinTree.h"

#include "PrimitiveBoxes.h"

#include <limits>

namespace OrvikRay {

using TambVizCore::Geometry;
using TambVizCore::GeometryQuery;
using TambVizCore::PartKind;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

ThinTree::ThinTree(const Geometry& geometry, PartKind kind) : m_geometry(geometry), m_kind(kind)
{
    m_tree.Build(kind == PartKind::Edge ? PrimitiveBoxes(geometry, geometry.Segments().Span(), 2)
                                        : PrimitiveBoxes(geometry, geometry.Points().Span(), 1));
}

void ThinTree::measure(const Line& line, std::uint32_t primitive, Candidate& candidate) const
{
    if (m_kind == PartKind::Vertex) {
        MeasurePoint(line, primitive, VertexAt(m_geometry, m_geometry.Points()[primitive]),
                     candidate);
        return;
    }
    const std::uint32_t* ends = m_geometry.Segments().Data() + std::size_t{primitive} * 2;
    MeasureSegment(line, primitive, VertexAt(m_geometry, ends[0]), VertexAt(m_geometry, ends[1]),
                   candidate);
}

bool ThinTree::Find(const GeometryQuery& query, Candidate& best) const
{
    const Line line(query);
    if (!line.HasDirection())
        return false;
    bool found = false;
    const auto meets = [&line](const Box& box) {
        double enter = -kInfinity;
        double leave = kInfinity;
        return line.Clip(box, line.RadiusAt(box) * (1.0 + 1e-9), enter, leave);
    };
    m_tree.Walk(meets, [&](std::uint32_t primitive) {
        Candidate candidate;
        measure(line, primitive, candidate);
        const double room = line.radius + line.growth * candidate.distance;
        if (!(candidate.distance >= line.near && candidate.distance <= line.far) ||
            !(candidate.deviation <= room))
            return;
        const double tie = room * 1e-6;
        const bool isNearer = candidate.deviation < best.deviation - tie;
        const bool isEqual = candidate.deviation <= best.deviation + tie;
        const bool isEarlier =
            candidate.distance < best.distance ||
            (candidate.distance == best.distance && candidate.primitive < best.primitive);
        if ((!found || isNearer || (isEqual && isEarlier)) &&
            IsSeen(m_geometry, m_kind, query, candidate)) {
            best = candidate;
            found = true;
        }
    });
    return found;
}

} // namespace OrvikRay
