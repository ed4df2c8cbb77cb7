#include "GlContext.h"
#include "Shapes.h"
#include "ViewTest.h"

#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>

#include <epoxy/egl.h>

#include <optional>
#include <string>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Image;
using TambVizCore::Node;

class Frame : public ViewTest
{
};

TEST_F(Frame, PictureOfNoPixelsIsRefusedAndTheImageStays)
{
    Image image;
    image.width = 7;

    EXPECT_FALSE(m_view->ReadImage(0, 10, image));
    EXPECT_FALSE(m_view->ReadImage(10, -1, image));
    EXPECT_EQ(image.width, 7);
}

TEST_F(Frame, PictureOfOnePixelIsDrawn)
{
    Add(MakeRectangles({{}}));
    Draw(1, 1);

    EXPECT_EQ(m_image.rgba.size(), 4u);
    EXPECT_EQ(At(0, 0), Shows::Red);
}

TEST_F(Frame, PictureLargerThanTheDriverAllowsIsRefusedWithALine)
{
    Image image;

    EXPECT_FALSE(m_view->ReadImage(1 << 24, 1, image));
    EXPECT_NE(m_debug.Text().find("-- view: a picture of 16777216 x 1 is larger than the "),
              std::string::npos);
}

TEST_F(Frame, LongestSideIsDrawn)
{
    Draw(16384, 2);

    EXPECT_EQ(m_image.rgba.size(), 16384u * 2u * 4u);
    EXPECT_EQ(At(0.99, 0), Shows::Background);
}

TEST_F(Frame, PicturesOfDifferentSizesFollowEachOther)
{
    Add(MakeRectangles({{}}));
    for (const int side : {64, 10, 200, 64}) {
        Draw(side, side);

        EXPECT_EQ(m_image.width, side);
        EXPECT_EQ(At(0, 0), Shows::Red) << side;
        EXPECT_EQ(At(-0.8, 0), Shows::Background) << side;
    }
}

TEST_F(Frame, EqualScenesGiveEqualPictures)
{
    Add(MakeRectangles({{}}));
    Draw();
    const Image first = m_image;

    Draw();

    EXPECT_EQ(first.rgba, m_image.rgba);
}

TEST_F(Frame, ReplacedGeometryIsDrawn)
{
    GeoNode& node = Add(MakeRectangles({{.left = -0.8f, .right = -0.2f}}));
    EXPECT_EQ(DrawnAt(-0.5, 0), Shows::Red);

    node.SetGeometry(MakeRectangles({{.left = 0.2f, .right = 0.8f}}));
    Draw();

    EXPECT_EQ(At(-0.5, 0), Shows::Background);
    EXPECT_EQ(At(0.5, 0), Shows::Red);
}

TEST_F(Frame, DeletedNodeIsGone)
{
    Add(MakeRectangles({{}}));
    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);

    m_view->GetSceneRoot().RemoveAllChildren();

    EXPECT_EQ(DrawnAt(0, 0), Shows::Background);
}

TEST_F(Frame, RerenderDrawsTheSame)
{
    GeoNode& node = Add(MakeRectangles({{}}));
    node.SetPartColor(0, kGreen);
    EXPECT_EQ(DrawnAt(0, 0), Shows::Green);

    m_view->Rerender();

    EXPECT_EQ(DrawnAt(0, 0), Shows::Green);
}

TEST_F(Frame, ContextOfTheHostIsCurrentAgainAfterwards)
{
    std::string reason;
    const auto host = GlContext::Create(reason);
    ASSERT_NE(host, nullptr) << reason;
    const GlContext::Current current(*host);
    const EGLContext before = eglGetCurrentContext();
    ASSERT_NE(before, EGL_NO_CONTEXT);

    Draw();

    EXPECT_EQ(eglGetCurrentContext(), before);
}

TEST_F(Frame, NoContextIsCurrentAfterwardsWhereNoneWasBefore)
{
    Draw();

    EXPECT_EQ(eglGetCurrentContext(), EGL_NO_CONTEXT);
}

TEST_F(Frame, ApiOfTheHostIsBoundAgainAfterwards)
{
    ASSERT_EQ(eglBindAPI(EGL_OPENGL_ES_API), static_cast<EGLBoolean>(EGL_TRUE));

    Draw();

    EXPECT_EQ(eglQueryAPI(), static_cast<EGLenum>(EGL_OPENGL_ES_API));
}

TEST_F(Frame, ViewsDrawSideBySide)
{
    View3dOpenGlSG other;
    other.SetWindowSize(64, 64);
    PlaceCamera(other);
    Add(MakeRectangles({{}}));
    Image image;

    ASSERT_TRUE(other.ReadImage(64, 64, image));
    EXPECT_EQ(DrawnAt(0, 0), Shows::Red);
    ASSERT_TRUE(other.ReadImage(64, 64, image));
    EXPECT_GT(image.rgba[4 * (32 * 64 + 32) + 1], 200);
}

