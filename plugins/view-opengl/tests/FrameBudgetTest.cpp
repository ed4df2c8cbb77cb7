#include "FrameBudgetOfAView.h"

#include <OrvikCore/AViewObject.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/Matrix.h>
#include <TambVizCore/Node.h>

#include <optional>

namespace ViewOpenGl {
namespace {

using TambVizCore::GeoNode;
using TambVizCore::Image;

TEST_F(FrameBudgetOfAView, IsKeptByCoarserFramesThatRefineToThePicture)
{
    moveUntilCoarse();
    m_window.Settle();
    turn(0.5f);
    m_view->UpdateDisplay();
    Draw(200, 200);
    EXPECT_NE(m_window.Pixels(), m_image.rgba);

    m_window.Settle();

    EXPECT_EQ(m_window.Pixels(), m_image.rgba);
}

TEST_F(FrameBudgetOfAView, IsKeptByFramesInWhichTheModelIsWhereItWas)
{
    double place[16];
    TambVizCore::SetIdentity(place);
    place[0] = place[5] = place[10] = 0.5;
    place[12] = place[13] = 0.5;
    m_body->SetTransform(place);
    moveFarBeyondTheBudget();

    EXPECT_EQ(shownAt(0.45, 0.5), Shows::Red);
    EXPECT_EQ(shownAt(-0.5, 0.5), Shows::Background);
    EXPECT_EQ(shownAt(-0.5, -0.5), Shows::Background);
    EXPECT_EQ(shownAt(0.5, -0.5), Shows::Background);
}

TEST_F(FrameBudgetOfAView, IsKeptByFramesWithoutFacesInWhichTheModelIsSeen)
{
    Options().SetShowFaces(false);
    moveFarBeyondTheBudget();

    int dark = 0;
    for (std::size_t at = 0; at < m_window.Pixels().size(); at += 4)
        dark += m_window.Pixels()[at] < 60 ? 1 : 0;
    EXPECT_GT(dark, 100);
}

TEST_F(FrameBudgetOfAView, IsKeptByFramesInWhichLabelsAreHiddenByTheModel)
{
    using enum OrvikCore::TextDirection;
    m_view->DrawTextItems(
        {OrvikCore::TextItem3D(L"HHHHHH", false, L"", -0.5f, 0.0f, -1.0f, PositiveX, PositiveY,
                               true, false, 0.2f, 0.0f, 0.0f, L"", kBlue, kBlue)});
    double place[16];
    TambVizCore::SetIdentity(place);
    place[13] = 1.0;
    m_body->SetTransform(place);
    moveFarBeyondTheBudget();
    const Shows before = shownAt(0.0, 0.05);
    place[13] = 0.0;
    m_body->SetTransform(place);
    m_view->UpdateDisplay();
    turn(0.0f);
    m_view->UpdateDisplay();

    EXPECT_EQ(before, Shows::Blue);
    EXPECT_EQ(shownAt(0.0, 0.05), Shows::Red);
    EXPECT_EQ(shownAt(0.2, 0.05), Shows::Red);
}

TEST_F(FrameBudgetOfAView, IsKeptBySeveralSlicesOfRefinement)
{
    moveUntilCoarse();
    int slices = 1;
    while (m_view->Refine(1))
        ++slices;

    EXPECT_GT(slices, 3);
    EXPECT_FALSE(m_view->Refine(1));
}

TEST_F(FrameBudgetOfAView, NeverShowsInPictures)
{
    turn(0.25f);
    const Image before = Draw(200, 200);
    moveUntilCoarse();
    turn(0.25f);
    m_view->UpdateDisplay();

    EXPECT_EQ(Draw(200, 200).rgba, before.rgba);
    m_view->Refine(1);
    EXPECT_EQ(Draw(200, 200).rgba, before.rgba);
}

TEST_F(FrameBudgetOfAView, PictureInTheMiddleOfRefinementSpoilsNeither)
{
    moveUntilCoarse();
    m_window.Settle();
    turn(0.5f);
    m_view->UpdateDisplay();
    m_view->Refine(1);
    Draw(100, 80);

    m_window.Settle();
    Draw(200, 200);

    EXPECT_EQ(m_window.Pixels(), m_image.rgba);
}

TEST_F(FrameBudgetOfAView, ChangeInTheMiddleOfRefinementIsShownInTheEnd)
{
    moveUntilCoarse();
    m_view->Refine(1);
    m_body->SetColor(kGreen);
    EXPECT_FALSE(m_view->Refine(1));
    m_view->UpdateDisplay();

    m_window.Settle();
    Draw(200, 200);

    EXPECT_EQ(m_window.Pixels(), m_image.rgba);
}

TEST_F(FrameBudgetOfAView, RubberBandInTheMiddleOfRefinementSpoilsNeither)
{
    moveUntilCoarse();
    m_window.Settle();
    turn(0.5f);
    m_view->UpdateDisplay();
    m_view->Refine(1);
    auto* const band = dynamic_cast<RubberBand*>(m_view->GetViewObjectManager()->Get("Rubberband"));
    band->Place({10, 10, 50, 50});
    band->SetIsVisible(true);
    m_view->UpdateDisplay();

    m_window.Settle();
    Draw(200, 200);

    EXPECT_EQ(m_window.Pixels(), m_image.rgba);
}

TEST_F(FrameBudgetOfAView, ChangeAtRestKeepsTheFrameUntilTheNewOneIsComplete)
{
    moveUntilCoarse();
    m_window.Settle();
    const auto before = m_window.Pixels();
    m_clock.SetStep(0);

    m_body->SetPartHighlighted(0, true);
    m_view->UpdateDisplay();

    EXPECT_EQ(m_window.Pixels(), before);
    m_window.Settle();
    EXPECT_NE(m_window.Pixels(), before);
}

/// The renderer alone, in slices.
class SlicedPicture : public ::testing::Test
{
protected:
    void SetUp() override
    {
        std::string reason;
        m_context = GlContext::Create(reason);
        if (m_context == nullptr)
            GTEST_SKIP() << "no picture can be drawn on this machine: " << reason;
        m_current.emplace(*m_context);
        ASSERT_TRUE(m_target.Bind(100, 100, 1));
        for (std::uint64_t id = 1; id <= 4; ++id) {
            auto& node = *m_root.CreateChildGeoNode(id);
            node.SetGeometry(MakeSphere(150));
            node.SetColor(TambVizCore::RGBAColor(200, static_cast<std::uint8_t>(50 * id), 0));
            node.SetOpacity(id == 2 ? 0.5f : 1.0f);
            double place[16];
            TambVizCore::SetIdentity(place);
            place[12] = 0.2 * static_cast<double>(id) - 0.5;
            place[14] = -2.0;
            node.SetTransform(place);
        }
        m_root.ChildAt(0)->AsGeoNode()->SetPartHighlighted(0, true);
        m_options.SetClipPlanes({{{0.0f, 1.0f, 0.0f}, 0.2f}});
        m_options.SetShowVertices(true);
        m_projection.halfHeight = 1.0;
        m_projection.pixelSize = 0.02;
        TambVizCore::SetIdentity(m_projection.view);
    }

