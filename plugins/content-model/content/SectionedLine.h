#ifndef ORVIKMODEL_CONTENT_SECTIONEDLINE_H
#define ORVIKMODEL_CONTENT_SECTIONEDLINE_H

#include "content/LinePiercer.h"

#include "OrvikCore/IEntityProperties.h"

#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/EntityId.h>

#include <limits>
#include <span>
#include <vector>

namespace OrvikModel {

/// Where a line passes through a face of a body, whether or not that is seen.
struct PiercedFace
{
    OrvikCore::LineHit hit;
    bool isShown = true; ///< The face is not hidden.
};

/// The piece of a line that section planes keep.
class KeptPiece
{
public:
    /// @param planes  World units.
    KeptPiece(const WorldLine& line, std::span<const TambVizCore::ClipPlane> planes);

    bool IsEmpty() const { return !(m_begin <= m_end); }
    bool Holds(double distance) const { return distance >= m_begin && distance <= m_end; }

    /// Appends what is seen of a body along the line: the faces that are shown and kept and, of a
    /// body that is solid, the places where the planes have cut it open. These name the body; their
    /// normals point to what was cut away.
    ///
    /// @param faces  All of the body, in ascending distance; with normals out of it.
    void AppendSeen(std::span<const PiercedFace> faces, bool isSolid,
                    const TambVizCore::EntityId& body, std::vector<OrvikCore::LineHit>& hits) const;

private:
    using Plane = const TambVizCore::ClipPlane*; ///< Not owned; null where none ends the piece.
    void appendCut(std::span<const PiercedFace> faces, double distance, Plane plane,
                   const TambVizCore::EntityId& body, std::vector<OrvikCore::LineHit>& hits) const;

    const WorldLine& m_line;
    double m_begin = 0.0;
    double m_end = std::numeric_limits<double>::infinity();
    Plane m_beginPlane = nullptr;
    Plane m_endPlane = nullptr;
};

} // namespace OrvikModel

#endif
