#include "View3dOpenGlSG.h"
#include "XSession.h"

#include <OrvikCore/ACamera.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Image.h>
#include <TambVizCore/RGBAColor.h>

#include <gtest/gtest.h>

#include <array>
#include <memory>
#include <string>
#include <vector>

// Last: the headers of X define words that others use.
#include <epoxy/gl.h>
#include <epoxy/glx.h>

namespace {

using TambVizCore::SharedArray;

/// A host whose own OpenGL context is one of GLX and current, with two drawing areas.
class GlxHost : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
        m_display = XOpenDisplay(m_x.Display().c_str());
        ASSERT_NE(m_display, nullptr);
        const std::array<int, 5> wanted = {GLX_DRAWABLE_TYPE, GLX_PBUFFER_BIT, GLX_RENDER_TYPE,
                                           GLX_RGBA_BIT, 0};
        int count = 0;
        GLXFBConfig* const configs =
            glXChooseFBConfig(m_display, DefaultScreen(m_display), wanted.data(), &count);
        ASSERT_GT(count, 0);
        const std::array<int, 5> size = {GLX_PBUFFER_WIDTH, 16, GLX_PBUFFER_HEIGHT, 16, 0};
        for (GLXPbuffer& area : m_areas)
            area = glXCreatePbuffer(m_display, configs[0], size.data());
        m_context = glXCreateNewContext(m_display, configs[0], GLX_RGBA_TYPE, nullptr, True);
        XFree(configs);
        ASSERT_TRUE(glXMakeContextCurrent(m_display, m_areas[0], m_areas[1], m_context));
    }

    void TearDown() override
    {
        if (m_display == nullptr)
            return;
        glXMakeContextCurrent(m_display, 0, 0, nullptr);
        glXDestroyContext(m_display, m_context);
        for (const GLXPbuffer area : m_areas)
            glXDestroyPbuffer(m_display, area);
        XCloseDisplay(m_display);
    }

    /// A view of a red triangle that fills the picture.
    static std::unique_ptr<ViewOpenGl::View3dOpenGlSG> makeView()
    {
        auto view = std::make_unique<ViewOpenGl::View3dOpenGlSG>();
        TambVizCore::GeometryBuilder builder;
        builder.SetPositions(SharedArray<float>(std::vector<float>{-9, -9, 0, 9, -9, 0, 0, 9, 0}))
            .SetTriangles(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2}));
        std::string error;
        auto* const node = view->GetSceneRoot().CreateChildGeoNode(1);
        node->SetGeometry(builder.Build(error));
        node->SetColor(TambVizCore::RGBAColor(220, 0, 0));
        float eye[3] = {0, 0, 10}, target[3] = {0, 0, 0}, up[3] = {0, 1, 0};
        view->GetCamera()->SetAnimate(false);
        view->GetCamera()->SetCamera(eye, target, up);
        return view;
    }

    XSession m_x;
    Display* m_display = nullptr;
    GLXContext m_context = nullptr;
    std::array<GLXPbuffer, 2> m_areas = {};
};

TEST_F(GlxHost, ViewDrawsWhileTheHostsContextIsCurrent)
{
    const auto view = makeView();
    TambVizCore::Image image;

    ASSERT_TRUE(view->ReadImage(32, 32, image));

    const std::size_t middle = 4 * (std::size_t{16} * 32 + 16);
    EXPECT_GT(image.rgba[middle], 120);
    EXPECT_LT(image.rgba[middle + 1], 40);
}

TEST_F(GlxHost, FindsItsContextCurrentAfterwardsWithItsDrawingAreas)
{
    const auto view = makeView();
    TambVizCore::Image image;

    ASSERT_TRUE(view->ReadImage(32, 32, image));

    EXPECT_EQ(glXGetCurrentContext(), m_context);
    EXPECT_EQ(glXGetCurrentDisplay(), m_display);
    EXPECT_EQ(glXGetCurrentDrawable(), m_areas[0]);
    EXPECT_EQ(glXGetCurrentReadDrawable(), m_areas[1]);
}

TEST_F(GlxHost, FindsItsStateAsItLeftIt)
{
    glClearColor(0.0f, 1.0f, 0.0f, 1.0f);
    glViewport(1, 2, 3, 4);
    {
        const auto view = makeView();
        TambVizCore::Image image;
        ASSERT_TRUE(view->ReadImage(32, 32, image));
    }

    GLint viewport[4] = {};
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(viewport[2], 3);
    glXMakeContextCurrent(m_display, m_areas[0], m_areas[0], m_context);
    glClear(GL_COLOR_BUFFER_BIT);
    std::array<unsigned char, 4> pixel = {};
    glReadPixels(8, 8, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, pixel.data());
    EXPECT_EQ(pixel[1], 255);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

} // namespace
