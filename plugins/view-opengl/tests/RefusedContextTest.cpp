#include "View3dOpenGlSG.h"

#include <TambVizCore/Image.h>

#include <CapturedDebugOutput.h>
#include <gtest/gtest.h>

namespace ViewOpenGl {
namespace {

/// Runs where EGL finds no driver; skips where it finds one all the same.
class RefusedContext : public ::testing::Test
{
protected:
    void SetUp() override
    {
        m_image.width = 7;
        m_drawn = m_view.ReadImage(8, 8, m_image);
        if (m_drawn)
            GTEST_SKIP() << "EGL of this machine does not heed __EGL_VENDOR_LIBRARY_DIRS";
    }

    CapturedDebugOutput m_debug;
    View3dOpenGlSG m_view;
    TambVizCore::Image m_image;
    bool m_drawn = false;
};

TEST_F(RefusedContext, ImageStaysAsItIs)
{
    EXPECT_EQ(m_image.width, 7);
    EXPECT_TRUE(m_image.rgba.empty());
}

TEST_F(RefusedContext, ReasonIsToldOnce)
{
    EXPECT_FALSE(m_view.ReadImage(8, 8, m_image));
    m_view.UpdateDisplay();
    m_view.Rerender();

    ASSERT_EQ(m_debug.LinesAfter("-- view: no OpenGL: ").size(), 1u);
    EXPECT_EQ(m_debug.LinesAfter("-- view: no OpenGL: ")[0],
              "EGL offers no display without a window system");
}

TEST_F(RefusedContext, ReasonIsThatOfThePicture)
{
    EXPECT_EQ(m_view.GetPictureError(), "no OpenGL: EGL offers no display without a window system");
}

} // namespace
} // namespace ViewOpenGl
