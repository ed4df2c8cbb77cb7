#include "IdTarget.h"

#include <algorithm>

namespace ViewOpenGl {
namespace {

/// OpenGL counts rows from the bottom.
template <class T> void turnOver(std::vector<T>& numbers, int height)
{
    const auto stride = static_cast<std::ptrdiff_t>(numbers.size()) / height;
    for (std::ptrdiff_t row = 0; row < height / 2; ++row)
        std::swap_ranges(numbers.begin() + row * stride, numbers.begin() + (row + 1) * stride,
                         numbers.begin() + (height - 1 - row) * stride);
}

} // namespace

IdTarget::IdTarget(int width, int height) : m_width(width), m_height(height)
{
    TakeErrors();
    GLuint name = 0;
    glGenFramebuffers(1, &name);
    m_framebuffer = GlFramebuffer(name);
    glBindFramebuffer(GL_FRAMEBUFFER, name);
    m_color = attach(GL_COLOR_ATTACHMENT0, GL_RGBA8);
    m_items = attach(GL_COLOR_ATTACHMENT1, GL_RG32UI);
    m_depths = attach(GL_COLOR_ATTACHMENT2, GL_R32F);
    m_depthStencil = attach(GL_DEPTH_STENCIL_ATTACHMENT, GL_DEPTH24_STENCIL8);
}

GlRenderbuffer IdTarget::attach(GLenum attachment, GLenum format) const
{
    GLuint name = 0;
    glGenRenderbuffers(1, &name);
    glBindRenderbuffer(GL_RENDERBUFFER, name);
    glRenderbufferStorage(GL_RENDERBUFFER, format, m_width, m_height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, attachment, GL_RENDERBUFFER, name);
    return GlRenderbuffer(name);
}

FramebufferAnswer IdTarget::Bind()
{
    glBindFramebuffer(GL_FRAMEBUFFER, m_framebuffer.Get());
    const GLenum drawn[3] = {GL_COLOR_ATTACHMENT0, GL_COLOR_ATTACHMENT1, GL_COLOR_ATTACHMENT2};
    glDrawBuffers(3, drawn);
    const FramebufferAnswer answer = AskFramebuffer();
    if (!answer.IsGood())
        return answer;
    glViewport(0, 0, m_width, m_height);
    const GLuint none[4] = {0, 0, 0, 0};
    const GLfloat zero[4] = {0.0f, 0.0f, 0.0f, 0.0f};
    glClearBufferfv(GL_COLOR, 0, zero);
    glClearBufferuiv(GL_COLOR, 1, none);
    glClearBufferfv(GL_COLOR, 2, zero);
    glDepthMask(GL_TRUE);
    glClear(GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
    return answer;
}

IdTarget::Pixels IdTarget::Read() const
{
    const std::size_t count =
        static_cast<std::size_t>(m_width) * static_cast<std::size_t>(m_height);
    Pixels pixels;
    pixels.items.resize(2 * count);
    pixels.depths.resize(count);
    glBindFramebuffer(GL_READ_FRAMEBUFFER, m_framebuffer.Get());
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_COLOR_ATTACHMENT1);
    glReadPixels(0, 0, m_width, m_height, GL_RG_INTEGER, GL_UNSIGNED_INT, pixels.items.data());
    glReadBuffer(GL_COLOR_ATTACHMENT2);
    glReadPixels(0, 0, m_width, m_height, GL_RED, GL_FLOAT, pixels.depths.data());
    turnOver(pixels.items, m_height);
    turnOver(pixels.depths, m_height);
    return pixels;
}

} // namespace ViewOpenGl
