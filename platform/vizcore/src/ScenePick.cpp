#include "TambVizCore/ScenePick.h"

#include "TambVizCore/GeoNode.h"
#include "TambVizCore/Geometry.h"
#include "TambVizCore/Matrix.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>

namespace TambVizCore {

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();

/// The ray of a query with a unit direction: distances along it are world units.
struct WorldRay
{
    float origin[3];
    float direction[3];
    double radius;
    double radiusGrowth;

    double ApertureAt(double distance) const { return radius + radiusGrowth * distance; }
};

/// An instance that the ray may hit, with the query in the units of its geometry.
struct Candidate
{
    std::size_t instance;
    const IGeometryIndex* index;
    PartKinds kinds;
    GeometryQuery query;
    std::vector<ClipPlane> planes;
    double world[16];
    double inverse[16];
    double scale; ///< World units per unit of the geometry.
};

struct Best
{
    const Candidate* candidate = nullptr;
    GeometryHit hit;
};

bool makeWorldRay(const PickQuery& query, WorldRay& ray)
{
    const float* d = query.ray.Direction();
    const double size =
        std::hypot(static_cast<double>(d[0]), static_cast<double>(d[1]), static_cast<double>(d[2]));
    if (!(size > 0.0) || !std::isfinite(size)) {
        return false;
    }
    for (int i = 0; i < 3; ++i) {
        ray.origin[i] = query.ray.Origin()[i];
        ray.direction[i] = static_cast<float>(static_cast<double>(d[i]) / size);
    }
    ray.radius = std::max(query.ray.Radius(), 0.0);
    ray.radiusGrowth = std::max(query.radiusGrowth, 0.0);
    return true;
}

/// The largest aperture that the ray can have inside a box.
double largestAperture(const WorldRay& ray, const VizBox& box)
{
    float center[3];
    box.GetCenter(center);
    const double away =
        std::hypot(static_cast<double>(center[0]) - static_cast<double>(ray.origin[0]),
                   static_cast<double>(center[1]) - static_cast<double>(ray.origin[1]),
                   static_cast<double>(center[2]) - static_cast<double>(ray.origin[2]));
    return ray.ApertureAt(away + box.Radius());
}

bool meets(const WorldRay& ray, const VizBox& box)
{
    double tMin = 0.0;
    double tMax = kInfinity;
    return !box.IsEmpty() &&
           box.Clip(ray.origin, ray.direction, largestAperture(ray, box), tMin, tMax);
}

/// Carries a plane of the world into the units of a geometry placed by @p m.
ClipPlane toLocal(const ClipPlane& plane, const double* m)
{
    ClipPlane local;
    double offset = plane.offset;
    for (int row = 0; row < 3; ++row) {
        offset += static_cast<double>(plane.normal[row]) * m[12 + row];
    }
    for (int column = 0; column < 3; ++column) {
        double sum = 0.0;
        for (int row = 0; row < 3; ++row) {
            sum += static_cast<double>(plane.normal[row]) * m[column * 4 + row];
        }
        local.normal[column] = static_cast<float>(sum);
    }
    local.offset = static_cast<float>(offset);
    return local;
}

std::optional<Candidate> makeCandidate(std::size_t position, const PickInstance& instance,
                                       const WorldRay& ray, std::span<const ClipPlane> planes)
{
    if (instance.geometry == nullptr || instance.geometry->Index() == nullptr) {
        return std::nullopt;
    }
    if (!meets(ray, instance.geometry->BoundingBox().Transformed(instance.world))) {
        return std::nullopt;
    }
    Candidate candidate{};
    if (!InvertMatrix(instance.world, candidate.inverse)) {
        return std::nullopt;
    }
    candidate.instance = position;
    candidate.index = instance.geometry->Index();
    candidate.kinds = instance.kinds;
    std::copy(instance.world, instance.world + 16, candidate.world);
    candidate.scale = std::cbrt(std::abs(Determinant3x3(instance.world)));
    GeometryQuery& query = candidate.query;
    TransformPoint(candidate.inverse, ray.origin, query.origin);
    TransformDirection(candidate.inverse, ray.direction, query.direction);
    query.radius = static_cast<float>(ray.radius / candidate.scale);
    query.radiusGrowth = static_cast<float>(ray.radiusGrowth / candidate.scale);
    query.partStates = instance.partStates;
    for (const ClipPlane& plane : planes) {
        candidate.planes.push_back(toLocal(plane, instance.world));
    }
    return candidate;
}

Best findFace(std::vector<Candidate>& candidates)
{
    Best best;
    for (Candidate& candidate : candidates) {
        if ((candidate.kinds & ToPartKinds(PartKind::Face)) == 0) {
            continue;
        }
        GeometryHit hit;
        if (best.candidate != nullptr) {
            candidate.query.maxDistance = best.hit.distance;
        }
        if (candidate.index->FindFace(candidate.query, hit) &&
            (best.candidate == nullptr || hit.distance < best.hit.distance)) {
            best = {&candidate, hit};
        }
    }
    return best;
}

/// Finds the edge or vertex that passes nearest to the ray, not farther away than a limit.
Best findThin(std::vector<Candidate>& candidates, PartKind kind, const WorldRay& ray, float limit)
{
    Best best;
    double bestDeviation = kInfinity;
    for (Candidate& candidate : candidates) {
        if ((candidate.kinds & ToPartKinds(kind)) == 0) {
            continue;
        }
        candidate.query.maxDistance = limit;
        GeometryHit hit;
        const bool found = kind == PartKind::Vertex
                               ? candidate.index->FindVertex(candidate.query, hit)
                               : candidate.index->FindEdge(candidate.query, hit);
        if (!found) {
            continue;
        }
        const double deviation = static_cast<double>(hit.deviation) * candidate.scale;
        const double tie = 1e-6 * ray.ApertureAt(static_cast<double>(hit.distance));
        const bool nearer = best.candidate != nullptr && hit.distance < best.hit.distance;
        if (deviation < bestDeviation - tie || (deviation <= bestDeviation + tie && nearer)) {
            best = {&candidate, hit};
            bestDeviation = deviation;
        }
    }
    return best;
}

void writeResult(const Best& best, const WorldRay& ray, PickResult& result)
{
    const Candidate& candidate = *best.candidate;
    result.instance = candidate.instance;
    result.kind = best.hit.kind;
    result.partIndex = best.hit.partIndex;
    result.primitive = best.hit.primitive;
    result.distance = static_cast<double>(best.hit.distance);
    TransformPoint(candidate.world, best.hit.position, result.position);
    if (best.hit.kind == PartKind::Face) {
        TransformNormal(candidate.inverse, best.hit.normal, result.normal);
        return;
    }
    for (int i = 0; i < 3; ++i) {
        result.normal[i] = -ray.direction[i];
    }
}

struct Walk
{
    const PickQuery& query;
    const WorldRay& ray;
    std::vector<PickInstance> instances;
    std::vector<const GeoNode*> nodes;
};

bool isWanted(const GeoNode& node, const PickQuery& query)
{
    switch (node.GetCategory()) {
    case GeoNode::Category::PointCloud:
        return query.pointClouds;
    case GeoNode::Category::PMI:
        return query.pmi;
    case GeoNode::Category::Model:
        break;
    }
    return true;
}

void collect(const Node& node, const double* parentWorld, Walk& walk)
{
    if (!node.IsVisible() || node.IsAuxiliary()) {
        return;
    }
    PickInstance instance;
    MultiplyMatrices(parentWorld, node.Transform(), instance.world);
    if (!meets(walk.ray, node.SubtreeBounds().Transformed(instance.world))) {
        return;
    }
    const GeoNode* const geoNode = node.AsGeoNode();
    if (geoNode != nullptr && geoNode->GetGeometry() != nullptr && isWanted(*geoNode, walk.query)) {
        instance.geometry = geoNode->GetGeometry().get();
        instance.partStates = geoNode->PartStates();
        walk.instances.push_back(instance);
        walk.nodes.push_back(geoNode);
    }
    for (std::size_t i = 0; i < node.ChildCount(); ++i) {
        collect(*node.ChildAt(i), instance.world, walk);
    }
}

} // namespace

