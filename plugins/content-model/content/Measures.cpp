#include "content/Measures.h"

#include "content/Placement.h"

#include <cmath>

namespace OrvikModel {

using OrvikCore::EntityMeasure;
using OrvikCore::MeasureResult;

namespace {

void placePoint(const double* world, double* point)
{
    const double x = point[0];
    const double y = point[1];
    const double z = point[2];
    for (int i = 0; i < 3; ++i)
        point[i] = world[i] * x + world[4 + i] * y + world[8 + i] * z + world[12 + i];
}

/// Turns a direction; where all directions are enlarged alike this keeps normals normal.
void placeDirection(const double* world, double scale, double* direction)
{
    const double x = direction[0];
    const double y = direction[1];
    const double z = direction[2];
    for (int i = 0; i < 3; ++i)
        direction[i] = (world[i] * x + world[4 + i] * y + world[8 + i] * z) / scale;
}

/// Asks the exact geometry of a single shape.
bool measureExact(const ModelNode& node, std::uint64_t partId, EntityMeasure what,
                  MeasureResult& result)
{
    double world[16];
    GetWorldTransform(node, world);
    const std::optional<double> scale = UniformScale(world);
    MeasureResult exact;
    if (!node.shape || !scale || !node.shape->MeasureExact(partId, what, exact))
        return false;
    PlaceMeasure(what, world, *scale, exact);
    exact.exact = true;
    result = exact;
    return true;
}

} // namespace

void PlaceMeasure(EntityMeasure what, const double* world, double scale, MeasureResult& result)
{
    switch (what) {
    case EntityMeasure::Area:
        result.value *= scale * scale;
        break;
    case EntityMeasure::Volume:
        result.value *= scale * scale * scale;
        break;
    case EntityMeasure::Length:
    case EntityMeasure::Radius:
        result.value *= scale;
        break;
    case EntityMeasure::Center:
    case EntityMeasure::Origin:
        placePoint(world, result.vector);
        break;
    case EntityMeasure::Normal:
    case EntityMeasure::Direction:
        placeDirection(world, scale, result.vector);
        break;
    case EntityMeasure::Surface:
    case EntityMeasure::Curve:
        break;
    }
}

bool MeasureNode(const Model& /*model*/, const ModelNode& node, std::uint64_t partId,
                 EntityMeasure what, MeasureResult& result)
{
    return measureExact(node, partId, what, result);
}

} // namespace OrvikModel
