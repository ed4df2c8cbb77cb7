#ifndef VIEWOPENGL_GLOBJECTS_H
#define VIEWOPENGL_GLOBJECTS_H

#include <epoxy/gl.h>

#include <cstddef>
#include <string>
#include <utility>

namespace ViewOpenGl {

/// Owns one OpenGL name and deletes it; movable. The context that made it is current then, or a
/// ForgottenNames lives.
template <void (*Delete)(GLuint)> class GlName
{
public:
    GlName() = default;
    explicit GlName(GLuint name) : m_name(name) {}
    GlName(GlName&& other) noexcept : m_name(std::exchange(other.m_name, 0)) {}
    GlName& operator=(GlName&& other) noexcept
    {
        std::swap(m_name, other.m_name);
        return *this;
    }
    ~GlName()
    {
        if (m_name != 0)
            Delete(m_name);
    }

    GlName(const GlName&) = delete;
    GlName& operator=(const GlName&) = delete;

    GLuint Get() const { return m_name; }
    explicit operator bool() const { return m_name != 0; }

private:
    GLuint m_name = 0; ///< Owned; 0 for none.
};

/// While one lives, names are forgotten instead of deleted: their context is gone and has taken
/// them along. @thread Main thread.
class ForgottenNames
{
public:
    ForgottenNames();
    ~ForgottenNames();

    ForgottenNames(const ForgottenNames&) = delete;
    ForgottenNames& operator=(const ForgottenNames&) = delete;
};

void DeleteBuffer(GLuint name);
void DeleteVertexArray(GLuint name);
void DeleteTexture(GLuint name);
void DeleteRenderbuffer(GLuint name);
void DeleteFramebuffer(GLuint name);
void DeleteProgram(GLuint name);

using GlBuffer = GlName<&DeleteBuffer>;
using GlVertexArray = GlName<&DeleteVertexArray>;
using GlTexture = GlName<&DeleteTexture>;
using GlRenderbuffer = GlName<&DeleteRenderbuffer>;
using GlFramebuffer = GlName<&DeleteFramebuffer>;
using GlProgram = GlName<&DeleteProgram>;

/// Makes a buffer that never changes; no name for no bytes.
GlBuffer MakeBuffer(GLenum target, const void* data, std::size_t bytes);

/// Makes a buffer over memory that stays as it is and lives as long as the buffer, without a copy;
/// see GlContext::ReadsOwnMemory.
GlBuffer MakeBufferOver(const void* data, std::size_t bytes);

/// Writes a part of a buffer anew.
void WriteBuffer(GLenum target, const GlBuffer& buffer, std::size_t offset, const void* data,
                 std::size_t bytes);

GlVertexArray MakeVertexArray();

/// Makes a texture over a buffer, so that a shader reads it by index.
GlTexture MakeBufferTexture(const GlBuffer& buffer, GLenum format);

/// Compiles and links.
///
/// @param errorText  Receives the compiler's log when the result has no name.
GlProgram MakeProgram(const std::string& vertexText, const std::string& fragmentText,
                      std::string& errorText);

} // namespace ViewOpenGl

#endif
