#ifndef ORVIKMESH_CONTENT_MESHCONTENT_H
#define ORVIKMESH_CONTENT_MESHCONTENT_H

#include "content/MeshModel.h"

#include "OrvikCore/AContent.h"
#include "OrvikCore/IKindPicker.h"

#include <TambVizCore/ScenePick.h>

#include <memory>

namespace OrvikMesh {

/// The name under which the renderer factories for meshes are registered.
inline constexpr char kMeshTypeName[] = "Mesh";

/// A file of triangles in a document.
///
/// Its entities have the type EntityType::Mesh, the content's number as owner, the body's number
/// from 1 as value, and a face, an edge or a vertex of the body as sub-entity. A mesh is not
/// edited: undo points hold nothing.
///
/// @thread  As AContent.
class MeshContent final : public OrvikCore::AContent, public OrvikCore::IKindPicker
{
public:
    /// @param model  Not null.
    MeshContent(OrvikCore::Document& owner, std::shared_ptr<const MeshModel> model);
    ~MeshContent() override;

    /// The file's name without its folder.
    std::wstring GetShortId() override;
    /// The path as it was handed to the loader.
    std::wstring GetLongId() override;
    void NoteState() override;
    void Undo() override;
    void Redo() override;
    std::string GetTypeName() const override;
    bool GetBoundingBox(TambVizCore::VizBox& box) const override;
    void ClearSelection() override;
    bool RayPick(const TambVizCore::Ray& ray, TambVizCore::EntityId& hit) override;
    bool RayPickKind(const TambVizCore::Ray& ray, TambVizCore::PartKind kind,
                     TambVizCore::EntityId& hit) override;

    /// @return never null; shared with the renderers.
    const std::shared_ptr<const MeshModel>& Model() const { return m_model; }

private:
    bool pick(const TambVizCore::PickQuery& query, TambVizCore::EntityId& hit) const;

    std::shared_ptr<const MeshModel> m_model;
};

/// The entity of a body, or of a part of it.
///
/// @param body    Position in MeshModel::bodies.
/// @param partId  Of the part, or 0 for the whole body.
TambVizCore::EntityId MakeMeshEntity(const MeshModel& model, std::size_t body,
                                     std::uint64_t partId);

} // namespace OrvikMesh

#endif
