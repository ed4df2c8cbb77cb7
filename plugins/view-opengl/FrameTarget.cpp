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
            m_samples = samples;
            return false;
        }
        m_samples = samples;
    }
    Bind();
    return true;
}

void FrameTarget::Bind()
{
    glBindFramebuffer(GL_FRAMEBUFFER, m_drawn.framebuffer.Get());
    glViewport(0, 0, m_width, m_height);
}

bool FrameTarget::make(Surface& surface, int samples)
{
    TakeErrors();
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
    m_answer = AskFramebuffer();
    return m_answer.IsGood();
}

void FrameTarget::resolve()
{
    GLuint source = m_drawn.framebuffer.Get();
    if (m_samples > 1) {
        glBindFramebuffer(GL_READ_FRAMEBUFFER, source);
        source = m_resolved.framebuffer.Get();
        glBindFramebuffer(GL_DRAW_FRAMEBUFFER, source);
        glBlitFramebuffer(0, 0, m_width, m_height, 0, 0, m_width, m_height, GL_COLOR_BUFFER_BIT,
                          GL_NEAREST);
    }
    glBindFramebuffer(GL_READ_FRAMEBUFFER, source);
}

void FrameTarget::Read(TambVizCore::Image& image)
{
    image.width = m_width;
    image.height = m_height;
    const std::ptrdiff_t stride = std::ptrdiff_t{4} * m_width;
    image.rgba.resize(static_cast<std::size_t>(stride * m_height));
    Read({image.rgba.data(), stride, m_width, m_height, OrvikCore::PixelOrder::Rgba});
}

void FrameTarget::Read(const OrvikCore::FrameRows& rows)
{
    resolve();
    const GLenum order = rows.order == OrvikCore::PixelOrder::Bgra ? GL_BGRA : GL_RGBA;
    // OpenGL counts rows from the bottom; where the driver can turn them, nothing is moved twice.
    const bool turns = epoxy_has_gl_extension("GL_MESA_pack_invert");
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    if (turns && rows.stride % 4 == 0) {
        glPixelStorei(GL_PACK_INVERT_MESA, GL_TRUE);
        glPixelStorei(GL_PACK_ROW_LENGTH, static_cast<GLint>(rows.stride / 4));
        glReadPixels(0, 0, m_width, m_height, order, GL_UNSIGNED_BYTE, rows.first);
        glPixelStorei(GL_PACK_INVERT_MESA, GL_FALSE);
        glPixelStorei(GL_PACK_ROW_LENGTH, 0);
        return;
    }
    if (rows.stride % 4 != 0) {
        for (int row = 0; row < m_height; ++row)
            glReadPixels(0, m_height - 1 - row, m_width, 1, order, GL_UNSIGNED_BYTE,
                         rows.first + rows.stride * row);
        return;
    }
    glPixelStorei(GL_PACK_ROW_LENGTH, static_cast<GLint>(rows.stride / 4));
    glReadPixels(0, 0, m_width, m_height, order, GL_UNSIGNED_BYTE, rows.first);
    glPixelStorei(GL_PACK_ROW_LENGTH, 0);
    for (int row = 0; row < m_height / 2; ++row)
        std::swap_ranges(rows.first + rows.stride * row,
                         rows.first + rows.stride * row + std::ptrdiff_t{4} * m_width,
                         rows.first + rows.stride * (m_height - 1 - row));
}

void FrameTarget::Blit(GLuint framebuffer, int width, int height)
{
    resolve();
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    const GLenum filter = width == m_width && height == m_height ? GL_NEAREST : GL_LINEAR;
    glBlitFramebuffer(0, 0, m_width, m_height, 0, 0, width, height, GL_COLOR_BUFFER_BIT, filter);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, framebuffer);
    glViewport(0, 0, width, height);
}

void FrameTarget::Stretch(FrameTarget& target, bool withDepth)
{
    Blit(target.Framebuffer(), target.m_width, target.m_height);
    if (withDepth) {
        glBindFramebuffer(GL_READ_FRAMEBUFFER, m_drawn.framebuffer.Get());
        glBlitFramebuffer(0, 0, m_width, m_height, 0, 0, target.m_width, target.m_height,
                          GL_DEPTH_BUFFER_BIT, GL_NEAREST);
    }
    target.Bind();
}

void FrameTarget::ResolveInto(const FrameTarget& target)
{
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_drawn.framebuffer.Get());
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, target.m_drawn.framebuffer.Get());
    glBlitFramebuffer(0, 0, m_width, m_height, 0, 0, m_width, m_height, GL_COLOR_BUFFER_BIT,
                      GL_NEAREST);
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
