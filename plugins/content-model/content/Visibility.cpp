#include "content/Visibility.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>
#include <utility>

namespace OrvikModel {

using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartState;
using TambVizCore::RenderingOptions;

namespace {

bool isSwitchedOff(const GeoNode& node, const RenderingOptions* options)
{
    switch (node.GetCategory()) {
    case GeoNode::Category::PointCloud:
        return options && !options->GetShowPointClouds();
    case GeoNode::Category::PMI:
        return options && !options->GetShowPMI();
    case GeoNode::Category::Model:
        break;
    }
    return false;
}

/// Walks what can be seen below a scene node and marks it as not hidden.
class Capture
{
public:
    Capture(const std::vector<ModelInstance>& instances, const RenderingOptions* options,
            Visibility& visibility)
        : m_instances(instances), m_options(options), m_visibility(visibility)
    {
        m_visibility.hidden.assign(instances.size(), true);
    }

    void Run(const Node& contentNode)
    {
        struct Open
        {
            const Node* node;
            bool isDisplaced; ///< Itself or a node above it.
        };
        std::vector<Open> open;
        if (contentNode.IsVisibleInScene())
            open.push_back({&contentNode, contentNode.IsDisplaced()});
        while (!open.empty()) {
            const auto [node, isDisplaced] = open.back();
            open.pop_back();
            if (const GeoNode* geo = node->AsGeoNode())
                see(*geo, isDisplaced);
            for (std::size_t i = 0; i < node->ChildCount(); ++i)
                if (const Node* child = node->ChildAt(i); child->IsVisible())
                    open.push_back({child, isDisplaced || child->IsDisplaced()});
        }
        const auto& hidden = m_visibility.hidden;
        if (std::find(hidden.begin(), hidden.end(), true) == hidden.end())
            m_visibility.hidden.clear();
        auto& displaced = m_visibility.displaced;
        std::sort(displaced.begin(), displaced.end(),
                  [](const auto& a, const auto& b) { return a.instance < b.instance; });
    }

private:
    void see(const GeoNode& node, bool isDisplaced)
    {
        const auto found = std::lower_bound(m_instances.begin(), m_instances.end(), node.Id(),
                                            [](const ModelInstance& instance, std::uint64_t id) {
                                                return instance.node->number < id;
                                            });
        if (found == m_instances.end() || found->node->number != node.Id() ||
            isSwitchedOff(node, m_options))
            return;
        const auto position = static_cast<std::size_t>(found - m_instances.begin());
        m_visibility.hidden[position] = false;
        if (node.GetCategory() != GeoNode::Category::Model)
            m_visibility.beside.insert(position);
        if (isDisplaced)
            node.GetWorldTransform(
                m_visibility.displaced.emplace_back(Visibility::Displaced{position, {}})
                    .world.data());
        const auto states = node.PartStates();
        if (std::any_of(states.begin(), states.end(),
                        [](const PartState& state) { return !state.Has(PartState::kShown); }))
            m_visibility.masks[position] = {node.GetGeometry(), {states.begin(), states.end()}};
    }

    const std::vector<ModelInstance>& m_instances;
    const RenderingOptions* m_options; ///< Not owned; may be null.
    Visibility& m_visibility;
};

} // namespace

std::shared_ptr<const PlacedInstances> PlaceInstances(std::vector<ModelInstance> instances)
{
    std::vector<TambVizCore::VizBox> boxes;
    boxes.reserve(instances.size());
    for (const ModelInstance& instance : instances)
        boxes.push_back(instance.node->shape->BoundingBox().Transformed(instance.world));
    auto placed = std::make_shared<PlacedInstances>();
    placed->tree = OrvikRay::InstanceTree(boxes);
    placed->instances = std::move(instances);
    return placed;
}

std::span<const PartState> Visibility::StatesOf(std::size_t instance,
                                                const TambVizCore::Geometry& geometry) const
{
    if (masks.empty())
        return {};
    const auto mask = masks.find(instance);
    if (mask == masks.end() || mask->second.geometry.get() != &geometry)
        return {};
    return mask->second.states;
}

void CaptureVisibility(const std::vector<ModelInstance>& instances, TambVizCore::IView3D& view,
                       const Node& contentNode, Visibility& visibility)
{
    TambVizCore::AView3DAdapter* adapter = view.GetView3DAdapter();
    const RenderingOptions* options = adapter ? adapter->GetRenderingOptions() : nullptr;
    if (options) {
        visibility.planes = options->GetClipPlanes();
        visibility.modelKinds = options->ShownKinds();
    }
    Capture(instances, options, visibility).Run(contentNode);
}

} // namespace OrvikModel
