#ifndef VIEWOPENGL_IDTARGET_H
#define VIEWOPENGL_IDTARGET_H

#include "GlObjects.h"
#include "PictureLimits.h"

#include <cstdint>
#include <vector>

namespace ViewOpenGl {

/// The framebuffer of one picture of ids: beside the colour a pair of numbers and a depth for each
/// pixel; see SceneRenderer::DrawIds. The context is current in every call. @thread Main thread.
class IdTarget
{
public:
    /// What is where; rows from the top.
    struct Pixels
    {
        std::vector<std::uint32_t> items; ///< Two for each pixel: number of the node, part index.
        std::vector<float> depths;
    };

    IdTarget(int width, int height);

    /// Binds and clears it. @return what the driver says to the size; cleared where that is good.
    FramebufferAnswer Bind();

    Pixels Read() const;

private:
    GlRenderbuffer attach(GLenum attachment, GLenum format) const;

    int m_width;
    int m_height;
    GlFramebuffer m_framebuffer;
    GlRenderbuffer m_color, m_items, m_depths, m_depthStencil;
};

} // namespace ViewOpenGl

#endif
