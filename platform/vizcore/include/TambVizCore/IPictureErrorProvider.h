#ifndef TAMBVIZCORE_IPICTUREERRORPROVIDER_H
#define TAMBVIZCORE_IPICTUREERRORPROVIDER_H

#include "TambVizCore/Export.h"

#include <string>

namespace TambVizCore {

/// A view that can say why it could not draw a picture; found by dynamic_cast.
///
/// @thread Main thread.
class TAMBVIZCORE_API IPictureErrorProvider
{
public:
    // Virtual operations in slot order; append only.
    virtual ~IPictureErrorProvider();

    /// @return why the last IView3D::ReadImage or IIdPictureProvider::ReadIdPicture failed, UTF-8,
    ///         a sentence without its point that names the limit which was met; empty after one
    ///         that did not fail.
    virtual std::string GetPictureError() const = 0;
};

} // namespace TambVizCore

#endif
