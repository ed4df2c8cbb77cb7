#include "PelluxSession.h"

#include "SessionTreeRenderer.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/AContent.h>
#include <OrvikCore/AContentRendererFactory.h>
#include <OrvikCore/ARendererTree.h>
#include <OrvikCore/ASessionFactory.h>
#include <OrvikCore/AViewTree.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/ICameraProvider.h>
#include <OrvikCore/IContentRenderer.h>
#include <OrvikCore/SessionMgr.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderId.h>
#include <TambVizCore/SelectionHolder.h>

#include <memory>

namespace Pellux {

using OrvikCore::AContent;
using OrvikCore::IContentRenderer;
using OrvikCore::SessionMgr;
using TambVizCore::EntityId;

PelluxSession::PelluxSession() : ASession(OrvikCore::ASessionFactory::GetNextId()) {}

PelluxSession::~PelluxSession()
{
    // The base frees no renderer, and renderers refer to the view and the contents.
    ASession::DeleteAllRenderers();
}

void PelluxSession::SetPickedEntities(const std::vector<EntityId>& picked)
{
    if (picked.empty()) {
        UnSelect();
        return;
    }
    m_picks.inOrder = picked;
    m_picks.present = {picked.begin(), picked.end()};
    drawPicks();
}

std::vector<EntityId> PelluxSession::GetPickedEntities() const
{
    return m_picks.inOrder;
}

void PelluxSession::Highlight(const EntityId& id)
{
    ASession::Highlight(id);
    SetPickedEntities({id});
}

void PelluxSession::Select(const EntityId& id)
{
    ASession::Select(id);
    if (m_picks.present.insert(id).second)
        m_picks.inOrder.push_back(id);
}

void PelluxSession::UnSelect() const
{
    ASession::UnSelect();
    ASession::UnHighlight();
    m_picks = {};
    drawPicks();
}

void PelluxSession::drawPicks() const
{
    TambVizCore::IView3D* const view = View3D();
    if (view == nullptr)
        return;
    std::vector<TambVizCore::RenderId> ids;
    for (const EntityId& entity : m_picks.inOrder) {
        TambVizCore::RenderId id;
        IContentRenderer* renderer = nullptr;
        if (!convert3DViewEntityIdToRenderId(entity, id, renderer))
            continue;
        id.SetOrigin(TambVizCore::RenderId::kOriginView3D);
        ids.push_back(id);
    }
    view->GetSelectionHolder()->SetPicked(ids);
}

void PelluxSession::BeginProgress(const std::wstring& what)
{
    TambCommandsInfra::Progress::Instance().BeginPhase(what);
}

void PelluxSession::ReportProgress(double fraction)
{
    TambCommandsInfra::Progress::Instance().Report(fraction);
}

void PelluxSession::EndProgress()
{
    TambCommandsInfra::Progress::Instance().End();
}

bool PelluxSession::IsCancelRequested() const
{
    return TambCommandsInfra::CancelToken::Instance().IsCancelled();
}

void PelluxSession::UpdateAfterUndoRedo()
{
    UpdateAfterContentModified();
}

void PelluxSession::UpdateAfterContentModified()
{
    if (!isUpdateOnContentModified())
        return;
    for (AContent* const content : Document().GetContentList()) {
        if (content == nullptr)
            continue;
        if (IContentRenderer* const renderer = Get3DRenderer(content))
            renderer->Rerender();
        else
            CreateContentRenderer(*content);
    }
    RefreshTree();
}

void PelluxSession::UpdateDisplay()
{
    if (TambVizCore::IView3D* const view = View3D())
        view->UpdateDisplay();
    ASession::UpdateDisplay();
}

void PelluxSession::Rerender()
{
    if (TambVizCore::IView3D* const view = View3D())
        view->Rerender();
}

void PelluxSession::RefreshTree()
{
    if (OrvikCore::ARendererTree* const renderer = GetTreeRenderer())
        renderer->Rerender();
    else
        EnableTreeRenderer(true);
}

void PelluxSession::DeleteAllRenderers()
{
    ASession::DeleteAllRenderers();
    if (OrvikCore::AViewTree* const tree = ViewTree()) {
        // The rows go with the renderer that knows them.
        tree->ClearHighlight();
        tree->ClearAll();
    }
}

void PelluxSession::ZoomAll()
{
    if (auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(View3D()))
        provider->GetCamera()->ZoomAll();
}

bool PelluxSession::ZoomToPicked()
{
    return !m_picks.inOrder.empty() && ZoomTo(m_picks.inOrder.back());
}

void PelluxSession::SetBusy(bool busy)
{
    m_busy.store(busy, std::memory_order_release);
}

bool PelluxSession::IsBusy() const
{
    return m_busy.load(std::memory_order_acquire);
}

IContentRenderer* PelluxSession::CreateContentRenderer(AContent& content)
{
    OrvikCore::AContentRendererFactory* const factory =
        SessionMgr::Instance().GetContentRendererFactory(content.GetTypeName());
    if (factory == nullptr || View3D() == nullptr)
        return nullptr;
    IContentRenderer* const renderer = factory->CreateRenderer(&content, View3D());
    if (renderer == nullptr)
        return nullptr;
    AddRenderer(renderer, /*keep=*/false);
    renderer->Render();
    return renderer;
}

OrvikCore::ARendererTree* PelluxSession::CreateTreeRenderer()
{
    if (ViewTree() == nullptr)
        return nullptr;
    auto renderer = std::make_unique<SessionTreeRenderer>(*this);
    AddRenderer(renderer.get(), /*keep=*/false);
    return renderer.release();
}

} // namespace Pellux
