#ifndef ORVIKCORE_ABUFFERMANIPULATOR_H
#define ORVIKCORE_ABUFFERMANIPULATOR_H

#include "OrvikCore/Export.h"

#include <string>

namespace OrvikCore {

/// The host's access to the picture buffer of its current 3D view.
///
/// The host derives from it and hands one object to AppController, which owns it from then on and
/// deletes it through this class. The core only stores it; commands that save or measure the
/// picture use it.
class ORVIKCORE_API ABufferManipulator
{
public:
    virtual ~ABufferManipulator();

    // Virtual operations in slot order; append only.

    /// Gives the size of the picture.
    ///
    /// @param width   Receives the width in pixels.
    /// @param height  Receives the height in pixels.
    /// @return false when there is no view; both arguments are then left unchanged.
    /// @thread Main thread.
    virtual bool GetSize(int& width, int& height) const = 0;

    /// Draws the view once at the given size and writes the picture to a file.
    ///
    /// @param fileName   Path of the file; an existing file is replaced.
    /// @param width      Width in pixels; 0 means the width of the view.
    /// @param height     Height in pixels; 0 means the height of the view.
    /// @param errorText  Receives the reason on false; null when the caller does not want it.
    /// @thread Main thread.
    virtual bool SaveImage(const std::wstring& fileName, int width, int height,
                           std::wstring* errorText) = 0;
};

} // namespace OrvikCore

#endif
