#include "FrameTarget.h"

#include <algorithm>

namespace ViewOpenGl {
namespace {

GlRenderbuffer makeStorage(GLenum format, int samples, int width, int height)
{
    GLuint name = 0;
    glGenRenderbuffers(1, &name);
    glBindRenderbuffer(GL_RENDERBUFFER, name);
    if (samples > 1)
        glRenderbufferStorageMultisample(GL_RENDERBUFFER, samples, format, width, height);
    else
        glRenderbufferStorage(GL_RENDERBUFFER, format, width, height);
    return GlRenderbuffer(name);
}

/// @return true when there was none.
bool dropErrors()
{
    bool none = true;
    // A lost context may report without end.
    for (int i = 0; i < 8 && glGetError() != GL_NO_ERROR; ++i)
        none = false;
    return none;
}

} // namespace

bool FrameTarget::Bind(int width, int height, int samples)
{
    GLint most = 0;
    glGetIntegerv(GL_MAX_SAMPLES, &most);
    samples = std::clamp(samples, 1, std::max(most, 1));
    if (width != m_width || height != m_height || samples != m_samples) {
        Clear();
        m_width = width;
        m_height = height;
        if (!make(m_drawn, samples) || (samples > 1 && !make(m_resolved, 1))) {
            Clear();
            return false;
        }
        m_samples = samples;
    }
    glBindFramebuffer(GL_FRAMEBUFFER, m_drawn.framebuffer.Get());
    glViewport(0, 0, width, height);
    return true;
}

bool FrameTarget::make(Surface& surface, int samples)
{
    dropErrors();
    surface.color = makeStorage(GL_RGBA8, samples, m_width, m_height);
    surface.depth = makeStorage(GL_DEPTH24_STENCIL8, samples, m_width, m_height);
    GLuint name = 0;
    glGenFramebuffers(1, &name);
    surface.framebuffer = GlFramebuffer(name);
    glBindFramebuffer(GL_FRAMEBUFFER, name);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER,
                              surface.color.Get());
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER,
                              surface.depth.Get());
    const bool complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
    return dropErrors() && complete;
}

void FrameTarget::Read(TambVizCore::Image& image)
{
    GLuint source = m_drawn.framebuffer.Get();
    if (m_samples > 1) {
        glBindFramebuffer(GL_READ_FRAMEBUFFER, m_drawn.framebuffer.Get());
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, m_resolved.framebuffer.Get());
        glBlitFramebuffer(0, 0, m_width, m_height, 0, 0, m_width, m_height, GL_COLOR_BUFFER_BIT,
                          GL_NEAREST);
        source = m_resolved.framebuffer.Get();
    }
    glBindFramebuffer(GL_READ_FRAMEBUFFER, source);
    image.width = m_width;
    image.height = m_height;
    const std::size_t stride = static_cast<std::size_t>(m_width) * 4;
    image.rgba.resize(stride * static_cast<std::size_t>(m_height));
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadPixels(0, 0, m_width, m_height, GL_RGBA, GL_UNSIGNED_BYTE, image.rgba.data());
    // OpenGL counts rows from the bottom.
    for (int row = 0; row < m_height / 2; ++row) {
        const auto top = image.rgba.begin() + static_cast<std::ptrdiff_t>(stride) * row;
        const auto bottom =
            image.rgba.begin() + static_cast<std::ptrdiff_t>(stride) * (m_height - 1 - row);
        std::swap_ranges(top, top + static_cast<std::ptrdiff_t>(stride), bottom);
    }
}

void FrameTarget::Clear()
{
    m_drawn = Surface();
    m_resolved = Surface();
    m_width = 0;
    m_height = 0;
    m_samples = -1;
}

} // namespace ViewOpenGl
