#include "GlState.h"

#include "Shaders.h"

#include <epoxy/gl.h>

namespace ViewOpenGl {
namespace {

void resetTests()
{
    for (const GLenum capability :
         {GL_BLEND, GL_CULL_FACE, GL_DEPTH_TEST, GL_STENCIL_TEST, GL_SCISSOR_TEST,
          GL_POLYGON_OFFSET_FILL, GL_PROGRAM_POINT_SIZE, GL_FRAMEBUFFER_SRGB, GL_COLOR_LOGIC_OP,
          GL_PRIMITIVE_RESTART, GL_RASTERIZER_DISCARD, GL_SAMPLE_ALPHA_TO_COVERAGE})
        glDisable(capability);
    for (int i = 0; i < kMaxClipPlanes; ++i)
        glDisable(GL_CLIP_DISTANCE0 + static_cast<GLenum>(i));
    glEnable(GL_MULTISAMPLE);
    glEnable(GL_DITHER);
    glDepthFunc(GL_LESS);
    glDepthRange(0.0, 1.0);
    glDepthMask(GL_TRUE);
    glColorMask(GL_TRUE, GL_TRUE, GL_TRUE, GL_TRUE);
    glStencilMask(0xFFFFFFFFu);
    glStencilFunc(GL_ALWAYS, 0, 0xFFFFFFFFu);
    glStencilOp(GL_KEEP, GL_KEEP, GL_KEEP);
    glBlendFunc(GL_ONE, GL_ZERO);
    glBlendEquation(GL_FUNC_ADD);
    glClearDepth(1.0);
    glClearStencil(0);
    glClearColor(0.0f, 0.0f, 0.0f, 0.0f);
}

void resetRaster()
{
    glFrontFace(GL_CCW);
    glCullFace(GL_BACK);
    glPolygonMode(GL_FRONT_AND_BACK, GL_FILL);
    glPolygonOffset(0.0f, 0.0f);
    glLineWidth(1.0f);
}

void resetBindings()
{
    glUseProgram(0);
    glBindVertexArray(0);
    for (const GLenum target : {GL_ARRAY_BUFFER, GL_TEXTURE_BUFFER, GL_PIXEL_PACK_BUFFER,
                                GL_PIXEL_UNPACK_BUFFER, GL_UNIFORM_BUFFER})
        glBindBuffer(target, 0);
    for (const GLint unit : {kPartStateUnit, kPartOfPrimitiveUnit}) {
        glActiveTexture(GL_TEXTURE0 + static_cast<GLenum>(unit));
        glBindSampler(static_cast<GLuint>(unit), 0);
        glBindTexture(GL_TEXTURE_BUFFER, 0);
        glBindTexture(GL_TEXTURE_2D, 0);
    }
    static_assert(kPartOfPrimitiveUnit == 0, "unit 0 is left active");
    glBindRenderbuffer(GL_RENDERBUFFER, 0);
    for (const GLenum side : {GL_PACK_ALIGNMENT, GL_UNPACK_ALIGNMENT})
        glPixelStorei(side, 4);
    for (const GLenum side : {GL_PACK_ROW_LENGTH, GL_PACK_SKIP_ROWS, GL_PACK_SKIP_PIXELS,
                              GL_UNPACK_ROW_LENGTH, GL_UNPACK_SKIP_ROWS, GL_UNPACK_SKIP_PIXELS})
        glPixelStorei(side, 0);
}

} // namespace

void ResetGlState()
{
    resetTests();
    resetRaster();
    resetBindings();
}

} // namespace ViewOpenGl
