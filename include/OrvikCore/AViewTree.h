#ifndef ORVIKCORE_AVIEWTREE_H
#define ORVIKCORE_AVIEWTREE_H

#include "OrvikCore/Export.h"

#include <cstdint>
#include <string>

namespace TambVizCore {
class RenderId;
} // namespace TambVizCore

namespace OrvikCore {

class ATreeItemStyle;
class TreeBuilder;

/// The host's model tree, as the tree builder and the session see it.
///
/// Rows are named by a path of 64-bit ids from the top row down.
///
/// @thread Main thread.
class ORVIKCORE_API AViewTree
{
public:
    // Virtual operations in slot order; append only.
    virtual ~AViewTree();

    /// Begins a construction; constructions nest.
    /// @param incremental  false from the tree builder: the rows are new. True from a tree renderer
    ///                     that adds rows below one that is there (ARendererTree::ExpandNode): from
    ///                     the top row down, OpenNode() with the id of a row that the open row has
    ///                     already opens that row and leaves its name and style alone.
    virtual void ConstructionBegin(bool incremental) = 0;

    /// Ends the construction begun last.
    virtual void ConstructionEnd() = 0;

    /// Adds a row below the open row.
    ///
    /// @param id     its id among its siblings.
    /// @param name   its text.
    /// @param style  its style; not owned, null for the host's own default.
    /// @return       true when the row was added.
    virtual bool CreateNode(std::uint64_t const& id, std::wstring const& name,
                            ATreeItemStyle const* style) = 0;

    /// Adds a row below the open row and opens it, so that further rows go below it.
    /// @return true when the row was added and is open.
    virtual bool OpenNode(std::uint64_t const& id, std::wstring const& name,
                          ATreeItemStyle const* style) = 0;

    /// Closes the row opened last.
    virtual void CloseNode() = 0;

    /// Removes every row.
    virtual void ClearAll() = 0;

    /// Shows the row being built as enabled or disabled.
    virtual void SetCurrentNodeEnabled(bool const& enabled) = 0;

    /// Highlights one row; an unknown path changes nothing.
    virtual void HighlightNode(TambVizCore::RenderId const& path) = 0;

    /// Takes every highlight back.
    virtual void ClearHighlight() = 0;

    /// Returns the builder that fills this tree; not owned, null when there is none. Tree renderers
    /// reach it through ARendererTree.
    virtual TreeBuilder* GetTreeBuilder() = 0;

    /// Opens the rows above one row and scrolls to it; an unknown path changes nothing.
    virtual void EnsureNodeVisible(TambVizCore::RenderId const& path) = 0;

    /// Returns how many rows lie directly below one row; -1 for an unknown path.
    virtual int GetChildrenCountForNode(TambVizCore::RenderId const& path) = 0;
};

} // namespace OrvikCore

#endif
