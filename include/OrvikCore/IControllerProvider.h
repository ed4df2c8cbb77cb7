#ifndef ORVIKCORE_ICONTROLLERPROVIDER_H
#define ORVIKCORE_ICONTROLLERPROVIDER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class Controller;

/// Somebody who has a Controller: a view, a controller adapter, a session.
class ORVIKCORE_API IControllerProvider
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IControllerProvider();

    /// @return the controller; not owned, may be null, valid as long as its provider.
    virtual Controller* GetController() const = 0;
};

} // namespace OrvikCore

#endif
