#ifndef ORVIKCORE_IFRAMEWINDOW_H
#define ORVIKCORE_IFRAMEWINDOW_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// What a 3D view asks of the window that shows its frames. The host supplies it and hands it to
/// IFrameProvider::SetFrameWindow.
///
/// A host that lends the view an OpenGL context of its own overrides MakeContextCurrent() and
/// DoneContextCurrent(); the others leave them alone.
///
/// @thread  Main thread.
class ORVIKCORE_API IFrameWindow
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IFrameWindow();

    /// Paints the window at once, without dispatching events. The host calls
    /// IFrameProvider::DrawFrame while it paints, then ReadFrame or BlitFrame.
    virtual void PaintNow() = 0;

    /// Tells that the view has put work off: the host calls IFrameProvider::Refine whenever it is
    /// idle, until that answers false. May come while the host paints, and again before the work
    /// that the last call told of is done.
    virtual void WorkWaits() = 0;

    /// Makes the context that the host lends current. Calls may be nested.
    /// @return false when there is none, which is the default, or when the system refuses.
    virtual bool MakeContextCurrent();

    /// Ends the last good MakeContextCurrent(): with the outermost one, what was current before is
    /// current again. Does nothing by default.
    virtual void DoneContextCurrent();

    /// @return device pixels per pixel of the user interface, more than 0: lines, points and texts
    ///         of a frame are drawn so many times as large. 1 by default.
    virtual double GetPixelRatio();
};

} // namespace OrvikCore

#endif
