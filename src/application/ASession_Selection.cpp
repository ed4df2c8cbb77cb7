// Selection, highlight and zoom in view and tree, and the conversions between their identifiers.
#include "SessionTexts.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/AViewTree.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/ICameraProvider.h"
#include "OrvikCore/IContentRenderer.h"

#include <TambVizCore/AllowThrow.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/SelectionHolder.h>
#include <TambVizCore/VizBox.h>

#include <stdexcept>

namespace OrvikCore {

using TambVizCore::EntityId;
using TambVizCore::IView3D;
using TambVizCore::RenderId;

namespace {

void HighlightInView(IView3D* view, const RenderId& id)
{
    if (view == nullptr) {
        return;
    }
    if (id.IsEmpty()) {
        view->GetSelectionHolder()->ClearHighlight();
    } else {
        view->GetSelectionHolder()->Highlight(id);
    }
}

void SelectInView(IView3D* view, const RenderId& id)
{
    if (view == nullptr) {
        return;
    }
    if (id.IsEmpty()) {
        view->GetSelectionHolder()->ClearSelection();
    } else {
        view->GetSelectionHolder()->Select(id);
    }
}

void SelectAllInView(IView3D* view, const std::vector<RenderId>& ids)
{
    for (const RenderId& id : ids) {
        SelectInView(view, id);
    }
}

void HighlightInTree(AViewTree& tree, const RenderId& id)
{
    if (id.IsEmpty()) {
        tree.ClearHighlight();
    } else {
        tree.HighlightNode(id);
    }
}

void ReportUnknownOrigin()
{
    if (TambVizCore::GetAllowThrow()) {
        throw std::invalid_argument(kUnknownOrigin);
    }
}

/// Throws that @p entity does not convert, unless it names nothing that could.
void ReportNotConverted(const EntityId& entity, const char* target)
{
    const auto type = static_cast<std::uint64_t>(entity.Type());
    const bool isBlank = entity.Value() == entity.Owner() && entity.Owner() == type;
    const bool isExcused = isBlank || entity.Type() == TambVizCore::EntityType::NonGraphical;
    if (!isExcused && TambVizCore::GetAllowThrow()) {
        throw std::invalid_argument(kCouldNotConvert + entity.ToString() + target);
    }
}

bool ZoomCamera(ICameraProvider& provider, const TambVizCore::VizBox& box)
{
    ACamera* const camera = provider.GetCamera();
    if (camera == nullptr) {
        return false;
    }
    const double* const lo = box.Lo();
    const double* const hi = box.Hi();
    camera->ZoomToBox(static_cast<float>(lo[0]), static_cast<float>(lo[1]),
                      static_cast<float>(lo[2]), static_cast<float>(hi[0]),
                      static_cast<float>(hi[1]), static_cast<float>(hi[2]));
    return true;
}

} // namespace

bool ASession::convert3DViewRenderIdToEntityId(const RenderId& id, EntityId& entity,
                                               IContentRenderer*& renderer) const
{
    for (AContent* content : m_document->GetContentList()) {
        IContentRenderer* const candidate = Get3DRenderer(content);
        if (candidate != nullptr && candidate->ConvertToEntityId(id, entity)) {
            renderer = candidate;
            return true;
        }
    }
    return false;
}

bool ASession::convert3DViewEntityIdToRenderId(const EntityId& entity, RenderId& id,
                                               IContentRenderer*& renderer) const
{
    for (AContent* content : m_document->GetContentList()) {
        IContentRenderer* const candidate = Get3DRenderer(content);
        if (candidate != nullptr && candidate->ConvertToRenderId(entity, id)) {
            renderer = candidate;
            return true;
        }
    }
    return false;
}

bool ASession::convertToViewTreeId(const RenderId& id3d, RenderId& treeId) const
{
    EntityId entity;
    IContentRenderer* renderer = nullptr;
    if (!convert3DViewRenderIdToEntityId(id3d, entity, renderer)) {
        ReportNotConverted(entity, kToTreeId);
        return false;
    }
    ARendererTree* const treeRenderer = GetTreeRenderer();
    return treeRenderer == nullptr || treeRenderer->ConvertToRenderId(entity, treeId);
}

bool ASession::convertToView3DId(const RenderId& treeId, std::vector<RenderId>& ids3d) const
{
    ids3d.clear();
    EntityId entity;
    ARendererTree* const treeRenderer = GetTreeRenderer();
    if (treeRenderer == nullptr || !treeRenderer->ConvertToEntityId(treeId, entity)) {
        return false;
    }
    RenderId id3d;
    IContentRenderer* renderer = nullptr;
    if (!convert3DViewEntityIdToRenderId(entity, id3d, renderer)) {
        ReportNotConverted(entity, kToView3DId);
        return false;
    }
    return renderer->ExpandRenderId(id3d, ids3d);
}

void ASession::Highlight(const EntityId& id)
{
    RenderId id3d;
    IContentRenderer* renderer = nullptr;
    if (convert3DViewEntityIdToRenderId(id, id3d, renderer)) {
        id3d.SetOrigin(RenderId::kOriginView3D);
        Highlight(id3d);
    } else if (TambVizCore::GetAllowThrow()) {
        throw std::invalid_argument(kNotConvertedInHighlight);
    }
}

void ASession::Highlight(const RenderId& id)
{
    if (id.Origin() == RenderId::kOriginView3D) {
        HighlightInView(m_view, id);
        RenderId treeId;
        if (m_viewTree != nullptr && convertToViewTreeId(id, treeId)) {
            HighlightInTree(*m_viewTree, treeId);
        }
    } else if (id.Origin() == RenderId::kOriginTree) {
        std::vector<RenderId> ids3d;
        if (m_view != nullptr && convertToView3DId(id, ids3d)) {
            // Deliberate: a highlight that comes from the tree selects in the view.
            // Held by ASessionSelection.HighlightOfATreeIdSelectsInTheView.
            SelectAllInView(m_view, ids3d);
        }
    } else {
        ReportUnknownOrigin();
    }
}

void ASession::UnHighlight() const
{
    if (m_view != nullptr) {
        m_view->GetSelectionHolder()->ClearHighlight();
    }
    if (m_viewTree != nullptr) {
        m_viewTree->ClearHighlight();
    }
}

void ASession::Select(const EntityId& id)
{
    RenderId id3d;
    IContentRenderer* renderer = nullptr;
    if (convert3DViewEntityIdToRenderId(id, id3d, renderer)) {
        id3d.SetOrigin(RenderId::kOriginView3D);
        Select(id3d);
    } else {
        // Deliberate: printed, where Highlight throws.
        // Held by ASessionSelection.SelectOfAnUnknownEntityPrintsAndNeverThrows.
        PrintMessage(kNotConvertedInSelect, MessageType::Output);
    }
}

void ASession::Select(const RenderId& id)
{
    bool isConverted = false;
    if (id.Origin() == RenderId::kOriginView3D) {
        SelectInView(m_view, id);
        RenderId treeId;
        if (m_viewTree != nullptr && convertToViewTreeId(id, treeId)) {
            // Deliberate: the tree shows a selection as a highlight.
            // Held by ASessionSelection.SelectOfAViewIdHighlightsInTheTree.
            HighlightInTree(*m_viewTree, treeId);
            isConverted = true;
        }
    } else if (id.Origin() == RenderId::kOriginTree) {
        std::vector<RenderId> ids3d;
        if (m_view != nullptr && convertToView3DId(id, ids3d)) {
            SelectAllInView(m_view, ids3d);
            isConverted = true;
        }
    } else {
        ReportUnknownOrigin();
    }
    if (isConverted) {
        ShowToolTip(id);
    }
}

void ASession::UnSelect() const
{
    if (m_view != nullptr) {
        m_view->GetSelectionHolder()->ClearSelection();
    }
    if (m_viewTree != nullptr) {
        m_viewTree->ClearHighlight();
    }
}

bool ASession::ZoomTo(const EntityId& id)
{
    auto* const provider = dynamic_cast<ICameraProvider*>(m_view);
    TambVizCore::VizBox box;
    return provider != nullptr && m_view->GetBoundingBox(id, box) && ZoomCamera(*provider, box);
}

bool ASession::ZoomTo(const RenderId& id)
{
    if (id.Origin() == RenderId::kOriginView3D) {
        // Deliberate: nothing. Held by ASessionSelection.ZoomToAViewIdLeavesTheCameraAlone.
        return false;
    }
    if (id.Origin() != RenderId::kOriginTree) {
        ReportUnknownOrigin();
        return false;
    }
    auto* const provider = dynamic_cast<ICameraProvider*>(m_view);
    std::vector<RenderId> ids3d;
    if (provider == nullptr || !convertToView3DId(id, ids3d) || ids3d.empty() ||
        ids3d.front().IsEmpty()) {
        return false;
    }
    TambVizCore::VizBox box;
    return m_view->GetBoundingBox(ids3d.front(), box) && ZoomCamera(*provider, box);
}

} // namespace OrvikCore
