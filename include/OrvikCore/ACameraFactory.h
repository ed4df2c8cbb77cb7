#ifndef ORVIKCORE_ACAMERAFACTORY_H
#define ORVIKCORE_ACAMERAFACTORY_H

#include "OrvikCore/Export.h"

#include <vector>

namespace TambVizCore {
class IView3D;
}

namespace OrvikCore {

class ACamera;

/// Makes cameras by name from a list of prototypes, "CameraYUp" and "CameraZUp" in the product.
///
/// Filled by the view factory. @thread  Main thread.
class ORVIKCORE_API ACameraFactory
{
public:
    ACameraFactory() = default;
    ACameraFactory(const ACameraFactory&) = delete;
    ACameraFactory& operator=(const ACameraFactory&) = delete;

    /// Deletes the prototypes.
    virtual ~ACameraFactory();

    /// Appends @p prototype (transferred in; null is ignored).
    void AddPrototype(ACamera* prototype);

    /// Makes a camera for @p view (not owned, may be null).
    ///
    /// @param name  a camera's class name, compared exactly; the first prototype of the name
    /// counts.
    /// @return a new camera (transferred out), null for an unknown name.
    ACamera* MakeCamera(TambVizCore::IView3D* view, const char* name) const;

    /// Makes a camera for the view of @p other, with the settings of @p other.
    ///
    /// @param name  as above; need not be the class of @p other.
    /// @return a new camera (transferred out), null for an unknown name.
    ACamera* MakeCamera(const ACamera& other, const char* name) const;

private:
    ACamera* find(const char* name) const;

    std::vector<ACamera*> m_prototypes; ///< Owned.
};

} // namespace OrvikCore

#endif
