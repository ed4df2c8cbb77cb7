#include "content/Distances.h"

#include "content/Placement.h"
#include "content/PrimitiveTree.h"

#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace OrvikModel {

using OrvikCore::DistanceResult;
using OrvikCore::PlacedShape;
using TambVizCore::PartKind;
using TambVizCore::VizBox;

namespace {

/// By how much of its size an exact shape may reach beyond the box of its triangles.
constexpr double kReach = 0.01;

Box3 toBox3(const VizBox& box)
{
    Box3 out;
    if (box.IsEmpty())
        return out;
    out.Add(Vector3{box.Lo()[0], box.Lo()[1], box.Lo()[2]});
    out.Add(Vector3{box.Hi()[0], box.Hi()[1], box.Hi()[2]});
    return out;
}

/// One of the shapes to measure between; its tree is built when it comes near enough.
struct Side
{
    explicit Side(const PlacedShape& shape) : primitives(shape.geometry, shape.partId, shape.world)
    {
        const std::int64_t part = shape.partId == 0 ? -1 : shape.geometry->FindPart(shape.partId);
        const VizBox box = part < 0 ? shape.geometry->BoundingBox()
                                    : shape.geometry->PartBox(static_cast<std::uint32_t>(part));
        bounds = toBox3(box.Transformed(shape.world));
    }

    const PrimitiveTree& Tree()
    {
        if (!tree)
            tree.emplace(primitives);
        return *tree;
    }

    Primitives primitives;
    Box3 bounds;
    std::optional<PrimitiveTree> tree;
};

std::vector<Side> makeSides(const std::vector<PlacedShape>& shapes)
{
    std::vector<Side> sides;
    for (const PlacedShape& shape : shapes) {
        Side side(shape);
        if (side.primitives.Count() != 0)
            sides.push_back(std::move(side));
    }
    return sides;
}

/// A placed part with a box that its exact shape does not leave.
struct ExactSide
{
    PlacedPart part;
    Box3 bounds;
};

std::vector<ExactSide> makeExactSides(const Model& model, const EntityMatch& match)
{
    std::vector<ExactSide> sides;
    const auto add = [&sides](const ModelNode& node, std::uint64_t partId) {
        ExactSide side;
        side.part.shape = node.shape.get();
        side.part.partId = partId;
        GetWorldTransform(node, side.part.world);
        const VizBox box = node.shape->BoundingBox().Transformed(side.part.world);
        side.bounds = toBox3(box);
        for (int axis = 0; axis < 3; ++axis) {
            side.bounds.low[axis] -= kReach * 2.0 * box.Radius();
            side.bounds.high[axis] += kReach * 2.0 * box.Radius();
        }
        sides.push_back(side);
    };
    if (match.partId != 0)
        add(*match.node, match.partId);
    else
        for (const ModelNode* node : ShapesBelow(model, match.node))
            add(*node, 0);
    return sides;
}

/// @return the two sides whose boxes are nearest to each other.
std::pair<std::size_t, std::size_t> nearestBoxes(const std::vector<Side>& from,
                                                 const std::vector<Side>& to)
{
    std::pair<std::size_t, std::size_t> nearest{0, 0};
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 0; i < from.size(); ++i)
        for (std::size_t k = 0; k < to.size(); ++k) {
            const double distance = SquaredDistance(from[i].bounds, to[k].bounds);
            if (distance < least) {
                least = distance;
                nearest = {i, k};
            }
        }
    return nearest;
}

} // namespace

bool MeasureDistanceOfShapes(const std::vector<PlacedShape>& from,
                             const std::vector<PlacedShape>& to, DistanceResult& result)
{
    std::vector<Side> one = makeSides(from);
    std::vector<Side> other = makeSides(to);
    if (one.empty() || other.empty())
        return false;
    // 1. A first result from the two that are likely to be nearest.
    NearestPoints best;
    best.squaredDistance = std::numeric_limits<double>::infinity();
    const auto [i, k] = nearestBoxes(one, other);
    if (!PrimitiveTree::FindNearest(one[i].Tree(), other[k].Tree(), best))
        return false;
    // 2. The others where they can be nearer.
    for (Side& a : one)
        for (Side& b : other)
            if (SquaredDistance(a.bounds, b.bounds) < best.squaredDistance &&
                !PrimitiveTree::FindNearest(a.Tree(), b.Tree(), best))
                return false;
    if (!std::isfinite(best.squaredDistance))
        return false;
    result.distance = std::sqrt(best.squaredDistance);
    Write(best.from, result.from);
    Write(best.to, result.to);
    result.exact = false;
    return true;
}

bool MeasureDistanceExact(const Model& model, const EntityMatch& from, const EntityMatch& to,
                          DistanceResult& result)
{
    const std::vector<ExactSide> others = makeExactSides(model, to);
    DistanceResult best;
    best.distance = std::numeric_limits<double>::infinity();
    for (const ExactSide& one : makeExactSides(model, from)) {
        for (const ExactSide& other : others) {
            const double least = std::sqrt(SquaredDistance(one.bounds, other.bounds));
            if (least > result.distance || least >= best.distance)
                continue;
            DistanceResult distance;
            if (!one.part.shape->MeasureDistanceExact(one.part, other.part, distance))
                return false;
            if (distance.distance < best.distance)
                best = distance;
        }
    }
    if (!std::isfinite(best.distance))
        return false;
    best.exact = true;
    result = best;
    return true;
}

} // namespace OrvikModel
