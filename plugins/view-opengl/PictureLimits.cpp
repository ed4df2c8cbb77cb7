#include "PictureLimits.h"

#include <locale>
#include <sstream>

namespace ViewOpenGl {
namespace {

std::string sizeText(int width, int height)
{
    return "a picture of " + std::to_string(width) + " x " + std::to_string(height);
}

std::string tooLarge(int width, int height)
{
    return sizeText(width, height) + " is larger than the OpenGL driver allows: at most ";
}

} // namespace

PictureLimits PictureLimits::Ask()
{
    PictureLimits limits;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &limits.renderbuffer);
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, limits.viewport);
    return limits;
}

std::string PictureLimits::Refusal(int width, int height) const
{
    if (width > renderbuffer || height > renderbuffer)
        return tooLarge(width, height) + std::to_string(renderbuffer) +
               " pixels a side (GL_MAX_RENDERBUFFER_SIZE)";
    if (width > viewport[0] || height > viewport[1])
        return tooLarge(width, height) + std::to_string(viewport[0]) + " x " +
               std::to_string(viewport[1]) + " pixels (GL_MAX_VIEWPORT_DIMS)";
    return {};
}

std::string FramebufferAnswer::Refusal(int width, int height, int samples) const
{
    std::ostringstream text;
    text.imbue(std::locale::classic());
    const char* const start = error == GL_OUT_OF_MEMORY ? "the OpenGL driver has no memory for "
                                                        : "the OpenGL driver refuses ";
    text << start << sizeText(width, height) << " with " << samples
         << (samples == 1 ? " sample" : " samples") << " a pixel (";
    if (error == GL_OUT_OF_MEMORY)
        text << "GL_OUT_OF_MEMORY";
    else if (error != GL_NO_ERROR)
        text << "OpenGL error 0x" << std::hex << error;
    else
        text << "framebuffer status 0x" << std::hex << status;
    text << ")";
    return text.str();
}

FramebufferAnswer AskFramebuffer()
{
    FramebufferAnswer answer;
    answer.error = TakeErrors();
    answer.status = glCheckFramebufferStatus(GL_FRAMEBUFFER);
    return answer;
}

GLenum TakeErrors()
{
    const GLenum first = glGetError();
    bool isMore = first != GL_NO_ERROR;
    // A lost context may report without end.
    for (int i = 0; i < 8 && isMore; ++i)
        isMore = glGetError() != GL_NO_ERROR;
    return first;
}

} // namespace ViewOpenGl
