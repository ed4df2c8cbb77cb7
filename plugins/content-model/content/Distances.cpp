#include "content/Distances.h"

#include "content/Placement.h"

namespace OrvikModel {

using OrvikCore::DistanceResult;

namespace {

std::vector<PlacedPart> placeParts(const Model& model, const EntityMatch& match)
{
    std::vector<PlacedPart> parts;
    const auto add = [&parts](const ModelNode& node, std::uint64_t partId) {
        PlacedPart part;
        part.shape = node.shape.get();
        part.partId = partId;
        GetWorldTransform(node, part.world);
        parts.push_back(part);
    };
    if (match.partId != 0)
        add(*match.node, match.partId);
    else
        for (const ModelNode* node : ShapesBelow(model, match.node))
            add(*node, 0);
    return parts;
}

} // namespace

bool MeasureDistanceExact(const Model& model, const EntityMatch& from, const EntityMatch& to,
                          DistanceResult& result)
{
    DistanceResult best;
    bool isFound = false;
    const std::vector<PlacedPart> others = placeParts(model, to);
    for (const PlacedPart& one : placeParts(model, from)) {
        for (const PlacedPart& other : others) {
            DistanceResult distance;
            if (!one.shape->MeasureDistanceExact(one, other, distance))
                return false;
            if (!isFound || distance.distance < best.distance)
                best = distance;
            isFound = true;
        }
    }
    if (!isFound)
        return false;
    best.exact = true;
    result = best;
    return true;
}

} // namespace OrvikModel
