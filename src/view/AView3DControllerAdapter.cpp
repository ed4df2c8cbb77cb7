#include "OrvikCore/AView3DControllerAdapter.h"

#include "PickCommand.h"
#include "ViewTexts.h"

#include "OrvikCore/ACamera.h"
#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/ASession.h"
#include "OrvikCore/AViewObject.h"
#include "OrvikCore/Document.h"
#include "OrvikCore/EnhancedSelectionJob.h"
#include "OrvikCore/ICameraProvider.h"
#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/IViewObjectProvider.h"
#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/RayPickJob.h"
#include "OrvikCore/SessionMgr.h"
#include "OrvikCore/Shell.h"
#include "OrvikCore/ViewObjectManager.h"
#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpTargetCamera.h"

#include <OrvikOs/Clipboard.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Ray.h>
#include <TambVizCore/Settings.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/Vector.h>

#include <exception>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace OrvikCore {

namespace {

/// The aperture of the picks at both ends of a drag.
constexpr int kDragAperturePixels = 4;

bool hasSchemeConsole(const ASession& session)
{
    const Shell* shell = session.GetShell();
    const AScriptEngine* engine = shell != nullptr ? shell->GetScriptEngine() : nullptr;
    return engine != nullptr && engine->GetLanguageName() == kScheme;
}

/// @return the rubber band of a view; not owned, null when it has none.
AViewObject* rubberBand(TambVizCore::IView3D* view)
{
    auto* provider = dynamic_cast<IViewObjectProvider*>(view);
    ViewObjectManager* manager = provider != nullptr ? provider->GetViewObjectManager() : nullptr;
    return manager != nullptr ? manager->Get(kRubberBand) : nullptr;
}

/// Prints the pick as a command and keeps it as the pick's message.
void echoPick(ASession& session, const TambVizCore::EntityId& entity, const TambVizCore::Ray& ray,
              std::wstring& message)
{
    message = PickCommand(entity, ray);
    session.PrintMessage(message, MessageType::Output);
}

} // namespace

AView3DControllerAdapter::AView3DControllerAdapter() = default;

AView3DControllerAdapter::~AView3DControllerAdapter() = default;

void AView3DControllerAdapter::SetView3D(TambVizCore::IView3D* view)
{
    m_view = view;
}

void AView3DControllerAdapter::hitTest(ViewOpHitTest* op)
{
    if (m_view == nullptr || op == nullptr) {
        return;
    }
    ASession& session = SessionMgr::Instance().CurrentSession();
    TambVizCore::AView3DAdapter* adapter = m_view->GetView3DAdapter();
    if (adapter == nullptr) {
        return;
    }
    TambVizCore::RenderId renderId;
    if (!adapter->GetRenderIdAtPixel(op->MouseX(), op->MouseY(), renderId)) {
        session.UnHighlight();
        return;
    }
    if (adapter->IsHighlighted(renderId)) {
        return;
    }
    if (op->UseEnhancedMode()) {
        hitTestEnhanced(session, renderId);
    } else {
        hitTestPlain(session, renderId);
    }
}

void AView3DControllerAdapter::hitTestEnhanced(ASession& session,
                                               const TambVizCore::RenderId& renderId)
{
    Document& document = session.Document();
    // A copy: the wait for a job pumps messages, which may change the document.
    const std::vector<AContent*> contents = document.GetContentList();
    for (AContent* content : contents) {
        const auto job = std::make_shared<EnhancedSelectionJob>(document, content, renderId);
        if (JobDispatcher::Instance().ExecuteParked(job) && job->Result()) {
            return;
        }
    }
}

void AView3DControllerAdapter::hitTestPlain(ASession& session,
                                            const TambVizCore::RenderId& renderId)
{
    IContentRenderer* renderer = session.Get3DRendererForFirstContent();
    std::vector<TambVizCore::RenderId> ids;
    if (renderer != nullptr) {
        renderer->ExpandRenderId(renderId, ids);
    }
    if (ids.size() == 1) {
        session.Highlight(ids.front());
        session.ShowToolTip(ids.front());
        return;
    }
    // Deliberate: selected from the last to the first, beside what is selected already.
    // Held by AView3DControllerAdapterHover.OverSeveralItemsSelectsThemFromLastToFirst.
    for (auto id = ids.rbegin(); id != ids.rend(); ++id) {
        session.Select(*id);
    }
}

void AView3DControllerAdapter::highlight(ViewOpHighlight* op)
{
    if (op == nullptr) {
        return;
    }
    ASession& session = SessionMgr::Instance().CurrentSession();
    const TambVizCore::EntityId* picked = op->GetPickResult();
    if (picked != nullptr && !picked->IsEmpty() && op->HighlightOn()) {
        const TambVizCore::EntityId entity = *picked;
        session.Highlight(entity);
    } else {
        session.UnHighlight();
    }
}

