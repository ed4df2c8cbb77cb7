#include "OrvikModel/ModelRenderer3D.h"
#include "content/SavedViews.h"
#include "content/Visibility.h"

#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/SelectionHolder.h>

// What can be seen of a model, what of it is marked, and its saved views.

namespace OrvikModel {

using TambVizCore::Node;
using TambVizCore::RenderId;

void ModelRenderer3D::CaptureVisibility(const std::vector<ModelInstance>& instances,
                                        Visibility& visibility) const
{
    if (const Node* node = contentNode())
        OrvikModel::CaptureVisibility(instances, m_view, *node, visibility);
}

bool ModelRenderer3D::HighlightAlike(const RenderId& id)
{
    Match match;
    TambVizCore::SelectionHolder* marks = m_view.GetSelectionHolder();
    if (!marks || !findNode(id, match))
        return false;
    marks->Highlight(id);
    if (!match.node || !match.node->shape)
        return true;
    for (const ModelNode* node : m_model->InOrder()) {
        const Node* scene = node->shape == match.node->shape ? sceneNode(*node) : nullptr;
        if (!scene)
            continue;
        RenderId alike = scene->GetRenderId();
        if (match.partId != 0)
            alike.AddValue(match.partId);
        marks->AddHighlight(alike);
    }
    return true;
}

bool ModelRenderer3D::ShowView(const ModelNode& saved)
{
    if (saved.kind != NodeKind::View && saved.kind != NodeKind::Capture)
        return false;
    showOnly(ShownByCapture(*m_model, saved));
    return saved.camera && ShowCamera(*saved.camera, m_view);
}

/// Shows and hides what draws; groups are shown, because what is below them decides.
void ModelRenderer3D::showOnly(const std::vector<bool>& shown)
{
    for (std::size_t i = 0; i < shown.size(); ++i) {
        const ModelNode& node = *m_model->InOrder()[i];
        if (Node* scene = sceneNode(node))
            scene->SetVisible(shown[i] || !node.shape);
    }
}

} // namespace OrvikModel
