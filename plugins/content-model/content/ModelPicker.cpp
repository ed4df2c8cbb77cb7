#include "content/ModelPicker.h"

#include "OrvikModel/ModelEntity.h"
#include "OrvikModel/ModelRenderer3D.h"
#include "content/LinePiercer.h"

#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/ScenePick.h>
#include <TambVizCore/VisibilityStamp.h>
#include <TambVizCore/VizBox.h>

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
using TambVizCore::VizBox;

ModelPicker::ModelPicker(std::shared_ptr<const Model> model, std::shared_ptr<const SceneLink> link)
    : m_model(std::move(model)), m_link(std::move(link))
{
}

ModelPicker::~ModelPicker() = default;

/// Places the shapes and builds the tree over them, once.
void ModelPicker::prepare() const
{
    std::call_once(m_prepareOnce, [this] {
        std::vector<ModelInstance> instances;
        std::vector<VizBox> boxes;
        for (const ModelNode* node : m_model->InOrder()) {
            if (!node->shape)
                continue;
            ModelInstance instance;
            instance.node = node;
            GetWorldTransform(*node, instance.world);
            instances.push_back(instance);
            boxes.push_back(node->shape->BoundingBox().Transformed(instance.world));
        }
        m_tree = OrvikRay::InstanceTree(boxes);
        m_instances = std::move(instances);
    });
}

/// @return what can be seen at present.
std::shared_ptr<const Visibility> ModelPicker::visibility() const
{
    std::shared_ptr<const Visibility> kept = m_visibility.Get();
    if (kept->stamp == TambVizCore::GetVisibilityStamp())
        return kept;
    CallGate::Call([this] {
        Visibility now;
        now.stamp = TambVizCore::GetVisibilityStamp();
        if (m_link->renderer)
            m_link->renderer->CaptureVisibility(m_instances, now);
        m_visibility.Set(std::move(now));
    });
    return m_visibility.Get();
}

bool ModelPicker::Pick(const Ray& ray, TambVizCore::PartKinds kinds, EntityId& hit) const
{
    const OrvikOs::FpMasked masked;
    prepare();
    PickQuery query;
    query.ray = ray;
    query.kinds = kinds;
    const std::shared_ptr<const Visibility> seen = visibility();
    query.clipPlanes = seen->planes;
    std::vector<std::size_t> found;
    m_tree.Find(query, found);
    std::erase_if(found, [&seen](std::size_t position) { return seen->IsHidden(position); });
    std::vector<PickInstance> instances;
    std::vector<std::shared_ptr<const Geometry>> geometries; // A shape may change its geometry.
    instances.reserve(found.size());
    geometries.reserve(found.size());
    for (const std::size_t position : found) {
        geometries.push_back(m_instances[position].node->shape->WithParts());
        PickInstance& instance = instances.emplace_back();
        instance.geometry = geometries.back().get();
        instance.partStates = seen->StatesOf(position, *geometries.back());
        std::copy_n(m_instances[position].world, 16, instance.world);
    }
    PickResult result;
    if (!TambVizCore::PickNearest(instances, query, result))
        return false;
    const auto& parts = geometries[result.instance]->Parts();
    const std::uint64_t partId =
        result.partIndex == TambVizCore::kNoPart ? 0 : parts[result.partIndex].id;
    hit = MakeEntity(*m_model, *m_instances[found[result.instance]].node, partId);
    return true;
}

bool ModelPicker::Intersect(const double* origin, const double* direction, bool visibleOnly,
                            std::vector<LineHit>& hits) const
{
    const OrvikOs::FpMasked masked;
    prepare();
    WorldLine line;
    if (!MakeWorldLine(origin, direction, line))
        return false;
    PickQuery query;
    query.ray = ToRay(line);
    std::vector<std::size_t> found;
    m_tree.Find(query, found);
    const auto seen = visibleOnly ? visibility() : std::make_shared<const Visibility>();
    std::vector<LineHit> all;
    for (const std::size_t position : found)
        if (!seen->IsHidden(position))
            PierceShape(*m_model, position, m_instances[position], line, *seen, all);
    if (all.empty())
        return false;
    std::stable_sort(all.begin(), all.end(),
                     [](const LineHit& a, const LineHit& b) { return a.distance < b.distance; });
    hits = std::move(all);
    return true;
}

} // namespace OrvikModel
