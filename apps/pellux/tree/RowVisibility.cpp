#include "tree/RowVisibility.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IContentRenderer.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>

#include <algorithm>
#include <vector>

namespace Pellux {

using TambVizCore::EntityId;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::PartState;
using TambVizCore::RenderId;

namespace {

bool hasHiddenPart(const Node& node)
{
    const GeoNode* const drawn = node.AsGeoNode();
    if (drawn == nullptr)
        return false;
    const auto states = drawn->PartStates();
    return std::any_of(states.begin(), states.end(),
                       [](const PartState& state) { return !state.Has(PartState::kShown); });
}

} // namespace

RowVisibility::RowVisibility(OrvikCore::ASession& session) : m_session(session) {}

bool RowVisibility::Place::IsShown() const
{
    if (part < 0)
        return node->IsVisible();
    return node->AsGeoNode()->PartStates()[static_cast<std::size_t>(part)].Has(PartState::kShown);
}

Shown RowVisibility::Of(const EntityId& entity)
{
    const Place place = find(entity);
    if (place.node == nullptr)
        return Shown::Undrawn;
    if (!place.IsShown())
        return Shown::No;
    collect();
    return place.part < 0 && m_partly.count(place.node) != 0 ? Shown::Partly : Shown::Yes;
}

bool RowVisibility::IsSeen(const EntityId& entity)
{
    const Place place = find(entity);
    return place.node == nullptr || (place.IsShown() && place.node->IsVisibleInScene());
}

Node* RowVisibility::sceneRoot() const
{
    TambVizCore::IView3D* const view = m_session.View3D();
    return view == nullptr ? nullptr : &view->GetSceneRoot();
}

RowVisibility::Place RowVisibility::find(const EntityId& entity) const
{
    Node* const root = sceneRoot();
    if (root == nullptr)
        return {};
    for (OrvikCore::AContent* const content : m_session.Document().GetContentList()) {
        OrvikCore::IContentRenderer* const renderer =
            content == nullptr ? nullptr : m_session.Get3DRenderer(content);
        RenderId id;
        if (renderer == nullptr || !renderer->ConvertToRenderId(entity, id))
            continue;
        const TambVizCore::NodeMatch match = TambVizCore::FindRenderId(*root, id);
        return {match.node, match.part};
    }
    return {};
}

/// Finds what lies above something hidden, unless nothing has changed since the last time.
void RowVisibility::collect()
{
    Node* const root = sceneRoot();
    if (root == nullptr || (m_isCollected && m_stamp == root->Stamps().subtree))
        return;
    m_isCollected = true;
    m_stamp = root->Stamps().subtree;
    m_partly.clear();
    std::vector<const Node*> open{root};
    while (!open.empty()) {
        const Node& node = *open.back();
        open.pop_back();
        const bool isPartly = hasHiddenPart(node);
        if (!node.IsVisible() || isPartly)
            for (const Node* above = isPartly ? &node : node.Parent();
                 above != nullptr && m_partly.insert(above).second; above = above->Parent()) {
            }
        for (std::size_t i = 0; i < node.ChildCount(); ++i)
            if (!node.ChildAt(i)->IsAuxiliary())
                open.push_back(node.ChildAt(i));
    }
}

} // namespace Pellux
