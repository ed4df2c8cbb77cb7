#ifndef APPSCOMMON_TREEMENU_H
#define APPSCOMMON_TREEMENU_H

#include <string>

namespace OrvikCore {
class ASession;
}
namespace TambVizCore {
class EntityId;
}

namespace Pellux {

/// Chooses an item in the context menu of the row of the session's model tree that stands for an
/// entity. The session has a tree.
///
/// @param item       The item's text; "&" is passed over in it and in the menu.
/// @param errorText  Receives the reason on failure.
/// @return false without such a row, without an enabled item for rows of its kind, or when the
///         item's action failed.
/// @thread  Main thread.
bool RunTreeMenuItem(OrvikCore::ASession& session, const std::wstring& item,
                     const TambVizCore::EntityId& entity, std::wstring& errorText);

} // namespace Pellux

#endif
