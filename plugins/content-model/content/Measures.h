#ifndef ORVIKMODEL_CONTENT_MEASURES_H
#define ORVIKMODEL_CONTENT_MEASURES_H

#include "OrvikModel/Model.h"

#include "OrvikCore/IEntityProperties.h"

#include <cstdint>

/// Sizes of nodes and parts in world units.
///
/// @thread  Any thread, under OrvikOs::FpMasked.
namespace OrvikModel {

/// Measures a node or one part of it; see OrvikCore::EntityMeasure. Areas, lengths and volumes of
/// what groups several shapes add up where each has one; the answer is exact where each is.
///
/// @param node    Null for the whole model.
/// @param partId  A part that is there, or 0 for the node.
/// @return false, with @p result untouched, when there is nothing of that kind to measure.
bool MeasureNode(const Model& model, const ModelNode* node, std::uint64_t partId,
                 OrvikCore::EntityMeasure what, OrvikCore::MeasureResult& result);

/// Carries a measure of a shape into the world.
///
/// @param world  double[16], enlarging all directions alike by @p scale.
void PlaceMeasure(OrvikCore::EntityMeasure what, const double* world, double scale,
                  OrvikCore::MeasureResult& result);

} // namespace OrvikModel

#endif
