#include "TambVizCore/ScenePick.h"

#include "TambVizCore/GeoNode.h"
#include "TambVizCore/Geometry.h"
#include "TambVizCore/Matrix.h"

#include <algorithm>
#include <cmath>
#include <limits>

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

/// An instance whose box the ray meets.
struct Met
{
    std::size_t instance;
    double enter; ///< Along the ray, nothing of the instance lies before; world units.
};

/// An instance that the ray may hit, with the query in the units of its geometry.
struct Candidate
{
    std::size_t instance;
    const IGeometryIndex* index; ///< Null for an instance scaled to nothing.
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
    if (ray.radiusGrowth == 0.0) {
        return ray.radius;
    }
    float center[3];
    box.GetCenter(center);
    const double away =
        std::hypot(static_cast<double>(center[0]) - static_cast<double>(ray.origin[0]),
                   static_cast<double>(center[1]) - static_cast<double>(ray.origin[1]),
                   static_cast<double>(center[2]) - static_cast<double>(ray.origin[2]));
    return ray.ApertureAt(away + box.Radius());
}

double scaleOf(const double* world)
{
    return std::cbrt(std::abs(Determinant3x3(world)));
}

/// @param margin  what lies around the box by as much counts as well.
/// @param enter   receives where the ray enters the box grown by its aperture.
bool meets(const WorldRay& ray, const VizBox& box, double margin, double& enter)
{
    double leave = kInfinity;
    enter = 0.0;
    return !box.IsEmpty() &&
           box.Clip(ray.origin, ray.direction, largestAperture(ray, box) + margin, enter, leave);
}

