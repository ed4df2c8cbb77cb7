#ifndef ORVIKCORE_IMOUSEEVENTPROVIDER_H
#define ORVIKCORE_IMOUSEEVENTPROVIDER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class Controller;

/// A source of mouse events that a host may offer; the library neither implements nor calls it.
class ORVIKCORE_API IMouseEventProvider
{
public:
    // Virtual operations in slot order; append only.

    /// Sends every later mouse event to @p controller (not owned) until it is detached.
    virtual void AttachController(Controller* controller) = 0;

    /// Stops sending events to @p controller.
    virtual void DetachController(Controller* controller) = 0;

protected:
    IMouseEventProvider() = default;
    IMouseEventProvider(const IMouseEventProvider&) = default;
    IMouseEventProvider& operator=(const IMouseEventProvider&) = default;
    ~IMouseEventProvider() = default;
};

} // namespace OrvikCore

#endif
