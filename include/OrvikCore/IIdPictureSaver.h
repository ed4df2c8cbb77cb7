#ifndef ORVIKCORE_IIDPICTURESAVER_H
#define ORVIKCORE_IIDPICTURESAVER_H

#include "OrvikCore/Export.h"

#include <TambVizCore/EntityId.h>

#include <string>
#include <vector>

namespace OrvikCore {

/// A host's ABufferManipulator that can also write what is where in its current 3D view; found by
/// dynamic_cast.
class ORVIKCORE_API IIdPictureSaver
{
public:
    // Virtual operations in slot order; append only.
    virtual ~IIdPictureSaver();

    /// Draws what is where (TambVizCore::IIdPictureProvider) and writes it as a PNG whose colours
    /// are numbers: red * 65536 + green * 256 + blue. 0 stands for nothing, 1 for the first of the
    /// entities. The file's text "Entities" names them as well.
    ///
    /// @param fileName   Path of the file; an existing file is replaced.
    /// @param width      Width in pixels; 0 means the width of the view.
    /// @param height     Height in pixels; 0 means the height of the view.
    /// @param entities   Receives what is drawn, by number less 1; empty ones have no entity.
    /// @param errorText  Receives the reason on false; null when the caller does not want it.
    /// @thread Main thread.
    virtual bool SaveIdPicture(const std::wstring& fileName, int width, int height,
                               std::vector<TambVizCore::EntityId>& entities,
                               std::wstring* errorText) = 0;
};

} // namespace OrvikCore

#endif
