#ifndef ORVIKCORE_IINPUTPROVIDER_H
#define ORVIKCORE_IINPUTPROVIDER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class IInputQueue;
class INavigation;

/// An application that takes input from scripts; those find it by a dynamic_cast of
/// SessionMgr::GetApplication().
class ORVIKCORE_API IInputProvider
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IInputProvider();

    /// @return the queue; not owned, null while the host is not ready for input.
    virtual IInputQueue* GetInputQueue() const = 0;

    /// @return the choice of navigation; not owned, null while the host is not ready for input.
    virtual INavigation* GetNavigationChoice() const = 0;
};

} // namespace OrvikCore

#endif
