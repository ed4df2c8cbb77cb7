#include "content/MeshContent.h"

#include <OrvikOs/FpMasked.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>

#include <utility>
#include <vector>

namespace OrvikMesh {

using TambVizCore::EntityId;
using TambVizCore::PartKind;
using TambVizCore::PickInstance;
using TambVizCore::PickQuery;
using TambVizCore::PickResult;

EntityId MakeMeshEntity(const MeshModel& model, std::size_t body, std::uint64_t partId)
{
    EntityId entity(body + 1, model.number, TambVizCore::EntityType::Mesh);
    if (partId != 0)
        entity.SetSubEntity(static_cast<PartKind>(partId >> 32),
                            static_cast<std::int32_t>(partId & 0xFFFFFFFFu));
    return entity;
}

MeshContent::MeshContent(OrvikCore::Document& owner, std::shared_ptr<const MeshModel> model)
    : AContent(owner), m_model(std::move(model))
{
}

MeshContent::~MeshContent() = default;

std::wstring MeshContent::GetShortId()
{
    return m_model->FileName();
}

std::wstring MeshContent::GetLongId()
{
    return m_model->path;
}

void MeshContent::NoteState() {}

void MeshContent::Undo() {}

void MeshContent::Redo() {}

std::string MeshContent::GetTypeName() const
{
    return kMeshTypeName;
}

bool MeshContent::GetBoundingBox(TambVizCore::VizBox& box) const
{
    if (m_model->box.IsEmpty())
        return false;
    box = m_model->box;
    return true;
}

void MeshContent::ClearSelection() {}

bool MeshContent::RayPick(const TambVizCore::Ray& ray, EntityId& hit)
{
    PickQuery query;
    query.ray = ray;
    return pick(query, hit);
}

bool MeshContent::RayPickKind(const TambVizCore::Ray& ray, PartKind kind, EntityId& hit)
{
    if (kind == PartKind::None)
        return false;
    PickQuery query;
    query.ray = ray;
    query.kinds = TambVizCore::ToPartKinds(kind);
    return pick(query, hit);
}

/// Makes parts and index of the bodies that the ray may meet, and asks them.
bool MeshContent::pick(const PickQuery& query, EntityId& hit) const
{
    const OrvikOs::FpMasked masked;
    std::vector<PickInstance> instances;
    std::vector<std::size_t> bodies;
    for (std::size_t i = 0; i < m_model->bodies.size(); ++i) {
        const MeshBody& body = *m_model->bodies[i];
        double near = 0.0;
        double far = 1e300;
        if (!body.BoundingBox().Clip(query.ray.Origin(), query.ray.Direction(), query.ray.Radius(),
                                     near, far))
            continue;
        // The body keeps the geometry alive.
        PickInstance instance;
        instance.geometry = body.WithParts().get();
        instances.push_back(instance);
        bodies.push_back(i);
    }
    PickResult result;
    if (!TambVizCore::PickNearest(instances, query, result))
        return false;
    const TambVizCore::Geometry& geometry = *instances[result.instance].geometry;
    const std::uint64_t partId =
        result.partIndex == TambVizCore::kNoPart ? 0 : geometry.Parts()[result.partIndex].id;
    hit = MakeMeshEntity(*m_model, bodies[result.instance], partId);
    return true;
}

} // namespace OrvikMesh