/// How far faces of an instance may lie around the box of its triangles.
double marginOf(const PickInstance& instance)
{
    const auto deviation = static_cast<double>(instance.geometry->Index()->Deviation());
    return deviation > 0.0 ? deviation * scaleOf(instance.world) : 0.0;
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

void fillCandidate(std::size_t position, const PickInstance& instance, const WorldRay& ray,
                   std::span<const ClipPlane> planes, Candidate& candidate)
{
    candidate.instance = position;
    candidate.index = nullptr;
    if (!InvertMatrix(instance.world, candidate.inverse)) {
        return;
    }
    candidate.index = instance.geometry->Index();
    candidate.kinds = instance.kinds;
    std::copy(instance.world, instance.world + 16, candidate.world);
    candidate.scale = scaleOf(instance.world);
    GeometryQuery& query = candidate.query;
    TransformPoint(candidate.inverse, ray.origin, query.origin);
    TransformDirection(candidate.inverse, ray.direction, query.direction);
    query.radius = static_cast<float>(ray.radius / candidate.scale);
    query.radiusGrowth = static_cast<float>(ray.radiusGrowth / candidate.scale);
    query.partStates = instance.partStates;
    for (const ClipPlane& plane : planes) {
        candidate.planes.push_back(toLocal(plane, instance.world));
    }
    query.clipPlanes = candidate.planes;
}

/// The instances that the ray meets, nearest first. Each is made ready when it is asked for, so
/// that those behind what is hit cost nothing but their boxes.
class Candidates
{
public:
    Candidates(std::span<const PickInstance> instances, const WorldRay& ray,
               std::span<const ClipPlane> planes);

    /// @return the candidate of a rank, if it may reach to a distance that is not beyond a limit;
    ///         else null, and then all of higher ranks are beyond as well. Valid while this lives.
    Candidate* At(std::size_t rank, double limit);

private:
    std::span<const PickInstance> m_instances;
    const WorldRay& m_ray;
    std::span<const ClipPlane> m_planes;
    std::vector<Met> m_met;
    std::vector<Candidate> m_ready; ///< By rank; reserved for all, so that none moves.
};

Candidates::Candidates(std::span<const PickInstance> instances, const WorldRay& ray,
                       std::span<const ClipPlane> planes)
    : m_instances(instances), m_ray(ray), m_planes(planes)
{
    for (std::size_t i = 0; i < instances.size(); ++i) {
        const Geometry* const geometry = instances[i].geometry;
        double enter = 0.0;
        if (geometry != nullptr && geometry->Index() != nullptr &&
            meets(ray, geometry->BoundingBox().Transformed(instances[i].world),
                  marginOf(instances[i]), enter)) {
            m_met.push_back({i, enter});
        }
    }
    std::sort(m_met.begin(), m_met.end(), [](const Met& a, const Met& b) {
        return a.enter < b.enter || (a.enter == b.enter && a.instance < b.instance);
    });
    m_ready.reserve(m_met.size());
}

Candidate* Candidates::At(std::size_t rank, double limit)
{
    // Hits are single precision, boxes are not: one that begins at the limit is not beyond.
    if (rank >= m_met.size() || m_met[rank].enter > limit + std::abs(limit) * 1e-6) {
        return nullptr;
    }
    while (m_ready.size() <= rank) {
        const std::size_t instance = m_met[m_ready.size()].instance;
        fillCandidate(instance, m_instances[instance], m_ray, m_planes, m_ready.emplace_back());
    }
    return &m_ready[rank];
}

bool hasKind(const Candidate& candidate, PartKind kind)
{
    return candidate.index != nullptr && (candidate.kinds & ToPartKinds(kind)) != 0;
}

Best findFace(Candidates& candidates)
{
    Best best;
    float limit = std::numeric_limits<float>::max();
    for (std::size_t rank = 0;; ++rank) {
        Candidate* const candidate = candidates.At(rank, static_cast<double>(limit));
        if (candidate == nullptr) {
            return best;
        }
        candidate->query.maxDistance = limit;
        GeometryHit hit;
        if (!hasKind(*candidate, PartKind::Face) ||
            !candidate->index->FindFace(candidate->query, hit)) {
            continue;
        }
        // Of equally near ones, the first of the list counts.
        if (best.candidate == nullptr || hit.distance < limit ||
            candidate->instance < best.candidate->instance) {
            best = {candidate, hit};
            limit = hit.distance;
        }
    }
}

/// Finds the edge or vertex that passes nearest to the ray, not farther away than a limit.
Best findThin(Candidates& candidates, PartKind kind, const WorldRay& ray, float limit)
{
    Best best;
    double bestDeviation = kInfinity;
    for (std::size_t rank = 0;; ++rank) {
        Candidate* const candidate = candidates.At(rank, static_cast<double>(limit));
        if (candidate == nullptr) {
            return best;
        }
        candidate->query.maxDistance = limit;
        GeometryHit hit;
        if (!hasKind(*candidate, kind) ||
            !(kind == PartKind::Vertex ? candidate->index->FindVertex(candidate->query, hit)
                                       : candidate->index->FindEdge(candidate->query, hit))) {
            continue;
        }
        const double deviation = static_cast<double>(hit.deviation) * candidate->scale;
        const double tie = 1e-6 * ray.ApertureAt(static_cast<double>(hit.distance));
        const bool isEarlier =
            best.candidate != nullptr &&
            (hit.distance < best.hit.distance ||
             (hit.distance == best.hit.distance && candidate->instance < best.candidate->instance));
        if (deviation < bestDeviation - tie || (deviation <= bestDeviation + tie && isEarlier)) {
            best = {candidate, hit};
            bestDeviation = deviation;
        }
    }
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
    double enter = 0.0;
    if (!meets(walk.ray, node.SubtreeBounds().Transformed(instance.world), 0.0, enter)) {
        return;
    }
    const GeoNode* const geoNode = node.AsGeoNode();
    if (geoNode != nullptr && geoNode->GetGeometry() != nullptr && isWanted(*geoNode, walk.query)) {
        instance.geometry = geoNode->GetGeometry().get();
        instance.partStates = geoNode->PartStates();
        if (geoNode->GetCategory() == GeoNode::Category::Model) {
            instance.kinds = walk.query.modelKinds;
        }
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
    // 1. The instances whose boxes the ray meets.
    WorldRay ray{};
    if (!makeWorldRay(query, ray)) {
        return false;
    }
    Candidates candidates(instances, ray, query.clipPlanes);

    // 2. The nearest face; it hides what lies behind it by more than the aperture.
    const bool wantsFace = (query.kinds & ToPartKinds(PartKind::Face)) != 0;
    const Best face = wantsFace || query.facesHide ? findFace(candidates) : Best{};
    float limit = std::numeric_limits<float>::max();
    if (face.candidate != nullptr && query.facesHide) {
        // Edges lie where triangles end, also where the exact face bulges in front of them.
        const auto distance =
            static_cast<double>(std::max(face.hit.distance, face.hit.facetDistance));
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
