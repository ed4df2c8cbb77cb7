#ifndef ORVIKCORE_ICAMERAPROVIDER_H
#define ORVIKCORE_ICAMERAPROVIDER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class ACamera;

/// Somebody who has a camera: a 3D view.
class ORVIKCORE_API ICameraProvider
{
public:
    // Virtual operations in slot order; append only.

    virtual ~ICameraProvider();

    /// @return the camera; not owned, valid as long as its provider or until it is replaced there.
    virtual ACamera* GetCamera() = 0;
};

} // namespace OrvikCore

#endif
