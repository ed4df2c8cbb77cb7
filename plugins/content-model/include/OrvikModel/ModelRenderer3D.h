#ifndef ORVIKMODEL_MODELRENDERER3D_H
#define ORVIKMODEL_MODELRENDERER3D_H

#include "OrvikModel/Model.h"

#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/IContentRenderer.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace TambVizCore {
class GeoNode;
class IView3D;
class Node;
} // namespace TambVizCore

namespace OrvikModel {

class ModelContent;
struct ModelInstance;
struct SceneLink;
struct Visibility;

/// Draws a model into a 3D view: one scene node for the content under the scene's root, and below
/// it one for each node of the model that stands in space, with the node's number as id and its
/// transform, colour and entity. Nodes that share a shape share its geometry.
///
/// Views, captures, their groups and annotations without curves have no scene node. Annotations
/// follow the view's switch for PMI, point clouds and sets of points the one for point clouds.
///
/// Shapes are drawn as ModelShape::Present() has them. Nodes change to what it has later when an
/// entity of a part is converted, and at Rerender(), which first has the shapes tessellated anew
/// when the shared parameters are others than before.
///
/// @thread  Main thread.
class ModelRenderer3D final : public OrvikCore::IContentRenderer
{
public:
    /// @param content  Drawn; not owned. What was read from the file is shared with it.
    /// @param view     Drawn into; not owned, outlives the renderer.
    ModelRenderer3D(ModelContent& content, TambVizCore::IView3D& view);

    bool Render() override;
    /// Takes the nodes out of the scene.
    ~ModelRenderer3D() override;
    bool Rerender() override;
    bool IsRendererFor(OrvikCore::AContent* content) override;
    bool ConvertToEntityId(const TambVizCore::RenderId& id, TambVizCore::EntityId& entity) override;
    bool ConvertToRenderId(const TambVizCore::EntityId& entity, TambVizCore::RenderId& id) override;
    bool ExpandRenderId(const TambVizCore::RenderId& id,
                        std::vector<TambVizCore::RenderId>& ids) override;
    std::wstring GetToolTip(const TambVizCore::RenderId& id) override;
    bool GetBodyList(std::vector<TambVizCore::EntityId>& bodies) override;

    /// Copies what of the model can be seen; everything while nothing is drawn.
    void CaptureVisibility(const std::vector<ModelInstance>& instances,
                           Visibility& visibility) const;

    /// Highlights an item and, where its shape stands in several places, the same of each.
    /// @return false when the id is not one of this renderer.
    bool HighlightAlike(const TambVizCore::RenderId& id);

    /// Shows a saved view or a capture: moves the camera there and, for a capture that names what
    /// it shows, hides the rest of the model.
    /// @return false when the node is neither, or has no camera that the view could take.
    bool ShowView(const ModelNode& saved);

private:
    void discard() override;

    struct Match
    {
        const ModelNode* node = nullptr; ///< Not owned; null for the content's own node.
        std::uint64_t partId = 0;
    };
    bool findNode(const TambVizCore::RenderId& id, Match& match) const;
    TambVizCore::Node* contentNode() const;
    TambVizCore::Node* sceneNode(const ModelNode& node) const;
    void buildNodes(TambVizCore::Node& top) const;
    void adoptShapes() const;
    static double presentSag();
    static double presentMaxAngle();
    void retessellate();
    void setBounds();
    void showOnly(const std::vector<bool>& shown);

    std::shared_ptr<const Model> m_model;
    std::shared_ptr<SceneLink> m_link; ///< Shared with the content; leads here while this lives.
    TambVizCore::IView3D& m_view;      ///< Not owned.
    std::uint64_t m_nodeId = 0;        ///< Of the content's node; 0 while nothing is drawn.
    double m_sag = 0.0;                ///< As handed to ModelShape::Retessellate.
    double m_maxAngleDegrees = 0.0;
};

/// Makes renderers for the contents of one plugin.
class ModelRendererFactory final : public OrvikCore::AContentRendererFactory
{
public:
    /// @param typeName  What AContent::GetTypeName answers for the contents.
    explicit ModelRendererFactory(std::string typeName);
    ~ModelRendererFactory() override;

    std::string GetName() const override;
    /// @return null for contents of another type, and without a view.
    OrvikCore::IContentRenderer* CreateRenderer(OrvikCore::AContent* content,
                                                TambVizCore::IView3D* view) override;

private:
    std::string m_typeName;
};

} // namespace OrvikModel

#endif
