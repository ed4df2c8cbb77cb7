#ifndef ORVIKCORE_IINPUTQUEUE_H
#define ORVIKCORE_IINPUTQUEUE_H

#include "OrvikCore/Export.h"

#include <string>

namespace TambVizCore {
class EntityId;
}

namespace OrvikCore {

class KeyEventArgs;
class MouseButtonEventArgs;
class MouseClickEventArgs;
class MouseEventArgs;
class MouseWheelEventArgs;

/// Window events that wait until the host is idle, and are then handled as if they had just come
/// from a window, in the order of posting.
///
/// So a script can act as a hand does: while its job runs, a Controller drops hovers, and a pick
/// would wait for the job that asks for it.
///
/// @thread  Main thread; the worker comes through the call gate.
class ORVIKCORE_API IInputQueue
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IInputQueue();

    // Each appends a copy of an event for the controller of the current session.

    virtual void PostMotion(const MouseEventArgs& event) = 0;
    virtual void PostButton(const MouseButtonEventArgs& event) = 0;
    virtual void PostClick(const MouseClickEventArgs& event) = 0;
    virtual void PostWheel(const MouseWheelEventArgs& event) = 0;
    virtual void PostKey(const KeyEventArgs& event) = 0;

    /// Appends the choice of an item in the context menu of a row of the model tree.
    ///
    /// @param item    the item's text; "&" before an access key may be left out.
    /// @param entity  what the row stands for.
    virtual void PostMenuItem(const std::wstring& item, const TambVizCore::EntityId& entity) = 0;
};

} // namespace OrvikCore

#endif
