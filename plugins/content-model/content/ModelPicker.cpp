#include "content/ModelPicker.h"

#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "content/LinePiercer.h"

#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/ScenePick.h>
#include <TambVizCore/VisibilityStamp.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace OrvikModel {

using OrvikCore::LineHit;
using TambCommandsInfra::CallGate;
using TambVizCore::EntityId;
using TambVizCore::Geometry;
using TambVizCore::PickInstance;
using TambVizCore::PickQuery;
using TambVizCore::PickResult;
using TambVizCore::Ray;

ModelPicker::ModelPicker(std::shared_ptr<const Model> model, std::shared_ptr<const SceneLink> link)
    : m_model(std::move(model)), m_link(std::move(link))
{
}

ModelPicker::~ModelPicker() = default;

const PlacedInstances& ModelPicker::atHome() const
{
    std::call_once(m_prepareOnce, [this] {
        std::vector<ModelInstance> instances;
        for (const ModelNode* node : m_model->InOrder()) {
            if (!node->shape)
                continue;
            ModelInstance& instance = instances.emplace_back();
            instance.node = node;
            GetWorldTransform(*node, instance.world);
        }
        m_home = PlaceInstances(std::move(instances));
    });
    return *m_home;
}

/// @return what can be seen at present.
std::shared_ptr<const Visibility> ModelPicker::visibility() const
{
    std::shared_ptr<const Visibility> kept = m_visibility.Get();
    if (kept->stamp == TambVizCore::GetVisibilityStamp())
        return kept;
    const std::vector<ModelInstance>& home = atHome().instances;
    Visibility now;
    CallGate::Call([this, &home, &now] {
        now.stamp = TambVizCore::GetVisibilityStamp();
        if (m_link->renderer)
            m_link->renderer->CaptureVisibility(home, now);
    });
    if (!now.displaced.empty() && now.displaced == kept->displaced) {
        now.placed = kept->placed;
    } else if (!now.displaced.empty()) {
        std::vector<ModelInstance> instances = home;
        for (const Visibility::Displaced& displaced : now.displaced)
            std::copy_n(displaced.world.data(), 16, instances[displaced.instance].world);
        now.placed = PlaceInstances(std::move(instances));
    }
    m_visibility.Set(std::move(now));
    return m_visibility.Get();
}

bool ModelPicker::Pick(const Ray& ray, TambVizCore::PartKinds kinds, EntityId& hit) const
{
    const OrvikOs::FpMasked masked;
    PickQuery query;
    query.ray = ray;
    query.kinds = kinds;
    // Who asks for one kind finds it also where it is not displayed.
    const TambVizCore::PartKinds wanted = kinds == TambVizCore::kAllPartKinds ? 0u : kinds;
    const std::shared_ptr<const Visibility> seen = visibility();
    const PlacedInstances& shown = seen->placed ? *seen->placed : atHome();
    query.clipPlanes = seen->planes;
    std::vector<std::size_t> found;
    shown.tree.Find(query, found);
    std::erase_if(found, [&seen](std::size_t position) { return seen->IsHidden(position); });
    std::vector<PickInstance> instances;
    std::vector<std::shared_ptr<const Geometry>> geometries; // A shape may change its geometry.
    instances.reserve(found.size());
    geometries.reserve(found.size());
    for (const std::size_t position : found) {
        geometries.push_back(shown.instances[position].node->shape->WithParts());
        PickInstance& instance = instances.emplace_back();
        instance.geometry = geometries.back().get();
        instance.partStates = seen->StatesOf(position, *geometries.back());
        instance.kinds = seen->KindsOf(position) | wanted;
        std::copy_n(shown.instances[position].world, 16, instance.world);
    }
    PickResult result;
    if (!TambVizCore::PickNearest(instances, query, result))
        return false;
    const auto& parts = geometries[result.instance]->Parts();
    const std::uint64_t partId =
        result.partIndex == TambVizCore::kNoPart ? 0 : parts[result.partIndex].id;
    hit = MakeEntity(*m_model, *shown.instances[found[result.instance]].node, partId);
    return true;
}

bool ModelPicker::Intersect(const double* origin, const double* direction, bool visibleOnly,
                            std::vector<LineHit>& hits) const
{
    const OrvikOs::FpMasked masked;
    WorldLine line;
    if (!MakeWorldLine(origin, direction, line))
        return false;
    PickQuery query;
    query.ray = ToRay(line);
    const auto seen = visibleOnly ? visibility() : std::make_shared<const Visibility>();
    const PlacedInstances& placed = seen->placed ? *seen->placed : atHome();
    std::vector<std::size_t> found;
    placed.tree.Find(query, found);
    std::vector<LineHit> all;
    for (const std::size_t position : found)
        if (!seen->IsHidden(position))
            PierceShape(*m_model, position, placed.instances[position], line, *seen, all);
    if (all.empty())
        return false;
    std::stable_sort(all.begin(), all.end(),
                     [](const LineHit& a, const LineHit& b) { return a.distance < b.distance; });
    hits = std::move(all);
    return true;
}

} // namespace OrvikModel
