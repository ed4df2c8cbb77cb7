#ifndef ORVIKMODEL_MODELTREERENDERER_H
#define ORVIKMODEL_MODELTREERENDERER_H

#include "OrvikModel/Model.h"

#include "OrvikCore/ARendererTree.h"
#include "OrvikCore/ATreeRendererFactory.h"

#include <TambVizCore/RenderId.h>

#include <cstdint>
#include <memory>
#include <string>
#include <unordered_set>
#include <vector>

namespace OrvikModel {

class ModelContent;
struct SceneLink;

/// Draws a model into the model tree: a container row for the content, below it a row for each node
/// with the ids of RowIdOf(), and below nodes with a shape a row for each face, edge and vertex.
/// The latter are built by ExpandNode(), so that they cost nothing until somebody opens a body.
///
/// Rows of nodes that the file hides are disabled. Entities and paths are converted whether or not
/// the row has been built; the scene row is known to every renderer.
///
/// @thread  Main thread.
class ModelTreeRenderer final : public OrvikCore::ARendererTree
{
public:
    /// @param content  Drawn; not owned. What was read from the file is shared with it.
    ModelTreeRenderer(ModelContent& content, OrvikCore::AViewTree* view, TambVizCore::Node* node);

    /// Builds the rows unless the tree has the container row already.
    bool Render() override;
    ~ModelTreeRenderer() override;
    bool Rerender() override;
    bool IsRendererFor(OrvikCore::AContent* content) override;
    bool ConvertToEntityId(const TambVizCore::RenderId& path,
                           TambVizCore::EntityId& entity) override;
    bool ConvertToRenderId(const TambVizCore::EntityId& entity,
                           TambVizCore::RenderId& path) override;
    /// Shows the view or the capture whose row it is, as ModelRenderer3D::ShowView().
    /// @return false when @p path is no row of this renderer.
    bool Activate(TambVizCore::RenderId& path) override;
    bool ExpandRenderId(const TambVizCore::RenderId& path,
                        std::vector<TambVizCore::RenderId>& paths) override;
    std::wstring GetToolTip(const TambVizCore::RenderId& path) override;
    bool GetBodyList(std::vector<TambVizCore::EntityId>& bodies) override;
    bool ExpandNode(const TambVizCore::RenderId& path) override;
    bool GetNodeStyle(const TambVizCore::RenderId& path,
                      OrvikCore::TreeBuilder::TreeItemStyles& style) const override;

private:
    /// Empties the tree when this renderer made the whole construction; else the rows are left to
    /// whoever made the scene row.
    void discard() override;

    enum class RowKind
    {
        None,
        Scene,
        Container,
        Node,
        Part,
    };
    struct Row
    {
        RowKind kind = RowKind::None;
        const ModelNode* node = nullptr; ///< Not owned; of Node and Part.
        std::uint64_t partId = 0;        ///< Of Part.
    };
    Row findRow(const TambVizCore::RenderId& path) const;
    TambVizCore::RenderId containerPath() const;
    TambVizCore::RenderId pathOf(const ModelNode& shown) const;
    void buildContainer(OrvikCore::TreeBuilder& builder);
    void buildParts(OrvikCore::TreeBuilder& builder, const TambVizCore::RenderId& path,
                    const ModelNode& body);

    std::shared_ptr<const Model> m_model;
    std::shared_ptr<const SceneLink> m_link;      ///< Shared with the content.
    std::unordered_set<std::uint64_t> m_expanded; ///< Numbers of nodes whose parts have rows.
    bool m_madeScene = false;                     ///< The scene row is this renderer's.
};

/// Makes renderers for the contents of one plugin.
class ModelTreeRendererFactory final : public OrvikCore::ATreeRendererFactory
{
public:
    /// @param typeName  What AContent::GetTypeName answers for the contents.
    explicit ModelTreeRendererFactory(std::string typeName);
    ~ModelTreeRendererFactory() override;

    std::string GetName() const override;
    /// @return null for contents of another type.
    OrvikCore::ARendererTree* CreateRenderer(OrvikCore::AContent* content,
                                             OrvikCore::AViewTree* view,
                                             TambVizCore::Node* node) override;

private:
    std::string m_typeName;
};

} // namespace OrvikModel

#endif
