#include "PictureLimits.h"

#include "ViewTest.h"

#include <TambVizCore/IIdPictureProvider.h>

#include <epoxy/gl.h>

#include <memory>
#include <string>
#include <utility>

namespace ViewOpenGl {
namespace {

using TambVizCore::Image;

TEST(PictureLimits, ASizeWithinAllIsAllowed)
{
    const PictureLimits limits{100, {90, 80}};

    EXPECT_EQ(limits.Refusal(90, 80), "");
}

TEST(PictureLimits, TheLimitThatIsPassedIsNamedWithItsValue)
{
    const PictureLimits limits{100, {90, 80}};

    EXPECT_EQ(limits.Refusal(101, 1), "a picture of 101 x 1 is larger than the OpenGL driver "
                                      "allows: at most 100 pixels a side "
                                      "(GL_MAX_RENDERBUFFER_SIZE)");
    EXPECT_EQ(limits.Refusal(1, 81), "a picture of 1 x 81 is larger than the OpenGL driver allows: "
                                     "at most 90 x 80 pixels (GL_MAX_VIEWPORT_DIMS)");
}

TEST(PictureLimits, ADriversAnswerIsNamed)
{
    EXPECT_EQ((FramebufferAnswer{GL_OUT_OF_MEMORY, 0}.Refusal(8, 9, 4)),
              "the OpenGL driver has no memory for a picture of 8 x 9 with 4 samples a pixel "
              "(GL_OUT_OF_MEMORY)");
    EXPECT_EQ((FramebufferAnswer{GL_INVALID_VALUE, 0}.Refusal(8, 9, 1)),
              "the OpenGL driver refuses a picture of 8 x 9 with 1 sample a pixel (OpenGL error "
              "0x501)");
    EXPECT_EQ((FramebufferAnswer{GL_NO_ERROR, GL_FRAMEBUFFER_UNSUPPORTED}.Refusal(8, 9, 1)),
              "the OpenGL driver refuses a picture of 8 x 9 with 1 sample a pixel (framebuffer "
              "status 0x8cdd)");
}

PFNGLGETINTEGERVPROC realGetIntegerv = nullptr;
PFNGLGETERRORPROC realGetError = nullptr;
bool isOutOfMemory = false;

/// A driver with small pictures.
void smallDriver(GLenum name, GLint* values)
{
    realGetIntegerv(name, values);
    if (name == GL_MAX_RENDERBUFFER_SIZE)
        values[0] = 64;
}

/// Renderbuffers find no memory.
void storeNothing(GLenum, GLenum, GLsizei, GLsizei)
{
    isOutOfMemory = true;
}

void storeNothingMultisampled(GLenum, GLsizei, GLenum, GLsizei, GLsizei)
{
    isOutOfMemory = true;
}

GLenum errorOfMemory()
{
    return std::exchange(isOutOfMemory, false) ? GLenum{GL_OUT_OF_MEMORY} : realGetError();
}

/// Replaces functions of the driver while it lives; all are known by then.
class DrivenPicture : public ViewTest
{
protected:
    void SetUp() override
    {
        ViewTest::SetUp();
        if (IsSkipped())
            return;
        Draw(8, 8);
        glGetError();
        realGetIntegerv = epoxy_glGetIntegerv;
        realGetError = epoxy_glGetError;
    }
    void TearDown() override
    {
        giveBack();
        ViewTest::TearDown();
    }
    void giveBack()
    {
        if (realGetError == nullptr)
            return;
        epoxy_glGetIntegerv = realGetIntegerv;
        epoxy_glGetError = realGetError;
        epoxy_glRenderbufferStorage = m_storage;
        epoxy_glRenderbufferStorageMultisample = m_multisampled;
    }
    void takeMemory()
    {
        m_storage = epoxy_glRenderbufferStorage;
        m_multisampled = epoxy_glRenderbufferStorageMultisample;
        epoxy_glGetError = &errorOfMemory;
        epoxy_glRenderbufferStorage = &storeNothing;
        epoxy_glRenderbufferStorageMultisample = &storeNothingMultisampled;
    }

    PFNGLRENDERBUFFERSTORAGEPROC m_storage = epoxy_glRenderbufferStorage;
    PFNGLRENDERBUFFERSTORAGEMULTISAMPLEPROC m_multisampled = epoxy_glRenderbufferStorageMultisample;
};

TEST_F(DrivenPicture, AboveTheDriversLimitIsRefusedWithItsName)
{
    epoxy_glGetIntegerv = &smallDriver;
    m_view = std::make_unique<View3dOpenGlSG>();
    Image image;
    TambVizCore::IdPicture ids;

    EXPECT_TRUE(m_view->ReadImage(64, 64, image));
    EXPECT_EQ(m_view->GetPictureError(), "");
    EXPECT_FALSE(m_view->ReadImage(65, 1, image));
    const std::string refusal = "a picture of 65 x 1 is larger than the OpenGL driver allows: at "
                                "most 64 pixels a side (GL_MAX_RENDERBUFFER_SIZE)";
    EXPECT_EQ(m_view->GetPictureError(), refusal);
    EXPECT_FALSE(m_view->ReadIdPicture(65, 1, ids));
    EXPECT_EQ(m_view->GetPictureError(), refusal);
}

TEST_F(DrivenPicture, WithoutMemoryIsRefusedAndTheNextOneIsDrawn)
{
    Image image;
    TambVizCore::IdPicture ids;
    takeMemory();

    EXPECT_FALSE(m_view->ReadImage(50, 40, image));
    EXPECT_NE(m_view->GetPictureError().find(
                  "the OpenGL driver has no memory for a picture of 50 x 40 with "),
              std::string::npos)
        << m_view->GetPictureError();
    EXPECT_FALSE(m_view->ReadIdPicture(50, 40, ids));
    EXPECT_NE(m_view->GetPictureError().find("(GL_OUT_OF_MEMORY)"), std::string::npos);
    giveBack();

    EXPECT_TRUE(m_view->ReadImage(50, 40, image));
    EXPECT_EQ(m_view->GetPictureError(), "");
}

TEST_F(DrivenPicture, OfNoPixelsSaysSo)
{
    Image image;

    EXPECT_FALSE(m_view->ReadImage(0, 5, image));
    EXPECT_EQ(m_view->GetPictureError(), "a picture of 0 x 5 has no pixels");
}

} // namespace
} // namespace ViewOpenGl