/// The renderer alone, to see what it keeps.
class KeptData : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::string reason;
        m_context = GlContext::Create(reason);
        if (m_context == nullptr)
            GTEST_SKIP() << "no picture can be drawn on this machine: " << reason;
        m_current.emplace(*m_context);
        ASSERT_TRUE(m_target.Bind(16, 16, 1));
    }

    void TearDown() override
    {
        m_renderer.Clear();
        m_target.Clear();
    }

    /// @return the picture drawn last.
    TambVizCore::Image read()
    {
        Image image;
        m_target.Read(image);
        return image;
    }

    void draw()
    {
        Projection projection;
        TambVizCore::SetIdentity(projection.view);
        projection.halfHeight = 1.0;
        m_renderer.Begin(m_root, m_objects, m_options, projection, {}, {}, TimeSlice());
        m_renderer.DrawAll();
        m_renderer.EndFrame();
        EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
    }

    std::unique_ptr<GlContext> m_context;
    std::optional<GlContext::Current> m_current;
    FrameTarget m_target;
    SceneRenderer m_renderer;
    Node m_root{1};
    Node m_objects{1};
    TambVizCore::RenderingOptions m_options;
};

TEST_F(KeptData, HundredReplacedGeometriesLeaveOne)
{
    GeoNode* const node = m_root.CreateChildGeoNode(1);
    for (int i = 0; i < 100; ++i) {
        node->SetGeometry(MakeRectangles({{}}));
        draw();
    }

    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 1u);
    EXPECT_EQ(m_renderer.Gpu().NodeCount(), 1u);
}

TEST_F(KeptData, HundredDeletedNodesLeaveNothing)
{
    for (int i = 0; i < 100; ++i) {
        m_root.CreateChildGeoNode(1)->SetGeometry(MakeRectangles({{}}));
        draw();
        m_root.RemoveAllChildren();
    }
    draw();

    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 0u);
    EXPECT_EQ(m_renderer.Gpu().NodeCount(), 0u);
}

TEST_F(KeptData, InstancesShareOneGeometry)
{
    const auto shared = MakeRectangles({{}});
    for (std::uint64_t id = 1; id <= 10; ++id)
        m_root.CreateChildGeoNode(id)->SetGeometry(shared);
    draw();

    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 1u);
    EXPECT_EQ(m_renderer.Gpu().NodeCount(), 10u);
}

TEST_F(KeptData, PictureIsTheSameWithAndWithoutCopies)
{
    GeoNode* const node = m_root.CreateChildGeoNode(1);
    node->SetGeometry(MakeRectangles({{.right = 0.3f}}));
    draw();
    const Image copied = read();
    m_renderer.Clear();

    m_renderer.Gpu().SetReadsOwnMemory(m_context->ReadsOwnMemory());
    draw();

    EXPECT_EQ(read().rgba, copied.rgba);
}

TEST_F(KeptData, MemoryThatIsReadInPlaceLivesUntilTheBodyIsForgotten)
{
    if (!m_context->ReadsOwnMemory())
        GTEST_SKIP() << "the renderer here makes copies: " << m_context->Description();
    m_renderer.Gpu().SetReadsOwnMemory(true);
    auto owner =
        std::make_shared<const std::vector<float>>(std::vector<float>{0, 0, 0, 1, 0, 0, 0, 1, 0});
    const std::weak_ptr<const std::vector<float>> watch = owner;
    {
        TambVizCore::GeometryBuilder builder;
        builder.SetPositions({std::shared_ptr<const float>(owner, owner->data()), 9})
            .SetTriangles(
                TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2}));
        m_root.CreateChildGeoNode(1)->SetGeometry(Build(builder));
    }
    owner.reset();
    draw();

    m_root.RemoveAllChildren();
    EXPECT_FALSE(watch.expired());
    draw();

    EXPECT_TRUE(watch.expired());
}

TEST_F(KeptData, BodyOutOfSightIsNotUploaded)
{
    m_root.CreateChildGeoNode(1)->SetGeometry(MakeRectangles({{.left = 5.0f, .right = 6.0f}}));
    draw();

    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 0u);
}

TEST_F(KeptData, HiddenBodyIsNotUploadedAgainWhenShown)
{
    GeoNode* const node = m_root.CreateChildGeoNode(1);
    node->SetGeometry(MakeRectangles({{}}));
    draw();
    node->SetVisible(false);
    draw();

    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 1u);
    EXPECT_EQ(m_renderer.Gpu().NodeCount(), 0u);
}

} // namespace
} // namespace ViewOpenGl
