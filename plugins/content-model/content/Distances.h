#ifndef ORVIKMODEL_CONTENT_DISTANCES_H
#define ORVIKMODEL_CONTENT_DISTANCES_H

#include "OrvikModel/ModelEntity.h"

#include "OrvikCore/IEntityProperties.h"

/// Least distances in world units.
///
/// @thread  Any thread, under OrvikOs::FpMasked.
namespace OrvikModel {

/// Measures between two nodes or parts that both have exact geometry.
///
/// @return false, with @p result untouched, where either has none.
bool MeasureDistanceExact(const Model& model, const EntityMatch& from, const EntityMatch& to,
                          OrvikCore::DistanceResult& result);

} // namespace OrvikModel

#endif
