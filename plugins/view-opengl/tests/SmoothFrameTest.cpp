#include "FrameBudgetOfAView.h"

#include <OrvikCore/AViewObject.h>
#include <OrvikCore/ViewObjectManager.h>

namespace ViewOpenGl {
namespace {

using TambVizCore::Image;
using TambVizCore::kAutomaticAntialiasing;

class SmoothFrame : public FrameBudgetOfAView
{
protected:
    /// @return the picture with as many samples a pixel.
    Image pictureWith(int samples)
    {
        Options().SetAntialiasLevel(samples);
        return Draw(200, 200);
    }

    /// Lets the view work until it paints something better.
    void refineUntilPainted()
    {
        const int paints = m_window.Paints();
        while (m_window.Paints() == paints && m_view->Refine(50)) {
        }
        ASSERT_GT(m_window.Paints(), paints);
    }
};

TEST_F(SmoothFrame, IsDrawnAtOnceWhereItIsCheap)
{
    const Image rough = pictureWith(1);
    const Image smooth = pictureWith(4);
    ASSERT_NE(rough.rgba, smooth.rgba);

    m_view->UpdateDisplay();

    EXPECT_EQ(m_window.Pixels(), smooth.rgba);
    EXPECT_EQ(m_window.Waits(), 0);
    EXPECT_EQ(m_window.Paints(), 1);
}

TEST_F(SmoothFrame, FollowsTheFrameInFullWhereItIsDear)
{
    turn(0.5f);
    const Image rough = pictureWith(1);
    const Image smooth = pictureWith(4);
    // First frames cease to be smooth, then to be drawn in full.
    moveUntilCoarse();
    for (int i = 40; i > 0; --i) {
        turn(0.5f + 0.01f * static_cast<float>(i - 1));
        m_view->UpdateDisplay();
    }
    ASSERT_NE(m_window.Pixels(), rough.rgba);

    refineUntilPainted();
    EXPECT_EQ(m_window.Pixels(), rough.rgba);
    refineUntilPainted();
    EXPECT_EQ(m_window.Pixels(), smooth.rgba);
}

TEST_F(SmoothFrame, IsNotSpoiltByAPictureInItsMiddle)
{
    turn(0.5f);
    const Image smooth = pictureWith(4);
    moveUntilCoarse();
    m_window.Settle();
    turn(0.5f);
    m_view->UpdateDisplay();
    refineUntilPainted();

    for (int i = 0; i < 5; ++i) {
        m_view->Refine(1);
        EXPECT_EQ(Draw(200, 200).rgba, smooth.rgba);
    }
    m_window.Settle();

    EXPECT_EQ(m_window.Pixels(), smooth.rgba);
}

TEST_F(SmoothFrame, IsGivenUpForTheNextMovement)
{
    Options().SetAntialiasLevel(4);
    moveUntilCoarse();
    m_window.Settle();
    turn(0.5f);
    m_view->UpdateDisplay();
    refineUntilPainted();
    m_view->Refine(1);

    turn(0.6f);
    m_view->UpdateDisplay();
    m_window.Settle();

    EXPECT_EQ(m_window.Pixels(), Draw(200, 200).rgba);
}

/// Where nobody has chosen how many samples a pixel gets.
class AutomaticAntialiasing : public SmoothFrame
{
protected:
    void SetUp() override
    {
        SmoothFrame::SetUp();
        m_view->ClearViewport();
    }
};

TEST_F(AutomaticAntialiasing, SmoothsASmallModel)
{
    Add(MakeSphere(100));

    const Image automatic = pictureWith(kAutomaticAntialiasing);

    EXPECT_EQ(automatic.rgba, pictureWith(4).rgba);
    EXPECT_NE(automatic.rgba, pictureWith(1).rgba);
}

TEST_F(AutomaticAntialiasing, LeavesAPictureWithoutAModelRough)
{
    m_view->GetViewObjectManager()->Get("AxesViewObject")->SetIsVisible(true);
    turn(3.0f);
    const Image rough = pictureWith(1);

    EXPECT_NE(pictureWith(4).rgba, rough.rgba);
    EXPECT_EQ(pictureWith(kAutomaticAntialiasing).rgba, rough.rgba);
}

TEST_F(AutomaticAntialiasing, LeavesManyTrianglesRoughOnAProcessor)
{
    std::string reason;
    const auto context = GlContext::Create(reason);
    if (!context->IsSoftware())
        GTEST_SKIP() << "a graphics card draws here: " << context->Description();
    Add(MakeSphere(360));

    EXPECT_EQ(pictureWith(kAutomaticAntialiasing).rgba, pictureWith(1).rgba);
}

TEST_F(AutomaticAntialiasing, LeavesALargePictureRough)
{
    Add(MakeSphere(20));
    Options().SetAntialiasLevel(kAutomaticAntialiasing);
    const Image automatic = Draw(4100, 4000);
    Options().SetAntialiasLevel(1);

    EXPECT_TRUE(automatic.rgba == Draw(4100, 4000).rgba);
}

} // namespace
} // namespace ViewOpenGl
