#include "PickProbe.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IBoxPicker.h>
#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/VizBox.h>

#include <algorithm>

namespace Pellux {
namespace {

using OrvikCore::IEntityProperties;
using TambCommandsInfra::Arguments;
using TambVizCore::EntityId;
using TambVizCore::PartKind;
using TambVizCore::Ray;

const IEntityProperties* findContent(const OrvikCore::Document& document, const EntityId& entity,
                                     TambVizCore::VizBox& box)
{
    for (OrvikCore::AContent* const content : document.GetContentList()) {
        const auto* const properties = dynamic_cast<const IEntityProperties*>(content);
        if (properties != nullptr && properties->GetContentNumber() == entity.Owner() &&
            properties->GetBox(entity, box))
            return properties;
    }
    return nullptr;
}

/// Finds where a line meets a face; edges and vertices are met by the aperture only.
void findPoint(const IEntityProperties& content, const Ray& ray, PickNote& note)
{
    double origin[3];
    double direction[3];
    std::copy_n(ray.Origin(), 3, origin);
    std::copy_n(ray.Direction(), 3, direction);
    std::vector<OrvikCore::LineHit> hits;
    if (!note.entity.IsFace() ||
        !content.IntersectLine(origin, direction, /*visibleOnly=*/true, hits))
        return;
    const auto hit = std::find_if(hits.begin(), hits.end(), [&note](const OrvikCore::LineHit& h) {
        return h.entity == note.entity;
    });
    note.hasPoint = hit != hits.end();
    if (note.hasPoint)
        std::copy_n(hit->position, 3, note.point);
}

bool locate(const OrvikCore::Document& document, PickNote& note, const Ray* ray)
{
    TambVizCore::VizBox box;
    const IEntityProperties* const content = findContent(document, note.entity, box);
    if (content == nullptr)
        return false;
    note.hasBox = !box.IsEmpty();
    if (note.hasBox) {
        std::copy_n(box.Lo(), 3, note.box);
        std::copy_n(box.Hi(), 3, note.box + 3);
    }
    if (ray != nullptr)
        findPoint(*content, *ray, note);
    return true;
}

Ray rayOf(const Arguments& arguments)
{
    float numbers[6];
    for (std::size_t i = 0; i < 6; ++i)
        numbers[i] = static_cast<float>(arguments[i].AsReal());
    return Ray(numbers, numbers + 3, arguments[6].AsReal());
}

PickNote noteOfId(const OrvikCore::Document& document, const Arguments& arguments)
{
    PickNote note;
    const std::wstring line = L";= pick " + arguments[0].AsString();
    if (const std::optional<PickNote> named = ParsePickLine(line))
        note = *named;
    note.isFound = note.isFound && locate(document, note, nullptr);
    return note;
}

int pixel(const Arguments& arguments, const char* name)
{
    return static_cast<int>(arguments[name].AsInteger());
}

/// @return what view:pick has found: one entity, which is empty for nothing.
std::vector<EntityId> pickInView(OrvikCore::ASession& session, const Arguments& arguments)
{
    return TambCommandsInfra::CallGate::Call([&] {
        std::vector<EntityId> found(1);
        TambVizCore::IView3D* const view = session.View3D();
        TambVizCore::AView3DAdapter* const adapter =
            view == nullptr ? nullptr : view->GetView3DAdapter();
        TambVizCore::RenderId id;
        if (adapter != nullptr &&
            adapter->GetRenderIdAtPixel(pixel(arguments, "x"), pixel(arguments, "y"), id))
            TambVizCore::GetRenderIdEntity(view->GetSceneRoot(), id, found.front());
        return found;
    });
}

/// @return what sel:box has found.
std::vector<EntityId> findInBox(OrvikCore::ASession& session, const Arguments& arguments)
{
    OrvikCore::PickBox box;
    box.x1 = pixel(arguments, "x-from");
    box.y1 = pixel(arguments, "y-from");
    box.x2 = pixel(arguments, "x-to");
    box.y2 = pixel(arguments, "y-to");
    const std::wstring& how = arguments["how"].AsString();
    box.touching = how == L"touching" || (how == L"direction" && box.x2 < box.x1);
    return TambCommandsInfra::CallGate::Call([&] {
        auto* const picker = dynamic_cast<OrvikCore::IBoxPicker*>(session.View3D());
        return picker == nullptr ? std::vector<EntityId>() : picker->FindInBox(box);
    });
}

std::vector<PickNote> notesOf(const OrvikCore::Document& document,
                              const std::vector<EntityId>& entities)
{
    std::vector<PickNote> notes;
    for (const EntityId& entity : entities) {
        PickNote note;
        note.entity = entity;
        note.isFound = !entity.IsEmpty() && LocateEntity(document, note);
        notes.push_back(note);
    }
    return notes;
}

} // namespace

PickNote ProbePick(OrvikCore::Document& document, const Ray& ray, PartKind kind)
{
    const OrvikOs::FpMasked coordinatesAreData;
    PickNote note;
    note.isFound = kind == PartKind::None ? document.RayPick(ray, note.entity)
                                          : document.RayPickKind(ray, kind, note.entity);
    if (note.isFound)
        locate(document, note, &ray);
    return note;
}

bool LocateEntity(const OrvikCore::Document& document, PickNote& note)
{
    const OrvikOs::FpMasked coordinatesAreData;
    return locate(document, note, nullptr);
}

std::vector<PickNote> ProbeCommand(OrvikCore::ASession& session,
                                   const TambCommandsInfra::Command& command,
                                   const Arguments& arguments)
{
    OrvikCore::Document& document = session.Document();
    if (command.name == "app:pick-entity")
        return {ProbePick(document, rayOf(arguments), PartKind::None)};
    if (command.name == "app:pick-face")
        return {ProbePick(document, rayOf(arguments), PartKind::Face)};
    if (command.name == "app:pick-edge")
        return {ProbePick(document, rayOf(arguments), PartKind::Edge)};
    if (command.name == "app:pick-vertex")
        return {ProbePick(document, rayOf(arguments), PartKind::Vertex)};
    if (command.name == "entity:by-id")
        return {noteOfId(document, arguments)};
    if (command.name == "view:pick")
        return notesOf(document, pickInView(session, arguments));
    if (command.name == "sel:box")
        return notesOf(document, findInBox(session, arguments));
    return {};
}

PickProbeJob::PickProbeJob(OrvikCore::Document& document, const Ray& ray)
    : m_document(document), m_ray(ray)
{
}

bool PickProbeJob::Execute()
{
    m_note = ProbePick(m_document, m_ray, PartKind::None);
    // Nothing hit is an answer; a failed job would be announced to every observer.
    return true;
}

} // namespace Pellux
