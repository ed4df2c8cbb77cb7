#ifndef ORVIKCORE_IFRAMEPROVIDER_H
#define ORVIKCORE_IFRAMEPROVIDER_H

#include "OrvikCore/Export.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace OrvikCore {

class IFrameWindow;

/// In which order a pixel's four bytes lie in memory. Alpha is last, and 255 unless the background
/// is transparent.
enum class PixelOrder : std::uint8_t
{
    Rgba, ///< Red first.
    Bgra, ///< Blue first; on little-endian machines that is one 32-bit number 0xAARRGGBB.
};

/// Rows of pixels in the host's memory.
struct FrameRows
{
    unsigned char* first = nullptr; ///< The top row; not owned.
    std::ptrdiff_t stride = 0;      ///< Bytes from one row to the next below; at least 4 * width.
    int width = 0;                  ///< Pixels.
    int height = 0;
    PixelOrder order = PixelOrder::Rgba;
};

/// A 3D view that draws frames for a window: found from an IView3D by `dynamic_cast`.
///
/// A frame has the size that IView3D::SetWindowSize was given, in pixels of the screen. While the
/// camera moves, a frame that would take longer than 50 ms is drawn coarser; what is left, bodies
/// not yet in graphics memory included, is made up for by Refine() in slices. IView3D::ReadImage
/// never does so: pictures always show everything.
///
/// What a host does:
///
///     paint event    DrawFrame(), then ReadFrame() or BlitFrame()
///     resize event   IView3D::SetWindowSize
///     release event  EndGesture(), once no button is held
///     WorkWaits()    start a timer of 0 ms; at each tick Refine(20), until it answers false
///     end            SetFrameWindow(nullptr) while a lent context can still be made current
///
/// IView3D::UpdateDisplay calls IFrameWindow::PaintNow when something changed since the last frame:
/// scene, camera, options, colours, objects beside the model, size. Without a window nothing is
/// drawn but pictures.
///
/// @thread  Main thread.
class ORVIKCORE_API IFrameProvider
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IFrameProvider();

    /// Keeps the window that shows the frames (not owned; null for none). A context lent by the
    /// window before is given back first.
    virtual void SetFrameWindow(IFrameWindow* window) = 0;

    /// Draws with the window's own context from now on (IFrameWindow::MakeContextCurrent), instead
    /// of one of the view's. Everything in graphics memory is made anew there.
    ///
    /// @param errorText  receives the reason on false, UTF-8: the context cannot be made current,
    ///                   or is older than OpenGL 3.3. The view then goes on with its own.
    virtual bool UseWindowContext(std::string& errorText) = 0;

    /// Gives the lent context back: before the host deletes it, or lends another. Does nothing
    /// where none is lent.
    virtual void ReleaseWindowContext() = 0;

    /// @return whether DrawFrame() would draw something else than it did last.
    virtual bool NeedsFrame() = 0;

    /// Brings the frame up to date; does nothing where nothing changed. A change at rest may keep
    /// the frame before in place until Refine() has completed the new one.
    /// @return false when there is nothing to show: no OpenGL, or a window without pixels.
    virtual bool DrawFrame() = 0;

    /// Copies the frame drawn last into the host's memory.
    /// @return false, with the memory untouched, when there is none of this size.
    virtual bool ReadFrame(const FrameRows& rows) = 0;

    /// Copies the frame drawn last into a framebuffer of the lent context, which is current. The
    /// framebuffer is bound for drawing afterwards and the viewport is its size; all else is as
    /// OpenGL starts.
    ///
    /// @param framebuffer  its OpenGL name; 0 for the window's own.
    /// @param width, height  of the framebuffer, pixels; another size than the frame's stretches.
    /// @return false when no context is lent or no frame was drawn.
    virtual bool BlitFrame(unsigned int framebuffer, int width, int height) = 0;

    /// Does work that was put off: brings bodies into graphics memory, makes coarser versions of
    /// them, draws the frame in full. Paints the window when a better frame is complete.
    ///
    /// @param milliseconds  about how long it may take, from 1 to 50; values outside are clamped.
    /// @return true while there is more to do.
    virtual bool Refine(int milliseconds) = 0;

    /// @return how many frames were begun since the view was made, coarse ones included. Pictures
    ///         do not count.
    virtual std::uint64_t GetFrameCount() const = 0;

    /// The mouse has let go: what is shown only while it turns the camera goes, and the window is
    /// painted where that changes something.
    virtual void EndGesture() = 0;
};

} // namespace OrvikCore

#endif
