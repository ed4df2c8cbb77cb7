#include "TambVizCore/AView3DAdapter.h"

#include "TambVizCore/EntityId.h"
#include "TambVizCore/IView3D.h"
#include "TambVizCore/Node.h"
#include "TambVizCore/RenderId.h"
#include "TambVizCore/SelectionHolder.h"

namespace TambVizCore {

AView3DAdapter::AView3DAdapter() = default;

AView3DAdapter::~AView3DAdapter() = default;

void AView3DAdapter::AttachView(IView3D* view)
{
    m_attachedView = view;
}

bool AView3DAdapter::ExpandToRenderIds(const RenderId& id, std::vector<RenderId>& ids)
{
    ids.clear();
    if (id.IsEmpty()) {
        return false;
    }
    ids.push_back(id);
    return true;
}

bool AView3DAdapter::ConvertToEntity(const RenderId& id, EntityId& entity)
{
    entity.Clear();
    return m_attachedView != nullptr &&
           GetRenderIdEntity(m_attachedView->GetSceneRoot(), id, entity);
}

void AView3DAdapter::MakeRenderId(const Node& node, std::uint64_t partId, RenderId& id) const
{
    id = node.GetRenderId();
    if (partId != 0) {
        id.AddValue(partId);
    }
}

bool AView3DAdapter::IsHighlighted(const RenderId& id)
{
    SelectionHolder* const holder =
        m_attachedView != nullptr ? m_attachedView->GetSelectionHolder() : nullptr;
    return holder != nullptr && holder->IsHighlighted(id);
}

} // namespace TambVizCore