void AView3DControllerAdapter::rayPick(ViewOpRayPick* op)
{
    if (m_view == nullptr || op == nullptr) {
        return;
    }
    try {
        ASession& session = SessionMgr::Instance().CurrentSession();
        const bool echo = hasSchemeConsole(session);
        if (ViewOpRayPick::IsReset(op)) {
            session.UnSelect();
            return;
        }
        TambVizCore::Ray ray =
            getCamera(session).Make3DRay(op->MouseX(), op->MouseY(), op->ApertureRadius());
        moveRayRootOutsideModel(ray);
        const bool isHandled = m_view->NotifyPick(ray);
        if (!op->IsMultiple()) {
            session.UnSelect();
        }
        if (!isHandled) {
            pickEntity(*op, session, ray, echo);
        }
    } catch (const std::exception& error) {
        SessionMgr::Instance().CurrentSession().PrintMessage(
            kPickException + TambVizCore::Utils::Char2Wchar(error.what()), MessageType::Output);
    }
}

void AView3DControllerAdapter::pickEntity(ViewOpRayPick& op, ASession& session,
                                          const TambVizCore::Ray& ray, bool echo)
{
    const auto job = std::make_shared<RayPickJob>(session.Document(), ray);
    const bool hasEnded = JobDispatcher::Instance().ExecuteParked(job);
    const bool isFound = hasEnded && job->IsFound();
    TambVizCore::EntityId entity = hasEnded ? job->Entity() : TambVizCore::EntityId();
    std::wstring message;
    session.GetLastMessage(message);
    if (isFound) {
        if (op.PickBody()) {
            entity.ReduceToBody();
        }
        if (op.IsMultiple()) {
            session.Select(entity);
        } else {
            session.Highlight(entity);
        }
    }
    if (echo) {
        // Deliberate: a miss is echoed too.
        // Held by AView3DControllerAdapterPick.MissIsEchoedAndForgetsWhatWasPicked.
        echoPick(session, entity, ray, message);
    }
    if (!isFound) {
        session.SetPickedEntities({});
        session.Document().ClearSelection();
    }
    const TambVizCore::Settings* settings = TambVizCore::Settings::Current();
    if (settings != nullptr && settings->GetCopyPickToClipboard()) {
        OrvikOs::CopyToClipboard(message);
    }
}

void AView3DControllerAdapter::targetCamera(ViewOpTargetCamera* op)
{
    if (m_view == nullptr || op == nullptr) {
        return;
    }
    TambVizCore::AView3DAdapter* adapter = m_view->GetView3DAdapter();
    float point[3] = {0.0f, 0.0f, 0.0f};
    const bool isFound =
        adapter != nullptr && adapter->GetSurfacePointAtPixel(op->MouseX(), op->MouseY(), point);
    ACamera& camera = getCamera(SessionMgr::Instance().CurrentSession());
    camera.SetRotationCenter(isFound ? point : m_view->GetGeometryCenter());
}

void AView3DControllerAdapter::drag(ViewOpDrag* op)
{
    if (m_view == nullptr || op == nullptr) {
        return;
    }
    AViewObject* band = rubberBand(m_view);
    if (band == nullptr) {
        return;
    }
    const IViewOpState state = op->State();
    // Deliberate: the band follows the pointer only while the dispatcher is busy.
    // Held by AView3DControllerAdapterDrag.DoesNothingWhileTheDispatcherIsIdle.
    if (state != IViewOpState::End && !JobDispatcher::Instance().IsBusy()) {
        return;
    }
    switch (state) {
    case IViewOpState::Start:
        band->SetIsVisible(true);
        callPick(op);
        break;
    case IViewOpState::Processing:
        band->Display();
        break;
    case IViewOpState::End:
        band->SetIsVisible(false);
        callPick(op);
        break;
    default:
        band->SetIsVisible(false);
        break;
    }
}

ACamera& AView3DControllerAdapter::getCamera(ASession& session)
{
    auto* provider = dynamic_cast<ICameraProvider*>(session.View3D());
    if (provider == nullptr) {
        throw std::runtime_error(kNoCameraProvider);
    }
    return *provider->GetCamera();
}

void AView3DControllerAdapter::moveRayRootOutsideModel(TambVizCore::Ray& ray)
{
    const float* direction = ray.Direction();
    const float radius = m_view->GetGeometryRadius();
    float toCenter[3];
    TambVizCore::Subtract(m_view->GetGeometryCenter(), ray.Origin(), toCenter);
    // Deliberate: from inside, the origin moves back by the diameter and forward by the direction.
    // Held by AView3DControllerAdapterPick.FromInsideTheModelStartsOutside.
    float scale = 0.0f;
    if (radius > TambVizCore::Length(toCenter)) {
        scale = 1.0f - 2.0f * radius / TambVizCore::Length(direction);
    } else {
        const float along = TambVizCore::DotProduct(toCenter, direction);
        scale = along < 0.0f ? 2.0f * along : 0.0f;
    }
    float shift[3] = {direction[0], direction[1], direction[2]};
    TambVizCore::Multiply(shift, scale);
    float origin[3];
    TambVizCore::Add(ray.Origin(), shift, origin);
    ray.SetOrigin(origin);
}

void AView3DControllerAdapter::callPick(ViewOpDrag* op)
{
    ACamera& camera = getCamera(SessionMgr::Instance().CurrentSession());
    TambVizCore::Ray ray = camera.Make3DRay(op->MouseX(), op->MouseY(), kDragAperturePixels);
    moveRayRootOutsideModel(ray);
    m_view->NotifyPick(ray);
}

} // namespace OrvikCore
