#include "OrvikModel/ModelShape.h"

namespace OrvikModel {

ModelShape::ModelShape() = default;

ModelShape::~ModelShape() = default;

bool ModelShape::Retessellate(double /*sag*/, double /*maxAngleDegrees*/) const
{
    return false;
}

bool ModelShape::MeasureExact(std::uint64_t /*partId*/, OrvikCore::EntityMeasure /*what*/,
                              OrvikCore::MeasureResult& /*result*/) const
{
    return false;
}

bool ModelShape::MeasureDistanceExact(const PlacedPart& /*from*/, const PlacedPart& /*to*/,
                                      OrvikCore::DistanceResult& /*result*/) const
{
    return false;
}

bool ModelShape::Refine(const FacetHit& /*facet*/, RefinedHit& /*hit*/) const
{
    return false;
}

} // namespace OrvikModel
