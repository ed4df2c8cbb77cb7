// What the journal writes of the mouse: cameras, picks, selections, what is highlighted.
#include "Journal.h"
#include "PickProbe.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/AView3DControllerAdapter.h>
#include <OrvikCore/ICameraProvider.h>
#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/ViewOpRayPick.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/SelectionHolder.h>

#include <memory>
#include <utility>

namespace Pellux {
namespace {

using OrvikCore::ACamera;
using OrvikCore::ViewOpRayPick;
using OrvikCore::ViewOpType;
using TambVizCore::EntityId;
using TambVizCore::Ray;
using TambVizCore::RenderId;

ACamera* cameraOf(const OrvikCore::ASession& session)
{
    auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(session.View3D());
    return provider == nullptr ? nullptr : provider->GetCamera();
}

/// Begins rays as picks with the mouse do.
class PickRays final : public OrvikCore::AView3DControllerAdapter
{
public:
    explicit PickRays(TambVizCore::IView3D* view) { SetView3D(view); }

    using AView3DControllerAdapter::moveRayRootOutsideModel;
};

std::wstring pickForm(const Ray& ray)
{
    double numbers[7];
    for (int i = 0; i < 3; ++i) {
        numbers[i] = ray.Origin()[i];
        numbers[i + 3] = ray.Direction()[i];
    }
    numbers[6] = ray.Radius();
    return L"(app:pick-entity" + ExactNumbers(numbers, 7) + L")";
}

} // namespace

void Journal::ControllerNotify(OrvikCore::IViewOp* op)
{
    if (op == nullptr || m_session == nullptr)
        return;
    m_mouseHasActed = true;
    switch (op->Type()) {
    case ViewOpType::Rotate:
    case ViewOpType::Pan:
    case ViewOpType::Zoom:
        m_gestureIsOpen = true;
        break;
    case ViewOpType::Drag:
        // The first motion after a pick resets a rubber band that there never was.
        m_gestureIsOpen |= op->State() != OrvikCore::IViewOpState::Reset;
        break;
    case ViewOpType::RayPick:
        EndGesture();
        notePick(*static_cast<ViewOpRayPick*>(op));
        break;
    case ViewOpType::MouseMove:
    case ViewOpType::TargetCamera:
        EndGesture();
        break;
    default:
        break;
    }
}

void Journal::notePick(const ViewOpRayPick& op)
{
    if (ViewOpRayPick::IsReset(&op)) {
        write(L"(sel:clear)", std::vector<PickNote>());
        m_knownHighlight.clear();
        noteKnown();
        return;
    }
    ACamera* const camera = cameraOf(*m_session);
    if (camera == nullptr)
        return;
    Ray ray = camera->Make3DRay(op.MouseX(), op.MouseY(), op.ApertureRadius());
    PickRays(m_session->View3D()).moveRayRootOutsideModel(ray);
    const auto job = std::make_shared<PickProbeJob>(m_session->Document(), ray);
    if (!OrvikCore::JobDispatcher::Instance().ExecuteParked(job))
        return;
    const PickNote& note = job->Note();
    const std::wstring pick =
        op.PickBody() && note.isFound ? L"(entity:body " + pickForm(ray) + L")" : pickForm(ray);
    // A click beside the model forgets what was picked, also one that was to add.
    const bool adds = op.IsMultiple() && note.isFound;
    write((adds ? L"(sel:add " : L"(sel:highlight ") + pick + L")", std::vector<PickNote>{note});
    if (!adds)
        m_knownHighlight = note.isFound ? highlight() : std::vector<RenderId>();
    noteKnown();
}

void Journal::EndGesture()
{
    if (m_formRuns || m_session == nullptr || !std::exchange(m_gestureIsOpen, false))
        return;
    writeCamera();
    writeChangedSelection();
    noteKnown();
}

void Journal::writeCamera()
{
    const std::optional<Triple> now = camera();
    if (now && now != m_knownCamera)
        write(CameraForm(now->data(), now->data() + 3, now->data() + 6), std::vector<PickNote>());
}

void Journal::writeChangedSelection()
{
    if (m_session->GetPickedEntities() != m_knownSelection)
        writeSelection();
}

void Journal::writeSelection()
{
    std::wstring form = L"(sel:set";
    std::vector<PickNote> notes;
    for (const EntityId& entity : m_session->GetPickedEntities()) {
        PickNote note;
        note.entity = entity;
        note.isFound = LocateEntity(m_session->Document(), note);
        form += L" (entity:by-id \"" + EntityWords(entity) + L"\")";
        notes.push_back(note);
    }
    write(form + L")", notes);
    m_knownHighlight.clear();
}

void Journal::writeHighlight()
{
    m_mouseHasActed = false;
    const std::vector<RenderId> highlighted = highlight();
    if (highlighted == m_knownHighlight)
        return;
    m_knownHighlight = highlighted;
    std::wstring form = L"(sel:hover";
    std::vector<PickNote> notes;
    for (const RenderId& id : highlighted) {
        PickNote note;
        if (!m_session->View3D()->Convert(id, note.entity))
            continue;
        note.isFound = LocateEntity(m_session->Document(), note);
        form += L" (entity:by-id \"" + EntityWords(note.entity) + L"\")";
        notes.push_back(note);
    }
    write(form + L")", notes);
}

std::vector<RenderId> Journal::highlight() const
{
    TambVizCore::IView3D* const view = m_session->View3D();
    return view == nullptr ? std::vector<RenderId>() : view->GetSelectionHolder()->GetHighlighted();
}

std::optional<Journal::Triple> Journal::camera() const
{
    ACamera* const camera = cameraOf(*m_session);
    if (camera == nullptr)
        return std::nullopt;
    Triple triple;
    camera->GetCamera(triple.data(), triple.data() + 3, triple.data() + 6);
    return triple;
}

} // namespace Pellux
