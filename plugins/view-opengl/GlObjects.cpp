#include "GlObjects.h"

namespace ViewOpenGl {
namespace {

bool s_forgets = false;

} // namespace

ForgottenNames::ForgottenNames()
{
    s_forgets = true;
}

ForgottenNames::~ForgottenNames()
{
    s_forgets = false;
}

void DeleteBuffer(GLuint name)
{
    if (!s_forgets)
        glDeleteBuffers(1, &name);
}

void DeleteVertexArray(GLuint name)
{
    if (!s_forgets)
        glDeleteVertexArrays(1, &name);
}

void DeleteTexture(GLuint name)
{
    if (!s_forgets)
        glDeleteTextures(1, &name);
}

void DeleteRenderbuffer(GLuint name)
{
    if (!s_forgets)
        glDeleteRenderbuffers(1, &name);
}

void DeleteFramebuffer(GLuint name)
{
    if (!s_forgets)
        glDeleteFramebuffers(1, &name);
}

void DeleteProgram(GLuint name)
{
    if (!s_forgets)
        glDeleteProgram(name);
}

GlBuffer MakeBuffer(GLenum target, const void* data, std::size_t bytes)
{
    if (bytes == 0)
        return {};
    GLuint name = 0;
    glGenBuffers(1, &name);
    glBindBuffer(target, name);
    glBufferData(target, static_cast<GLsizeiptr>(bytes), data, GL_STATIC_DRAW);
    return GlBuffer(name);
}

GlBuffer MakeBufferOver(const void* data, std::size_t bytes)
{
    return MakeBuffer(GL_EXTERNAL_VIRTUAL_MEMORY_BUFFER_AMD, data, bytes);
}

void WriteBuffer(GLenum target, const GlBuffer& buffer, std::size_t offset, const void* data,
                 std::size_t bytes)
{
    glBindBuffer(target, buffer.Get());
    glBufferSubData(target, static_cast<GLintptr>(offset), static_cast<GLsizeiptr>(bytes), data);
}

GlVertexArray MakeVertexArray()
{
    GLuint name = 0;
    glGenVertexArrays(1, &name);
    return GlVertexArray(name);
}

GlTexture MakeBufferTexture(const GlBuffer& buffer, GLenum format)
{
    GLuint name = 0;
    glGenTextures(1, &name);
    glBindTexture(GL_TEXTURE_BUFFER, name);
    glTexBuffer(GL_TEXTURE_BUFFER, format, buffer.Get());
    return GlTexture(name);
}

namespace {

using QueryInteger = void (*)(GLuint, GLenum, GLint*);
using ReadLog = void (*)(GLuint, GLsizei, GLsizei*, GLchar*);

std::string logOf(GLuint object, QueryInteger query, ReadLog read)
{
    GLint length = 0;
    query(object, GL_INFO_LOG_LENGTH, &length);
    std::string text(static_cast<std::size_t>(length), '\0');
    read(object, length, nullptr, text.data());
    return text;
}

/// @return the shader's name, 0 when it does not compile.
GLuint compile(GLenum kind, const std::string& text, std::string& errorText)
{
    const GLuint shader = glCreateShader(kind);
    const char* const source = text.c_str();
    glShaderSource(shader, 1, &source, nullptr);
    glCompileShader(shader);
    GLint good = GL_FALSE;
    glGetShaderiv(shader, GL_COMPILE_STATUS, &good);
    if (good == GL_TRUE)
        return shader;
    errorText = logOf(shader, glGetShaderiv, glGetShaderInfoLog);
    glDeleteShader(shader);
    return 0;
}

} // namespace

GlProgram MakeProgram(const std::string& vertexText, const std::string& fragmentText,
                      std::string& errorText)
{
    const GLuint vertex = compile(GL_VERTEX_SHADER, vertexText, errorText);
    const GLuint fragment = vertex == 0 ? 0 : compile(GL_FRAGMENT_SHADER, fragmentText, errorText);
    GlProgram program(fragment == 0 ? 0 : glCreateProgram());
    if (program) {
        glAttachShader(program.Get(), vertex);
        glAttachShader(program.Get(), fragment);
        glLinkProgram(program.Get());
    }
    glDeleteShader(vertex);
    glDeleteShader(fragment);
    if (!program)
        return {};
    GLint good = GL_FALSE;
    glGetProgramiv(program.Get(), GL_LINK_STATUS, &good);
    if (good == GL_TRUE)
        return program;
    errorText = logOf(program.Get(), glGetProgramiv, glGetProgramInfoLog);
    return {};
}

} // namespace ViewOpenGl
