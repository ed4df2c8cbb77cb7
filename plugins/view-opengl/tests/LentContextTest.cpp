#include "FrameWindow.h"
#include "GlContext.h"
#include "Shapes.h"
#include "ViewTest.h"

#include <epoxy/egl.h>
#include <epoxy/gl.h>

#include <array>
#include <optional>
#include <string>

namespace ViewOpenGl {
namespace {

constexpr int kSide = 64;

/// A window with an OpenGL context and a drawing area of its own, as a toolkit has it.
class LendingWindow : public FrameWindow
{
public:
    explicit LendingWindow(View3dOpenGlSG& view) : FrameWindow(view)
    {
        m_display =
            eglGetPlatformDisplayEXT(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
        eglInitialize(m_display, nullptr, nullptr);
        const std::array<EGLint, 3> wanted = {EGL_SURFACE_TYPE, EGL_PBUFFER_BIT, EGL_NONE};
        EGLConfig config = nullptr;
        EGLint count = 0;
        eglChooseConfig(m_display, wanted.data(), &config, 1, &count);
        const std::array<EGLint, 5> size = {EGL_WIDTH, kSide, EGL_HEIGHT, kSide, EGL_NONE};
        for (EGLSurface& surface : m_surfaces)
            surface = eglCreatePbufferSurface(m_display, config, size.data());
        eglBindAPI(EGL_OPENGL_API);
        const std::array<EGLint, 5> version = {EGL_CONTEXT_MAJOR_VERSION, 3,
                                               EGL_CONTEXT_MINOR_VERSION, 3, EGL_NONE};
        m_context = eglCreateContext(m_display, config, EGL_NO_CONTEXT, version.data());
    }

    ~LendingWindow() override
    {
        eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        eglDestroyContext(m_display, m_context);
        for (const EGLSurface surface : m_surfaces)
            eglDestroySurface(m_display, surface);
    }

    bool MakeContextCurrent() override
    {
        if (m_refuses)
            return false;
        if (m_depth++ == 0 && eglGetCurrentContext() != m_context) {
            m_made = true;
            MakeCurrent();
        }
        return true;
    }

    void DoneContextCurrent() override
    {
        if (--m_depth == 0 && m_made) {
            m_made = false;
            eglMakeCurrent(m_display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
        }
    }

    void MakeCurrent()
    {
        eglBindAPI(EGL_OPENGL_API);
        eglMakeCurrent(m_display, m_surfaces[0], m_surfaces[1], m_context);
    }

    /// What a toolkit leaves behind of its own drawing.
    static void LeaveStateBehind()
    {
        glEnable(GL_SCISSOR_TEST);
        glScissor(0, 0, 3, 3);
        glEnable(GL_BLEND);
        glEnable(GL_STENCIL_TEST);
        glStencilFunc(GL_NEVER, 1, 1);
        glColorMask(GL_TRUE, GL_FALSE, GL_TRUE, GL_FALSE);
        glDepthMask(GL_FALSE);
        glDepthFunc(GL_NEVER);
        glFrontFace(GL_CW);
        glCullFace(GL_FRONT_AND_BACK);
        glPixelStorei(GL_PACK_SKIP_PIXELS, 5);
    }

    /// @return the colour in the middle of what is drawn into.
    std::array<unsigned char, 4> Middle() const
    {
        std::array<unsigned char, 4> color = {};
        glReadBuffer(GL_BACK);
        eglMakeCurrent(m_display, m_surfaces[0], m_surfaces[0], m_context);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, 0);
        glReadPixels(kSide / 2, kSide / 2, 1, 1, GL_RGBA, GL_UNSIGNED_BYTE, color.data());
        return color;
    }

    void Refuse() { m_refuses = true; }
    int Depth() const { return m_depth; }
    EGLContext Context() const { return m_context; }
    EGLSurface Surface(std::size_t place) const { return m_surfaces[place]; }
    EGLDisplay Display() const { return m_display; }

private:
    EGLDisplay m_display = EGL_NO_DISPLAY;
    EGLContext m_context = EGL_NO_CONTEXT;
    std::array<EGLSurface, 2> m_surfaces = {}; ///< To draw into and to read from.
    int m_depth = 0;
    bool m_made = false;
    bool m_refuses = false;
};

class LentContext : public ViewTest
{
protected:
    void SetUp() override
    {
        ViewTest::SetUp();
        Add(MakeRectangles({{}}));
        m_window.emplace(*m_view);
        ASSERT_NE(m_window->Context(), EGL_NO_CONTEXT);
        m_view->SetFrameWindow(&*m_window);
    }

    void TearDown() override { m_view->SetFrameWindow(nullptr); }

