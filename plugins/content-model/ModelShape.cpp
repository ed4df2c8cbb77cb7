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

bool ModelShape::Refine(std::uint64_t /*facePartId*/, const double* /*origin*/,
                        const double* /*direction*/, double /*parameter*/,
                        RefinedHit& /*hit*/) const
{
    return false;
}

} // namespace OrvikModel
