#ifndef ORVIKMODEL_CONTENT_DISTANCES_H
#define ORVIKMODEL_CONTENT_DISTANCES_H

#include "OrvikModel/ModelEntity.h"

#include "OrvikCore/IEntityProperties.h"

#include <vector>

/// Least distances in world units.
///
/// @thread  Any thread, under OrvikOs::FpMasked.
namespace OrvikModel {

/// Measures between two sets of shapes from their triangles, from segments where a shape has no
/// triangles, from points where it has neither.
///
/// @return false, with @p result untouched, when either has nothing of the kind, or the running job
///         was cancelled.
bool MeasureDistanceOfShapes(const std::vector<OrvikCore::PlacedShape>& from,
                             const std::vector<OrvikCore::PlacedShape>& to,
                             OrvikCore::DistanceResult& result);

/// Measures between two nodes or parts that both have exact geometry.
///
/// @param result  in: what MeasureDistanceOfShapes() found between the two; tells which shapes can
///                be the nearest ones. out: the exact distance.
/// @return false, with @p result untouched, where either has none.
bool MeasureDistanceExact(const Model& model, const EntityMatch& from, const EntityMatch& to,
                          OrvikCore::DistanceResult& result);

} // namespace OrvikModel

#endif
