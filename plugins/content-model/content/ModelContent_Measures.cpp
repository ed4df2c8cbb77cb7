#include "OrvikModel/ModelContent.h"
#include "OrvikModel/ModelEntity.h"
#include "content/Distances.h"
#include "content/Measures.h"
#include "content/ModelPicker.h"

#include <OrvikOs/FpMasked.h>

// What a content answers of sizes and distances.

namespace OrvikModel {

using OrvikCore::DistanceResult;
using OrvikCore::EntityMeasure;
using OrvikCore::LineHit;
using OrvikCore::MeasureResult;
using OrvikCore::PlacedShape;
using TambVizCore::EntityId;

bool ModelContent::Measure(const EntityId& entity, EntityMeasure what, MeasureResult& result) const
{
    const OrvikOs::FpMasked masked;
    const EntityMatch match = FindEntity(*m_model, entity);
    if (!match.IsFound() || (match.partId != 0 && !HasPart(*match.node, match.partId)))
        return false;
    return MeasureNode(*m_model, match.node, match.partId, what, result);
}

bool ModelContent::MeasureDistance(const EntityId& from, const EntityId& to,
                                   DistanceResult& result) const
{
    const OrvikOs::FpMasked masked;
    std::vector<PlacedShape> shapes;
    DistanceResult distance;
    if (!GetShapes(to, shapes) || !MeasureDistanceToShapes(from, shapes, distance))
        return false;
    MeasureDistanceExact(*m_model, FindEntity(*m_model, from), FindEntity(*m_model, to), distance);
    result = distance;
    return true;
}

bool ModelContent::MeasureDistanceToShapes(const EntityId& from, const std::vector<PlacedShape>& to,
                                           DistanceResult& result) const
{
    const OrvikOs::FpMasked masked;
    std::vector<PlacedShape> shapes;
    return GetShapes(from, shapes) && MeasureDistanceOfShapes(shapes, to, result);
}

bool ModelContent::IntersectLine(const double* origin, const double* direction, bool visibleOnly,
                                 std::vector<LineHit>& hits) const
{
    return m_picker->Intersect(origin, direction, visibleOnly, hits);
}

} // namespace OrvikModel
