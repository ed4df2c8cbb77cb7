#ifndef TAMBVIZCORE_AVIEW3DADAPTERFACTORY_H
#define TAMBVIZCORE_AVIEW3DADAPTERFACTORY_H

#include "TambVizCore/Export.h"

namespace TambVizCore {

class AView3DAdapter;

/// Makes the adapters of views that are not their own; supplied by a view plugin.
///
/// @thread Main thread.
class TAMBVIZCORE_API AView3DAdapterFactory
{
public:
    virtual ~AView3DAdapterFactory();

    /// @return a new adapter (transferred out), or null.
    virtual AView3DAdapter* CreateView3DAdapter() = 0;

protected:
    AView3DAdapterFactory();
};

} // namespace TambVizCore

#endif
