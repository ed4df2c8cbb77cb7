#ifndef ORVIKCORE_IMENUACTION_H
#define ORVIKCORE_IMENUACTION_H

#include "OrvikCore/Export.h"

#include <type_traits>

namespace TambVizCore {
class RenderId;
}

namespace OrvikCore {

/// What a menu item does.
///
/// The table holds one operation and no destructor: an action is never deleted through this class.
/// Whoever makes an action frees it, or keeps it for the life of the process.
class ORVIKCORE_API IMenuAction
{
public:
    // Virtual operations in slot order; append only.

    /// Runs the action.
    ///
    /// @param node  the path of the tree node that the menu was opened on.
    /// @return true on success; nothing is thrown.
    /// @thread  Main thread.
    virtual bool Run(const TambVizCore::RenderId& node) = 0;

protected:
    IMenuAction() = default;
    IMenuAction(const IMenuAction&) = default;
    IMenuAction& operator=(const IMenuAction&) = default;
    ~IMenuAction() = default;
};

static_assert(!std::has_virtual_destructor_v<IMenuAction>);

} // namespace OrvikCore

#endif
