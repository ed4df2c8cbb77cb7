#ifndef ORVIKCORE_ICONTROLLERLISTENER_H
#define ORVIKCORE_ICONTROLLERLISTENER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class IViewOp;

/// Receives the view operations of a Controller.
class ORVIKCORE_API IControllerListener
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IControllerListener();

    /// Carries out one operation.
    ///
    /// @param op  not owned; valid during the call only.
    /// @thread    The thread that delivers window events, inside the controller's listener lock.
    virtual void ControllerNotify(IViewOp* op) = 0;
};

} // namespace OrvikCore

#endif
