#ifndef VIEWOPENGL_FRAMETARGET_H
#define VIEWOPENGL_FRAMETARGET_H

#include "GlObjects.h"

#include <TambVizCore/Image.h>

namespace ViewOpenGl {

/// The framebuffer that the view draws into; kept between pictures of the same size. The context is
/// current in every call. @thread Main thread.
class FrameTarget
{
public:
    /// Binds a framebuffer of a size, made anew where it differs from the last one.
    ///
    /// @param samples  Samples per pixel; 0 and 1 mean one.
    /// @return false when the driver refuses the size.
    bool Bind(int width, int height, int samples);

    /// Reads what was drawn, rows from top to bottom.
    void Read(TambVizCore::Image& image);

    /// Forgets the framebuffers.
    void Clear();

private:
    struct Surface
    {
        GlRenderbuffer color, depth;
        GlFramebuffer framebuffer;
    };

    bool make(Surface& surface, int samples);

    Surface m_drawn;    ///< Drawn into.
    Surface m_resolved; ///< One sample per pixel; used when m_drawn has more.
    int m_width = 0;
    int m_height = 0;
    int m_samples = -1;
};

} // namespace ViewOpenGl

#endif
