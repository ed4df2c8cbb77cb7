#ifndef ORVIKMESH_CONTENT_MESHRENDERER3D_H
#define ORVIKMESH_CONTENT_MESHRENDERER3D_H

#include "content/MeshModel.h"

#include "OrvikCore/AContentRendererFactory.h"
#include "OrvikCore/IContentRenderer.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace TambVizCore {
class GeoNode;
class IView3D;
class Node;
} // namespace TambVizCore

namespace OrvikMesh {

class MeshContent;

/// Draws a mesh content into a 3D view: one node for the content under the scene's root, and below
/// it one that draws for each body, with the body's number as id.
///
/// Bodies are drawn from their plain shape until faces, edges and vertices have been made; then the
/// node changes to the shape with parts, at the latest when an id of a part is converted.
///
/// @thread  Main thread.
class MeshRenderer3D final : public OrvikCore::IContentRenderer
{
public:
    /// @param content  Drawn; not owned. What was read from the file is shared with it.
    /// @param view     Drawn into; not owned, outlives the renderer.
    MeshRenderer3D(MeshContent& content, TambVizCore::IView3D& view);

    bool Render() override;
    /// Takes the nodes out of the scene.
    ~MeshRenderer3D() override;
    bool Rerender() override;
    bool IsRendererFor(OrvikCore::AContent* content) override;
    bool ConvertToEntityId(const TambVizCore::RenderId& id, TambVizCore::EntityId& entity) override;
    bool ConvertToRenderId(const TambVizCore::EntityId& entity, TambVizCore::RenderId& id) override;
    bool ExpandRenderId(const TambVizCore::RenderId& id,
                        std::vector<TambVizCore::RenderId>& ids) override;
    std::wstring GetToolTip(const TambVizCore::RenderId& id) override;
    bool GetBodyList(std::vector<TambVizCore::EntityId>& bodies) override;

private:
    void discard() override;

    TambVizCore::Node* contentNode() const;
    TambVizCore::GeoNode* bodyNode(std::size_t body) const;
    void buildBody(TambVizCore::Node& parent, std::size_t body) const;
    void adoptParts() const;
    void setBounds();
    bool findBody(const TambVizCore::RenderId& id, std::size_t& body, std::uint64_t& partId) const;

    std::shared_ptr<const MeshModel> m_model;
    TambVizCore::IView3D& m_view;
    std::uint64_t m_nodeId = 0; ///< Of the content's node; 0 while nothing is drawn.
};

/// Makes the 3D renderers of meshes.
class MeshRendererFactory final : public OrvikCore::AContentRendererFactory
{
public:
    MeshRendererFactory();
    std::string GetName() const override;
    ~MeshRendererFactory() override;
    OrvikCore::IContentRenderer* CreateRenderer(OrvikCore::AContent* content,
                                                TambVizCore::IView3D* view) override;
};

} // namespace OrvikMesh

#endif
