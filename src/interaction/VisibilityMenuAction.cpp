#include "OrvikCore/VisibilityMenuAction.h"

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/SessionMgr.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/AttributeVisibility.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/IViewDoUndoStrategy.h>
#include <TambVizCore/RenderId.h>

#include <vector>

namespace OrvikCore {

namespace {

using TambVizCore::RenderId;

/// Lists what draws the entity of a tree path; empty when the path shows no entity.
/// @return false when the entity cannot be found in the 3D view.
bool findItems(ARendererTree& tree, IContentRenderer& renderer, const RenderId& node,
               std::vector<RenderId>& items)
{
    TambVizCore::EntityId entity;
    if (!tree.ConvertToEntityId(node, entity)) {
        return true;
    }
    RenderId item;
    std::vector<RenderId> expanded;
    if (!renderer.ConvertToRenderId(entity, item) || !renderer.ExpandRenderId(item, expanded)) {
        return false;
    }
    for (const RenderId& id : expanded) {
        if (!id.IsEmpty()) {
            items.push_back(id);
        }
    }
    return true;
}

TambVizCore::IViewDoUndoStrategy* undoStrategy(TambVizCore::IView3D& view)
{
    TambVizCore::AView3DAdapter* adapter = view.GetView3DAdapter();
    return adapter != nullptr
               ? dynamic_cast<TambVizCore::IViewDoUndoStrategy*>(adapter->GetHighlightStrategy())
               : nullptr;
}

} // namespace

VisibilityMenuAction::VisibilityMenuAction(bool isVisible) : visible(isVisible) {}

bool VisibilityMenuAction::Run(const RenderId& node)
{
    if (node.Origin() != RenderId::kOriginTree) {
        return false;
    }
    ASession& session = SessionMgr::Instance().CurrentSession();
    IContentRenderer* renderer = session.Get3DRendererForFirstContent();
    ARendererTree* tree = session.GetTreeRenderer();
    TambVizCore::IView3D* view = session.View3D();
    if (renderer == nullptr || tree == nullptr || view == nullptr) {
        return false;
    }
    TambVizCore::IViewDoUndoStrategy* strategy = undoStrategy(*view);
    std::vector<RenderId> items;
    if (strategy == nullptr || !findItems(*tree, *renderer, node, items)) {
        return false;
    }
    if (!items.empty()) {
        strategy->ApplyToAll(items, TambVizCore::AttributeVisibility(visible));
    }
    view->UpdateDisplay();
    return true;
}

} // namespace OrvikCore
