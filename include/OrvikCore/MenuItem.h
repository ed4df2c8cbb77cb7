#ifndef ORVIKCORE_MENUITEM_H
#define ORVIKCORE_MENUITEM_H

#include "OrvikCore/Export.h"
#include "OrvikCore/TreeBuilder.h"

#include <string>
#include <vector>

namespace OrvikCore {

class IMenuAction;

/// One entry of the context menu of the model tree.
///
/// Holds texts, an action and the kinds of tree nodes that it is offered for; no kind at all means
/// every kind. Copies share the action. @thread  Main thread.
class ORVIKCORE_API MenuItem
{
public:
    MenuItem();

    /// @param menuText   text with "&" before the access key.
    /// @param menuAction not owned; outlives the item.
    MenuItem(std::wstring menuText, IMenuAction* menuAction);

    /// @param menuText   text with "&" before the access key.
    /// @param menuAction not owned; outlives the item.
    /// @param style      the first kind of node that the item is offered for.
    MenuItem(std::wstring menuText, IMenuAction* menuAction, TreeBuilder::TreeItemStyles style);

    MenuItem(const MenuItem&) = default;
    MenuItem& operator=(const MenuItem&) = default;
    virtual ~MenuItem();

    std::wstring Text() const { return text; }
    void SetText(std::wstring menuText);

    std::wstring Tip() const { return tip; }
    void SetTip(std::wstring menuTip);

    bool IsEnabled() const { return enabled; }
    void SetEnabled(bool isEnabled) { enabled = isEnabled; }

    /// @return the action; not owned, may be null.
    IMenuAction* Action() const { return action; }

    /// Keeps @p menuAction (not owned, may be null); the one before is left alone.
    void SetAction(IMenuAction* menuAction) { action = menuAction; }

    /// Offers the item for nodes of kind @p style too.
    void AddApplicable(TreeBuilder::TreeItemStyles style);

    /// @return the first of the kinds, in the order added, repetitions included.
    std::vector<TreeBuilder::TreeItemStyles>::const_iterator ApplicableBegin() const;
    /// @return the end of the kinds.
    std::vector<TreeBuilder::TreeItemStyles>::const_iterator ApplicableEnd() const;

    /// @return true when the item is offered for nodes of kind @p style.
    bool IsApplicableTo(TreeBuilder::TreeItemStyles style) const;

private:
    std::wstring text;
    bool enabled = true;
    IMenuAction* action = nullptr; ///< Not owned.
    std::wstring tip;
    std::vector<TreeBuilder::TreeItemStyles> applicable;
};

} // namespace OrvikCore

#endif