bool PickNearest(std::span<const PickInstance> instances, const PickQuery& query,
                 PickResult& result)
{
    // 1. Keep the instances whose boxes the ray meets.
    WorldRay ray{};
    if (!makeWorldRay(query, ray)) {
        return false;
    }
    std::vector<Candidate> candidates;
    for (std::size_t i = 0; i < instances.size(); ++i) {
        if (auto candidate = makeCandidate(i, instances[i], ray, query.clipPlanes)) {
            candidates.push_back(std::move(*candidate));
        }
    }
    for (Candidate& candidate : candidates) {
        candidate.query.clipPlanes = candidate.planes;
    }

    // 2. The nearest face; it hides what lies behind it by more than the aperture.
    const bool wantsFace = (query.kinds & ToPartKinds(PartKind::Face)) != 0;
    const Best face = wantsFace || query.facesHide ? findFace(candidates) : Best{};
    float limit = std::numeric_limits<float>::max();
    if (face.candidate != nullptr && query.facesHide) {
        const auto distance = static_cast<double>(face.hit.distance);
        limit = static_cast<float>(distance + ray.ApertureAt(distance));
    }

    // 3. A vertex before an edge, an edge before a face.
    for (const PartKind kind : {PartKind::Vertex, PartKind::Edge}) {
        if ((query.kinds & ToPartKinds(kind)) == 0) {
            continue;
        }
        const Best thin = findThin(candidates, kind, ray, limit);
        if (thin.candidate != nullptr) {
            writeResult(thin, ray, result);
            return true;
        }
    }
    if (face.candidate == nullptr || !wantsFace) {
        return false;
    }
    writeResult(face, ray, result);
    return true;
}

bool PickNearest(const Node& root, const PickQuery& query, ScenePickResult& result)
{
    WorldRay ray{};
    if (!makeWorldRay(query, ray)) {
        return false;
    }
    double parentWorld[16];
    SetIdentity(parentWorld);
    if (root.Parent() != nullptr) {
        root.Parent()->GetWorldTransform(parentWorld);
    }
    Walk walk{query, ray, {}, {}};
    collect(root, parentWorld, walk);
    PickResult hit;
    if (!PickNearest(walk.instances, query, hit)) {
        return false;
    }
    result.node = walk.nodes[hit.instance];
    result.hit = hit;
    result.id = result.node->GetRenderId();
    if (hit.partIndex != kNoPart) {
        result.id.AddValue(result.node->GetGeometry()->Parts()[hit.partIndex].id);
    }
    return true;
}

} // namespace TambVizCore
