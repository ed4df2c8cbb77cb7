#include "FaceTree.h"

namespace OrvikRay {

NearestFace::Verdict NearestFace::Offer(std::uint32_t triangle)
{
    Candidate candidate;
    if (!HitTriangle(m_geometry, m_line, triangle, candidate))
        return Verdict::Missed;
    const bool isNearer = !m_found || candidate.distance < m_far ||
                          (candidate.distance == m_far && candidate.primitive < m_best.primitive);
    if (!isNearer || !IsSeen(m_geometry, TambVizCore::PartKind::Face, m_query, candidate))
        return Verdict::Other;
    m_best = candidate;
    m_far = candidate.distance;
    m_found = true;
    return Verdict::Nearest;
}

} // namespace OrvikRay