    void TearDown() override
    {
        m_renderer.Clear();
        m_target.Clear();
    }

    void begin(const TimeSlice& upload)
    {
        m_renderer.Begin(m_root, m_objects, m_options, m_projection, {}, {}, upload);
    }

    Image read()
    {
        Image image;
        m_target.Read(image);
        return image;
    }

    std::unique_ptr<GlContext> m_context;
    std::optional<GlContext::Current> m_current;
    FrameTarget m_target;
    SceneRenderer m_renderer;
    TambVizCore::Node m_root{1};
    TambVizCore::Node m_objects{1};
    TambVizCore::RenderingOptions m_options;
    Projection m_projection;
};

TEST_F(SlicedPicture, IsTheSameAsOneDrawnAtOnce)
{
    begin(TimeSlice());
    m_renderer.DrawAll();
    const Image atOnce = read();
    m_renderer.EndFrame();
    TickingClock clock(1000);
    const CostModel model;

    begin(TimeSlice());
    int slices = 0;
    for (bool isDone = false; !isDone; ++slices) {
        m_target.Bind();
        FrameBudget budget(model, TimeSlice(2), [] { glFinish(); });
        isDone = m_renderer.Continue(budget);
    }

    EXPECT_GT(slices, 12);
    EXPECT_EQ(read().rgba, atOnce.rgba);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(SlicedPicture, WaitsForBodiesThatAreUploadedInPieces)
{
    begin(TimeSlice());
    m_renderer.DrawAll();
    const Image complete = read();
    m_renderer.EndFrame();
    m_renderer.Clear();
    TickingClock clock(2000);

    int slices = 0;
    do {
        begin(TimeSlice(1));
        ++slices;
    } while (!m_renderer.IsUploaded() && slices < 100);
    m_renderer.DrawAll();

    EXPECT_GE(slices, 4);
    EXPECT_EQ(read().rgba, complete.rgba);
}

TEST_F(SlicedPicture, ShowsBoxesForBodiesOnTheirWay)
{
    TickingClock clock(2000);
    begin(TimeSlice(1));
    ASSERT_FALSE(m_renderer.IsUploaded());
    m_renderer.DrawAll();

    // The corner of the box of the last body; the ball itself does not reach there.
    const Image image = read();
    const std::size_t at = 4 * (std::size_t{13} * 100 + 88);
    EXPECT_GT(image.rgba[at], 40);
    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

TEST_F(SlicedPicture, LeavesOutWhatSectionPlanesCutAway)
{
    m_options.SetClipPlanes({{{1.0f, 0.0f, 0.0f}, -5.0f}});
    begin(TimeSlice());

    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 0u);
}

TEST_F(SlicedPicture, LeavesOutWhatIsBesideIt)
{
    double place[16];
    TambVizCore::SetIdentity(place);
    // The ball ends 1.5 pixels beyond the border: lines might reach into the picture.
    place[12] = 1.0 + 0.8 + 1.5 * 0.02;
    m_root.ChildAt(0)->SetTransform(place);
    begin(TimeSlice());
    const std::size_t near = m_renderer.Gpu().GeometryCount();
    m_renderer.EndFrame();
    m_renderer.Clear();
    place[12] += 4.0 * 0.02;
    m_root.ChildAt(0)->SetTransform(place);
    begin(TimeSlice());

    EXPECT_EQ(near, 4u);
    EXPECT_EQ(m_renderer.Gpu().GeometryCount(), 3u);
}

} // namespace
} // namespace ViewOpenGl