    std::optional<LendingWindow> m_window;
};

TEST_F(LentContext, OwnFrameLeavesItCurrentWithItsSurfaces)
{
    m_window->MakeCurrent();

    EXPECT_TRUE(m_view->DrawFrame());

    EXPECT_EQ(eglGetCurrentContext(), m_window->Context());
    EXPECT_EQ(eglGetCurrentDisplay(), m_window->Display());
    EXPECT_EQ(eglGetCurrentSurface(EGL_DRAW), m_window->Surface(0));
    EXPECT_EQ(eglGetCurrentSurface(EGL_READ), m_window->Surface(1));
}

TEST_F(LentContext, ShowsTheSameAsTheViewsOwn)
{
    m_view->UpdateDisplay();
    m_window->Settle();
    const auto own = m_window->Pixels();
    std::string reason;

    ASSERT_TRUE(m_view->UseWindowContext(reason)) << reason;
    m_view->UpdateDisplay();
    m_window->Settle();

    EXPECT_EQ(m_window->Pixels(), own);
    EXPECT_EQ(m_view->GetFrameCount(), 2u);
}

TEST_F(LentContext, FrameIsBlittedIntoTheFramebufferOfTheHost)
{
    std::string reason;
    ASSERT_TRUE(m_view->UseWindowContext(reason)) << reason;
    m_window->MakeCurrent();

    ASSERT_TRUE(m_view->DrawFrame());
    ASSERT_TRUE(m_view->BlitFrame(0, kSide, kSide));

    const auto color = m_window->Middle();
    EXPECT_GT(color[0], 120);
    EXPECT_LT(color[1], 40);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(LentContext, StateOfTheHostDoesNotShowInTheFrame)
{
    m_view->UpdateDisplay();
    m_window->Settle();
    const auto own = m_window->Pixels();
    std::string reason;
    ASSERT_TRUE(m_view->UseWindowContext(reason)) << reason;
    m_window->MakeCurrent();
    LendingWindow::LeaveStateBehind();

    m_view->UpdateDisplay();
    m_window->Settle();

    EXPECT_EQ(m_window->Pixels(), own);
}

TEST_F(LentContext, FramebufferAndViewportOfTheHostAreBackAfterAPicture)
{
    std::string reason;
    ASSERT_TRUE(m_view->UseWindowContext(reason)) << reason;
    m_window->MakeCurrent();
    GLuint framebuffer = 0;
    glGenFramebuffers(1, &framebuffer);
    glBindFramebuffer(GL_FRAMEBUFFER, framebuffer);
    glViewport(1, 2, 3, 4);

    Draw(32, 16);

    GLint bound = 0;
    GLint viewport[4] = {};
    glGetIntegerv(GL_DRAW_FRAMEBUFFER_BINDING, &bound);
    glGetIntegerv(GL_VIEWPORT, viewport);
    EXPECT_EQ(static_cast<GLuint>(bound), framebuffer);
    EXPECT_EQ(std::vector<GLint>(viewport, viewport + 4), (std::vector<GLint>{1, 2, 3, 4}));
    EXPECT_EQ(eglGetCurrentContext(), m_window->Context());
    EXPECT_EQ(m_window->Depth(), 0);
}

TEST_F(LentContext, IsMadeCurrentForAPictureAndLeftAgain)
{
    std::string reason;
    ASSERT_TRUE(m_view->UseWindowContext(reason)) << reason;

    Draw();

    EXPECT_EQ(At(0, 0), Shows::Red);
    EXPECT_EQ(eglGetCurrentContext(), EGL_NO_CONTEXT);
}

TEST_F(LentContext, IsGivenBackWithAllNames)
{
    std::string reason;
    ASSERT_TRUE(m_view->UseWindowContext(reason)) << reason;
    m_view->UpdateDisplay();

    m_view->ReleaseWindowContext();

    m_window->MakeCurrent();
    for (GLuint name = 1; name < 64; ++name) {
        EXPECT_FALSE(glIsBuffer(name)) << name;
        EXPECT_FALSE(glIsTexture(name)) << name;
        EXPECT_FALSE(glIsFramebuffer(name)) << name;
        EXPECT_FALSE(glIsProgram(name)) << name;
        EXPECT_FALSE(glIsVertexArray(name)) << name;
    }
    Draw();
    EXPECT_EQ(At(0, 0), Shows::Red);
}

TEST_F(LentContext, ThatIsRefusedLeavesTheViewItsOwn)
{
    m_window->Refuse();
    std::string reason;

    EXPECT_FALSE(m_view->UseWindowContext(reason));
    EXPECT_EQ(reason, "the window's OpenGL context cannot be made current");
    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
}

TEST_F(LentContext, NeedsAWindow)
{
    m_view->SetFrameWindow(nullptr);
    std::string reason;

    EXPECT_FALSE(m_view->UseWindowContext(reason));
    EXPECT_EQ(reason, "there is no window");
}

} // namespace
} // namespace ViewOpenGl
