#ifndef VIEWOPENGL_PICTURELIMITS_H
#define VIEWOPENGL_PICTURELIMITS_H

#include <epoxy/gl.h>

#include <string>

namespace ViewOpenGl {

/// How large a picture the driver draws; pixels.
struct PictureLimits
{
    /// Asks the driver of the current context.
    static PictureLimits Ask();

    /// @return why a size is too large, with the name and the value of the limit that it passes;
    ///         empty for a size that is not.
    std::string Refusal(int width, int height) const;

    int renderbuffer = 0;     ///< Each side: GL_MAX_RENDERBUFFER_SIZE.
    int viewport[2] = {0, 0}; ///< Width and height: GL_MAX_VIEWPORT_DIMS.
};

/// What the driver says to a framebuffer within its limits.
struct FramebufferAnswer
{
    /// @return whether it can be drawn into.
    bool IsGood() const { return error == GL_NO_ERROR && status == GL_FRAMEBUFFER_COMPLETE; }

    /// @return why not: it has no memory for it, or refuses it; with the answer's name or number.
    std::string Refusal(int width, int height, int samples) const;

    GLenum error = GL_NO_ERROR;
    GLenum status = GL_FRAMEBUFFER_COMPLETE; ///< Of the framebuffer that is bound.
};

/// Looks at the framebuffer that is bound, and takes the errors of making it.
FramebufferAnswer AskFramebuffer();

/// Drops the errors that were reported before. @return the first one.
GLenum TakeErrors();

} // namespace ViewOpenGl

#endif
