#ifndef ORVIKCORE_IKINDPICKER_H
#define ORVIKCORE_IKINDPICKER_H

#include "OrvikCore/Export.h"

#include <TambVizCore/PartKind.h>

namespace TambVizCore {
class EntityId;
class Ray;
} // namespace TambVizCore

namespace OrvikCore {

/// Picks restricted to one kind of entity.
///
/// A second interface of contents beside AContent::RayPick, found with `dynamic_cast`. Where
/// AContent::RayPick lets a vertex win over an edge and an edge over a face, this one sees only
/// the kind asked for; a face in front still hides edges and vertices behind it.
///
/// @thread Worker thread while a job runs.
class ORVIKCORE_API IKindPicker
{
public:
    virtual ~IKindPicker();

    /// Finds the entity of @p kind that a ray hits first.
    ///
    /// @param ray   world units, with its aperture; edges and vertices count within the aperture.
    /// @param kind  face, edge or vertex: the only kind that may be answered; none answers nothing.
    /// @param hit   receives the entity; left alone when nothing of that kind is hit.
    /// @return      true when something of that kind is hit.
    virtual bool RayPickKind(const TambVizCore::Ray& ray, TambVizCore::PartKind kind,
                             TambVizCore::EntityId& hit) = 0;
};

} // namespace OrvikCore

#endif
