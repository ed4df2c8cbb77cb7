#ifndef PELLUX_ACTIONS_CONTEXTMENU_H
#define PELLUX_ACTIONS_CONTEXTMENU_H

#include <OrvikCore/TreeBuilder.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/RenderId.h>

#include <QtGlobal>

QT_BEGIN_NAMESPACE
class QMenu;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;

/// What a context menu was opened on.
struct MenuPlace
{
    TambVizCore::RenderId row; ///< Path in the model tree.
    OrvikCore::TreeBuilder::TreeItemStyles style{};
    TambVizCore::EntityId entity; ///< Empty for a row that stands for none.
};

/// Finds the row of the model tree that stands for an entity.
/// @return false when there is none.
bool FindMenuPlace(const TambVizCore::EntityId& entity, MenuPlace& place);

/// Adds the items of the session manager's menu template that are offered for a place. Choosing one
/// runs its action and shows and records the command that does the same, where there is one.
///
/// @param runner  Not owned; outlives the menu.
/// @return how many items there are.
int FillContextMenu(QMenu& menu, CommandRunner& runner, const MenuPlace& place);

} // namespace Pellux

#endif
