#include "content/SectionedLine.h"

#include <algorithm>
#include <cmath>

namespace OrvikModel {

using OrvikCore::LineHit;
using TambVizCore::ClipPlane;

namespace {

double alongNormal(const ClipPlane& plane, const double* vector)
{
    double sum = 0.0;
    for (int i = 0; i < 3; ++i)
        sum += static_cast<double>(plane.normal[i]) * vector[i];
    return sum;
}

} // namespace

KeptPiece::KeptPiece(const WorldLine& line, std::span<const ClipPlane> planes) : m_line(line)
{
    for (const ClipPlane& plane : planes) {
        const double height = alongNormal(plane, line.origin) + static_cast<double>(plane.offset);
        const double slope = alongNormal(plane, line.direction);
        const double crossing = -height / slope;
        if (slope > 0.0 && crossing > m_begin) {
            m_begin = crossing;
            m_beginPlane = &plane;
        } else if (slope < 0.0 && crossing < m_end) {
            m_end = crossing;
            m_endPlane = &plane;
        } else if (slope == 0.0 && height < 0.0) {
            m_end = -1.0;
        }
    }
}

/// Appends the place where a plane has cut the body open, if the line is inside of it there: then
/// it leaves the body next.
void KeptPiece::appendCut(std::span<const PiercedFace> faces, double distance, Plane plane,
                          const TambVizCore::EntityId& body, std::vector<LineHit>& hits) const
{
    const auto next = std::find_if(faces.begin(), faces.end(), [distance](const PiercedFace& face) {
        return face.hit.distance > distance;
    });
    if (!plane || next == faces.end())
        return;
    const double* normal = next->hit.normal;
    const double* along = m_line.direction;
    if (!(normal[0] * along[0] + normal[1] * along[1] + normal[2] * along[2] > 0.0))
        return;
    LineHit cut;
    cut.entity = body;
    cut.distance = distance;
    cut.exact = next->hit.exact;
    const double length =
        std::hypot(static_cast<double>(plane->normal[0]), static_cast<double>(plane->normal[1]),
                   static_cast<double>(plane->normal[2]));
    for (int i = 0; i < 3; ++i) {
        cut.position[i] = m_line.origin[i] + distance * m_line.direction[i];
        cut.normal[i] = -static_cast<double>(plane->normal[i]) / length;
    }
    hits.push_back(cut);
}

void KeptPiece::AppendSeen(std::span<const PiercedFace> faces, bool isSolid,
                           const TambVizCore::EntityId& body, std::vector<LineHit>& hits) const
{
    if (IsEmpty())
        return;
    if (isSolid)
        appendCut(faces, m_begin, m_beginPlane, body, hits);
    for (const PiercedFace& face : faces)
        if (face.isShown && Holds(face.hit.distance))
            hits.push_back(face.hit);
    if (isSolid)
        appendCut(faces, m_end, m_endPlane, body, hits);
}

} // namespace OrvikModel
