#include "OrvikCore/ASession.h"

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/AView3D.h"
#include "OrvikCore/AView3DControllerAdapter.h"
#include "OrvikCore/AViewTree.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/IOutputListener.h"
#include "OrvikCore/ISessionObserver.h"
#include "OrvikCore/IViewObjectProvider.h"
#include "OrvikCore/SessionMgr.h"
#include "OrvikCore/View3DFactory.h"

#include <TambVizCore/IRendererReportProvider.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/RenderId.h>

#include <algorithm>
#include <utility>

namespace OrvikCore {

namespace {

/// Hands the address of the report mode to a renderer that reports.
void ShareReportMode(IContentRenderer* renderer, const bool& reportMode)
{
    auto* const reporter = dynamic_cast<TambVizCore::IRendererReportProvider*>(renderer);
    if (reporter != nullptr) {
        reporter->SetRendererReportMode(&reportMode);
    }
}

void Notify(ISessionObserver* observer, SessionEvent event)
{
    if (observer != nullptr) {
        observer->Notify(static_cast<int>(event));
    }
}

} // namespace

ASession::ASession(int id)
    : m_id(id),
      m_document(new OrvikCore::Document(this)),
      m_view(View3DFactory::Instance().CreateView())
{
    m_controllerProvider = dynamic_cast<IControllerProvider*>(m_view);
    if (m_controllerProvider == nullptr) {
        AView3DControllerAdapter* const adapter =
            View3DFactory::Instance().CreateView3DControllerAdapter();
        if (adapter != nullptr) {
            adapter->SetView3D(m_view);
            m_controllerProvider = dynamic_cast<IControllerProvider*>(adapter);
        }
    }
    if (auto* const view = dynamic_cast<AView3D*>(m_view)) {
        view->SetDocument(m_document);
    }
}

ASession::~ASession()
{
    m_outputObserver = nullptr;
    m_controllerProvider = nullptr;
    delete std::exchange(m_view, nullptr);
    delete std::exchange(m_viewTree, nullptr);
    delete std::exchange(m_document, nullptr);
    // Deliberate: renderers and listeners are forgotten, not deleted.
    // Held by ASession.DestructionFreesNoRenderer.
    m_renderers.clear();
    m_outputListeners.Set({});
}

int ASession::Id() const
{
    return m_id;
}

OrvikCore::Document& ASession::Document() const
{
    return *m_document;
}

TambVizCore::IView3D* ASession::View3D() const
{
    return m_view;
}

AViewTree* ASession::ViewTree() const
{
    return m_viewTree;
}

void ASession::SetViewTree(AViewTree* viewTree)
{
    // Deliberate: the tree that is replaced is not deleted.
    // Held by ASession.SettingATreeDeletesNothing.
    m_viewTree = viewTree;
}

Controller* ASession::GetController() const
{
    return m_controllerProvider == nullptr ? nullptr : m_controllerProvider->GetController();
}

Shell* ASession::GetShell() const
{
    return SessionMgr::Instance().GetShell();
}

void ASession::SetOutputObserver(ISessionObserver* observer)
{
    m_outputObserver = observer;
}

void ASession::UpdateDisplay()
{
    Notify(m_outputObserver, SessionEvent::UpdateDisplay);
}

void ASession::UpdatePreferences()
{
    Notify(m_outputObserver, SessionEvent::UpdatePreferences);
}

bool ASession::EnableUpdateOnContentModified(bool enable)
{
    return std::exchange(m_updateOnContentModified, enable);
}

bool ASession::isUpdateOnContentModified() const
{
    return m_updateOnContentModified;
}

bool ASession::SetRenderReportMode(bool enable)
{
    const bool before = std::exchange(m_renderReportMode, enable);
    if (before != enable) {
        for (const auto& [renderer, keep] : m_renderers) {
            ShareReportMode(renderer, m_renderReportMode);
        }
    }
    return before;
}

bool ASession::GetRenderReportMode() const
{
    return m_renderReportMode;
}

void ASession::RegisterOutputCb(IOutputListener* listener)
{
    if (listener == nullptr) {
        return;
    }
    m_outputListeners.Update([listener](std::vector<IOutputListener*>& listeners) {
        if (std::find(listeners.begin(), listeners.end(), listener) == listeners.end()) {
            listeners.push_back(listener);
        }
    });
}

void ASession::UnRegisterOutputCb(IOutputListener* listener)
{
    m_outputListeners.Update(
        [listener](std::vector<IOutputListener*>& listeners) { std::erase(listeners, listener); });
}

void ASession::PrintMessage(const std::wstring& text, const MessageType& type)
{
    if (text.empty()) {
        return;
    }
    // Kept for the whole loop: the list may be replaced meanwhile.
    const auto listeners = m_outputListeners.Get();
    for (IOutputListener* listener : *listeners) {
        listener->PrintMessage(text, type);
    }
    m_lastMessage.Set(text);
}

void ASession::GetLastMessage(std::wstring& text) const
{
    text = *m_lastMessage.Get();
}

void ASession::ClearOutput()
{
    // Kept for the whole loop: the list may be replaced meanwhile.
    const auto listeners = m_outputListeners.Get();
    for (IOutputListener* listener : *listeners) {
        listener->ClearOutput();
    }
}

void ASession::ShowToolTip(const std::wstring& text)
{
    // Kept for the whole loop: the list may be replaced meanwhile.
    const auto listeners = m_outputListeners.Get();
    for (IOutputListener* listener : *listeners) {
        listener->ShowToolTip(text);
    }
}

void ASession::ShowToolTip(const TambVizCore::RenderId& id)
{
    IContentRenderer* renderer = nullptr;
    if (id.Origin() == TambVizCore::RenderId::kOriginView3D) {
        renderer = Get3DRendererForFirstContent();
    } else if (id.Origin() == TambVizCore::RenderId::kOriginTree) {
        renderer = GetTreeRenderer();
    }
    if (renderer == nullptr) {
        return;
    }
    const std::wstring text = renderer->GetToolTip(id);
    if (!text.empty()) {
        ShowToolTip(text);
    }
}

IContentRenderer* ASession::Get3DRendererForFirstContent() const
{
    const std::vector<AContent*>& contents = m_document->GetContentList();
    return contents.empty() ? nullptr : Get3DRenderer(contents.front());
}

IContentRenderer* ASession::Get3DRenderer(AContent* content) const
{
    for (const auto& [renderer, keep] : m_renderers) {
        if (dynamic_cast<ARendererTree*>(renderer) == nullptr && renderer->IsRendererFor(content)) {
            return renderer;
        }
    }
    return nullptr;
}

ARendererTree* ASession::GetTreeRenderer() const
{
    for (const auto& [renderer, keep] : m_renderers) {
        if (auto* const treeRenderer = dynamic_cast<ARendererTree*>(renderer)) {
            return treeRenderer;
        }
    }
    return nullptr;
}

bool ASession::EnableTreeRenderer(bool enable)
{
    ARendererTree* const present = GetTreeRenderer();
    if (present == nullptr) {
        ARendererTree* const created = enable ? CreateTreeRenderer() : nullptr;
        if (created != nullptr) {
            created->Render();
        }
        return false;
    }
    const auto entry = m_renderers.find(present);
    if (!enable && !entry->second) {
        m_renderers.erase(entry);
        delete present;
    }
    return true;
}

void ASession::AddRenderer(IContentRenderer* renderer, bool keep)
{
    ShareReportMode(renderer, m_renderReportMode);
    // Deliberate: a renderer that is known keeps its flag.
    // Held by ASession.AddingARendererAgainKeepsItsFlag.
    m_renderers.emplace(renderer, keep);
}

void ASession::DeleteAllRenderers()
{
    for (const auto& [renderer, keep] : m_renderers) {
        delete renderer;
    }
    m_renderers.clear();
}

void ASession::DrawMarkupObjects(const std::vector<std::vector<double>>& polylines,
                                 const TambVizCore::RGBAColor& color)
{
    if (auto* const provider = dynamic_cast<IViewObjectProvider*>(m_view)) {
        provider->DrawMarkupObjects(polylines, color);
    }
}

void ASession::DrawMarkupObjects(const std::vector<std::vector<double>>& polylines, bool closed,
                                 bool filled, const TambVizCore::RGBAColor& color)
{
    if (auto* const provider = dynamic_cast<IViewObjectProvider*>(m_view)) {
        provider->DrawMarkupObjects(polylines, closed, filled, color);
    }
}

void ASession::DrawArrow(double x1, double y1, double z1, double x2, double y2, double z2)
{
    DrawArrowImpl(x1, y1, z1, x2, y2, z2);
}

void ASession::DrawArrowImpl(double x1, double y1, double z1, double x2, double y2, double z2)
{
    if (auto* const provider = dynamic_cast<IViewObjectProvider*>(m_view)) {
        provider->DrawArrow(x1, y1, z1, x2, y2, z2);
    }
}

void ASession::DrawTessellationData(std::vector<float>& points, std::vector<float>& normals,
                                    std::vector<float>& colors, std::vector<int>& indices)
{
    DrawTessellationDataImpl(points, normals, colors, indices);
}

void ASession::DrawTessellationDataImpl(std::vector<float>& points, std::vector<float>& normals,
                                        std::vector<float>& colors, std::vector<int>& indices)
{
    if (auto* const provider = dynamic_cast<IViewObjectProvider*>(m_view)) {
        provider->DrawTessellationData(points, normals, colors, indices);
    }
}

void ASession::ClearDrawingObjects()
{
    if (auto* const provider = dynamic_cast<IViewObjectProvider*>(m_view)) {
        provider->ClearDrawingObjects();
    }
}

} // namespace OrvikCore
