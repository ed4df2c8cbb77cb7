#ifndef VIEWOPENGL_FRAMETARGET_H
#define VIEWOPENGL_FRAMETARGET_H

#include "GlObjects.h"
#include "PictureLimits.h"

#include <OrvikCore/IFrameProvider.h>
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
    /// @return false when the driver refuses the size; Answer() says why.
    bool Bind(int width, int height, int samples);

    /// Binds the framebuffer that the last Bind() made.
    void Bind();

    /// Reads what was drawn, rows from top to bottom.
    void Read(TambVizCore::Image& image);

    /// Reads what was drawn into the memory of somebody else, in the size of the target.
    void Read(const OrvikCore::FrameRows& rows);

    /// Copies what was drawn into another framebuffer, which stays bound for drawing with its size
    /// as viewport.
    void Blit(GLuint framebuffer, int width, int height);

    /// Copies what was drawn into a target of another size, which stays bound; both have one sample
    /// a pixel.
    /// @param withDepth  The depths too.
    void Stretch(FrameTarget& target, bool withDepth);

    /// Copies what was drawn into a target of the same size that has one sample a pixel.
    void ResolveInto(const FrameTarget& target);

    /// @return what the driver said to the last framebuffer that was made.
    const FramebufferAnswer& Answer() const { return m_answer; }

    /// @return the framebuffer to draw into; 0 for none.
    GLuint Framebuffer() const { return m_drawn.framebuffer.Get(); }

    int Width() const { return m_width; }
    int Height() const { return m_height; }
    /// @return samples of a pixel of the last Bind(), good or not.
    int Samples() const { return m_samples; }

    /// Forgets the framebuffers.
    void Clear();

private:
    struct Surface
    {
        GlRenderbuffer color, depth;
        GlFramebuffer framebuffer;
    };

    bool make(Surface& surface, int samples);

    /// Makes one sample of each pixel where there are more, and binds the result for reading.
    void resolve();

    Surface m_drawn;    ///< Drawn into.
    Surface m_resolved; ///< One sample per pixel; used when m_drawn has more.
    int m_width = 0;
    int m_height = 0;
    int m_samples = -1; ///< Also of a target without framebuffers.
    FramebufferAnswer m_answer;
};

} // namespace ViewOpenGl

#endif
