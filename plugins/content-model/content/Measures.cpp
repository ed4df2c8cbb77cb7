#include "content/Measures.h"

#include "content/Placement.h"
#include "content/TriangleMeasures.h"

#include <cmath>
#include <vector>

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

/// Measures a shape or one part of it: exactly where that is possible, else from its triangles.
bool measureShape(const ModelNode& node, std::uint64_t partId, EntityMeasure what,
                  MeasureResult& result)
{
    double world[16];
    GetWorldTransform(node, world);
    const std::optional<double> scale = UniformScale(world);
    MeasureResult measured;
    if (scale && node.shape->MeasureExact(partId, what, measured)) {
        PlaceMeasure(what, world, *scale, measured);
        measured.exact = true;
    } else if (!MeasureTriangles(node.shape->Present(), partId, world, what, measured)) {
        return false;
    }
    result = measured;
    return true;
}

/// Adds a measure up over several shapes; each must have it.
bool addUp(const std::vector<const ModelNode*>& shapes, EntityMeasure what, MeasureResult& result)
{
    MeasureResult sum;
    sum.exact = true;
    for (const ModelNode* node : shapes) {
        MeasureResult one;
        if (!measureShape(*node, 0, what, one))
            return false;
        sum.value += one.value;
        sum.exact = sum.exact && one.exact;
    }
    result = sum;
    return !shapes.empty();
}

/// The centre of several shapes: of their volume where all are closed, else of their area, else of
/// their length.
bool findCenter(const std::vector<const ModelNode*>& shapes, MeasureResult& result)
{
    for (const EntityMeasure weight :
         {EntityMeasure::Volume, EntityMeasure::Area, EntityMeasure::Length}) {
        MeasureResult total;
        if (!addUp(shapes, weight, total) || !(total.value > 0.0))
            continue;
        MeasureResult center;
        center.exact = true;
        for (const ModelNode* node : shapes) {
            MeasureResult share;
            MeasureResult own;
            measureShape(*node, 0, weight, share);
            if (!measureShape(*node, 0, EntityMeasure::Center, own))
                return false;
            for (int i = 0; i < 3; ++i)
                center.vector[i] += own.vector[i] * share.value / total.value;
            center.exact = center.exact && own.exact && share.exact;
        }
        result = center;
        return true;
    }
    return false;
}

bool measureGroup(const std::vector<const ModelNode*>& shapes, EntityMeasure what,
                  MeasureResult& result)
{
    switch (what) {
    case EntityMeasure::Area:
    case EntityMeasure::Volume:
    case EntityMeasure::Length:
        return addUp(shapes, what, result);
    case EntityMeasure::Center:
        return findCenter(shapes, result);
    default:
        return false;
    }
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

bool MeasureNode(const Model& model, const ModelNode* node, std::uint64_t partId,
                 EntityMeasure what, MeasureResult& result)
{
    if (partId != 0)
        return measureShape(*node, partId, what, result);
    const std::vector<const ModelNode*> shapes = ShapesBelow(model, node);
    if (shapes.size() == 1)
        return measureShape(*shapes.front(), 0, what, result);
    return measureGroup(shapes, what, result);
}

} // namespace OrvikModel
