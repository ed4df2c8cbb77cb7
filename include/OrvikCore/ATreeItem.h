#ifndef ORVIKCORE_ATREEITEM_H
#define ORVIKCORE_ATREEITEM_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class ATreeItemStyle;

/// One row of the host's model tree, with its default and its current style.
///
/// @thread Main thread.
class ORVIKCORE_API ATreeItem
{
public:
    /// @param style  the default and first current style; not owned, must outlive the row.
    explicit ATreeItem(ATreeItemStyle const& style);
    ATreeItem(const ATreeItem&) = default;
    ATreeItem& operator=(const ATreeItem&) = default;

    // Virtual operations in slot order; append only.
    virtual ~ATreeItem();

    /// Returns the current style; not owned. The caller must not change it: rows share it.
    virtual ATreeItemStyle* CurrentStyle() const;

    /// Keeps @p style (not owned, must outlive the row) as current, then applies it to the row.
    virtual void SetCurrentStyle(ATreeItemStyle const& style);

protected:
    /// Makes the row look like @p style.
    virtual void applyStyle(ATreeItemStyle const& style) = 0;

    ATreeItemStyle const* defaultStyle; ///< Not owned.
    ATreeItemStyle const* currentStyle; ///< Not owned.
};

} // namespace OrvikCore

#endif
