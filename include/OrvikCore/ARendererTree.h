#ifndef ORVIKCORE_ARENDERERTREE_H
#define ORVIKCORE_ARENDERERTREE_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IContentRenderer.h"
#include "OrvikCore/TreeBuilder.h"

#include <cstdint>

namespace TambVizCore {
class Node;
class RenderId;
} // namespace TambVizCore

namespace OrvikCore {

class AContent;
class AViewTree;

/// Draws one content into the model tree by traversing it with the tree view's TreeBuilder.
///
/// A content's rows hang below its container row, whose id is the content's number
/// (IEntityProperties::GetContentNumber), and that below the scene row. A renderer that is asked to
/// Render() while the builder has a row open adds its container below that row: so one renderer can
/// hold those of several contents. With no row open it makes the whole construction, scene row
/// included.
///
/// Render() fills the tree, ConvertToEntityId() and ConvertToRenderId() translate between tree
/// paths and entities. ConvertToEntityId() must not call TreeBuilder::ExtractEntityId, which calls
/// it.
///
/// @thread Main thread.
class ORVIKCORE_API ARendererTree : public IContentRenderer
{
public:
    /// The id of the scene row, the top row of the tree, and the owner of the entities of
    /// containers (EntityType::Container). No content has this number, so scene and containers have
    /// paths of one and two different ids.
    static constexpr std::uint64_t kSceneRowId = 40000;

    ~ARendererTree() override;

    // Virtual operations in slot order, after the inherited ones; append only.

    /// Keeps the tree view (not owned) to draw into; null to draw nowhere.
    virtual void SetView(AViewTree* view);

    /// Builds the rows below one row that were left out until it is opened, in a construction of
    /// the view that says incremental; rows that are there already stay.
    /// @return false when @p path is no row of this renderer.
    virtual bool ExpandNode(const TambVizCore::RenderId& path) = 0;

    /// Finds the kind of a row, by which menus choose their items.
    /// @return false when @p path is no row of this renderer; @p style is then left alone.
    virtual bool GetNodeStyle(const TambVizCore::RenderId& path,
                              TreeBuilder::TreeItemStyles& style) const = 0;

protected:
    /// @param content  the content to draw; not owned.
    /// @param view     the tree view; not owned, may be null.
    /// @param node     the scene node that draws the content in 3D; not owned, may be null.
    ARendererTree(AContent* content, AViewTree* view, TambVizCore::Node* node);

    /// Returns the tree view's builder; null without a view or where the view has none. Not owned.
    TreeBuilder* getTreeBuilder();

    AViewTree* view;                            ///< Not owned.
    TambVizCore::Node* node;                    ///< Not owned.
    TambVizCore::Node* m_currentNode = nullptr; ///< Not owned; for the derived class's traversal.
};

} // namespace OrvikCore

#endif
