#ifndef ORVIKMODEL_MODELCONTENT_H
#define ORVIKMODEL_MODELCONTENT_H

#include "OrvikModel/Model.h"

#include "OrvikCore/AContent.h"
#include "OrvikCore/IEntityProperties.h"
#include "OrvikCore/IKindPicker.h"

#include <memory>
#include <string>
#include <vector>

namespace OrvikModel {

class ModelPicker;
class PartBoxes;
struct SceneLink;

/// A model in a document, whatever plugin read it: answers picks and what is asked of its entities.
///
/// Its entities are those of ModelEntity.h. A model is not edited: undo points hold nothing.
///
/// @thread  As AContent.
class ModelContent : public OrvikCore::AContent,
                     public OrvikCore::IKindPicker,
                     public OrvikCore::IEntityProperties
{
public:
    /// @param model     Not null, its nodes numbered; not changed any more.
    /// @param typeName  The name under which the plugin registered its renderer factories.
    ModelContent(OrvikCore::Document& owner, std::shared_ptr<const Model> model,
                 std::string typeName);
    ~ModelContent() override;

    /// The file's name without its folder.
    std::wstring GetShortId() override;
    /// The path as it was handed to the loader.
    std::wstring GetLongId() override;
    void NoteState() override;
    void Undo() override;
    void Redo() override;
    std::string GetTypeName() const override;
    /// Annotations do not count unless there is nothing else; the camera sees them all the same.
    bool GetBoundingBox(TambVizCore::VizBox& box) const override;
    void ClearSelection() override;
    /// Highlights the item and, where its shape stands in several places, the same of each.
    /// @return true when the id is one of what draws this content.
    bool TryHighlight(const TambVizCore::RenderId& id) override;
    bool RayPick(const TambVizCore::Ray& ray, TambVizCore::EntityId& hit) override;
    bool RayPickKind(const TambVizCore::Ray& ray, TambVizCore::PartKind kind,
                     TambVizCore::EntityId& hit) override;

    std::uint64_t GetContentNumber() const override;
    bool GetChildren(const TambVizCore::EntityId& entity,
                     std::vector<TambVizCore::EntityId>& children) const override;
    bool GetParent(const TambVizCore::EntityId& entity,
                   TambVizCore::EntityId& parent) const override;
    bool GetName(const TambVizCore::EntityId& entity, std::wstring& name) const override;
    bool GetColor(const TambVizCore::EntityId& entity,
                  TambVizCore::RGBAColor& color) const override;
    bool GetLayers(const TambVizCore::EntityId& entity,
                   std::vector<std::wstring>& layers) const override;
    bool GetBox(const TambVizCore::EntityId& entity, TambVizCore::VizBox& box) const override;
    bool Measure(const TambVizCore::EntityId& entity, OrvikCore::EntityMeasure what,
                 OrvikCore::MeasureResult& result) const override;
    bool MeasureDistance(const TambVizCore::EntityId& from, const TambVizCore::EntityId& to,
                         OrvikCore::DistanceResult& result) const override;
    bool MeasureDistanceToShapes(const TambVizCore::EntityId& from,
                                 const std::vector<OrvikCore::PlacedShape>& to,
                                 OrvikCore::DistanceResult& result) const override;
    bool IntersectLine(const double* origin, const double* direction, bool visibleOnly,
                       std::vector<OrvikCore::LineHit>& hits) const override;
    bool GetShapes(const TambVizCore::EntityId& entity,
                   std::vector<OrvikCore::PlacedShape>& shapes) const override;

    /// @return never null; shared with the renderers.
    const std::shared_ptr<const Model>& GetModel() const { return m_model; }

    /// @return never null; leads to the 3D renderer of this content. Main thread.
    const std::shared_ptr<SceneLink>& GetSceneLink() const { return m_link; }

private:
    std::shared_ptr<const Model> m_model;
    std::string m_typeName;
    std::shared_ptr<SceneLink> m_link; ///< Shared with the 3D renderer.
    std::unique_ptr<ModelPicker> m_picker;
    std::unique_ptr<PartBoxes> m_partBoxes;
};

/// Adds what was read to a document, through the call gate: gives the model a number that no
/// content of the document has, and makes its content.
///
/// @param model     Not null, its nodes numbered (Model::NumberNodes).
/// @param typeName  As ModelContent.
/// @return the content, owned by the document.
/// @thread  Any thread.
ModelContent& AddModel(OrvikCore::Document& document, std::shared_ptr<Model> model,
                       const std::string& typeName);

} // namespace OrvikModel

#endif
