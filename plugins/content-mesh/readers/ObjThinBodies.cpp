#include "readers/ObjThinBodies.h"

#include <algorithm>

namespace OrvikMesh {

/// Finds or makes the body of an object and a group. A body to which the file comes back may get a
/// point twice.
MeshThin& ObjThinBodies::bodyFor(bool isLines, const MeshRange& place)
{
    const auto [entry, isNew] = m_positions.try_emplace(
        std::make_tuple(isLines, place.object, place.group), m_bodies.size());
    if (isNew && m_bodies.size() >= kMostBodies) {
        m_positions.erase(entry);
        const auto last = std::find_if(m_bodies.rbegin(), m_bodies.rend(),
                                       [=](const MeshThin& b) { return b.areLines == isLines; });
        if (last != m_bodies.rend()) {
            const auto at = static_cast<std::size_t>(m_bodies.rend() - last) - 1;
            m_run += m_current != at ? 1 : 0;
            m_current = at;
            return m_bodies[at];
        }
    } else if (!isNew) {
        m_run += m_current != entry->second ? 1 : 0;
        m_current = entry->second;
        return m_bodies[entry->second];
    }
    m_current = m_bodies.size();
    ++m_run;
    MeshThin& body = m_bodies.emplace_back();
    body.areLines = isLines;
    body.object = place.object;
    body.group = place.group;
    body.material = place.material;
    return body;
}

std::uint32_t ObjThinBodies::vertexOf(std::uint32_t point, MeshThin& body)
{
    if (m_stamp.IsEmpty()) {
        m_vertex.Resize(m_points.Size() / 3);
        m_stamp.Resize(m_points.Size() / 3);
        std::fill(m_stamp.begin(), m_stamp.end(), 0u);
    }
    if (m_stamp[point] == m_run)
        return m_vertex[point];
    const auto vertex = static_cast<std::uint32_t>(body.positions.Size() / 3);
    for (std::size_t axis = 0; axis < 3; ++axis)
        body.positions.PushBack(m_points[std::size_t{point} * 3 + axis]);
    for (std::size_t i = 0; i < 4 && !m_colors.IsEmpty(); ++i)
        body.colors.PushBack(m_colors[std::size_t{point} * 4 + i]);
    m_stamp[point] = m_run;
    m_vertex[point] = vertex;
    return vertex;
}

void ObjThinBodies::AddLine(std::span<const std::uint32_t> points, const MeshRange& place)
{
    MeshThin& body = bodyFor(true, place);
    m_hasLines = true;
    body.runs.PushBack(static_cast<std::uint32_t>(body.segments.Size() / 2));
    std::uint32_t from = vertexOf(points.front(), body);
    for (const std::uint32_t point : points.subspan(1)) {
        const std::uint32_t to = vertexOf(point, body);
        body.segments.PushBack(from);
        body.segments.PushBack(to);
        from = to;
    }
}

void ObjThinBodies::AddPoints(std::span<const std::uint32_t> points, const MeshRange& place)
{
    MeshThin& body = bodyFor(false, place);
    for (const std::uint32_t point : points)
        vertexOf(point, body);
}

} // namespace OrvikMesh
