#include "FrameWindow.h"
#include "Shapes.h"
#include "TickingClock.h"
#include "ViewTest.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/TextItem3D.h>

#include <memory>

namespace ViewOpenGl {
namespace {

/// A view whose context a driver takes away.
class FragileView : public View3dOpenGlSG
{
public:
    void LoseContext() { context()->Lose(); }
};

class LostContext : public ViewTest
{
protected:
    LostContext()
    {
        auto fragile = std::make_unique<FragileView>();
        m_fragile = fragile.get();
        m_view = std::move(fragile);
    }

    /// Everything that has a place in graphics memory.
    void fill()
    {
        auto& box = Add(MakeBox(0.5f), kGreen);
        box.SetPartHighlighted(0, true);
        Add(MakeRectangles({{.left = -0.9f, .right = 0.9f, .z = 0.6f}})).SetOpacity(0.5f);
        Options().SetClipPlanes({{{1.0f, 0.0f, 0.0f}, 0.1f}});
        Options().SetAntialiasLevel(4);
        m_view->DrawArrow(-0.5, 0.7, 0, 0.5, 0.7, 0);
        m_view->DrawTextItems({OrvikCore::TextItem3D(L"text", false, L"", 0, 0, 0, {}, {}, true,
                                                     false, 12, 0, 0, L"", kRed, kBlack)});
    }

    FragileView* m_fragile = nullptr;
};

TEST_F(LostContext, IsReplacedAndThePictureIsTheSame)
{
    fill();
    const TambVizCore::Image before = Draw();

    m_fragile->LoseContext();

    EXPECT_EQ(Draw().rgba, before.rgba);
    EXPECT_NE(m_debug.Text().find("-- view: the OpenGL context was lost and is made anew"),
              std::string::npos);
}

TEST_F(LostContext, IsReplacedForTheFrameOfAWindow)
{
    fill();
    FrameWindow window(*m_view);
    m_view->SetFrameWindow(&window);
    m_view->UpdateDisplay();
    window.Settle();
    const auto before = window.Pixels();

    m_fragile->LoseContext();
    ASSERT_TRUE(m_view->NeedsFrame());
    m_view->UpdateDisplay();
    window.Settle();

    EXPECT_EQ(window.Pixels(), before);
    m_view->SetFrameWindow(nullptr);
}

TEST_F(LostContext, IsReplacedInTheMiddleOfAFrameThatIsDrawnInSlices)
{
    fill();
    Add(MakeSphere(100));
    TickingClock clock(0);
    FrameWindow window(*m_view);
    m_view->SetWindowSize(200, 200);
    m_view->SetFrameWindow(&window);
    clock.SetStep(60000);
    for (int i = 1; i < 40 && window.Waits() == 0; ++i) {
        float eye[3] = {0.01f * static_cast<float>(i), 0.0f, 10.0f};
        float target[3] = {0.0f, 0.0f, 0.0f};
        float up[3] = {0.0f, 1.0f, 0.0f};
        m_view->GetCamera()->SetCamera(eye, target, up);
        m_view->UpdateDisplay();
    }
    ASSERT_GT(window.Waits(), 0);
    ASSERT_TRUE(m_view->Refine(1));

    m_fragile->LoseContext();
    m_view->UpdateDisplay();
    window.Settle();

    Draw(200, 200);
    EXPECT_EQ(window.Pixels(), m_image.rgba);
    m_view->SetFrameWindow(nullptr);
}

TEST_F(LostContext, IsReplacedEachTime)
{
    fill();
    const TambVizCore::Image before = Draw();
    for (int i = 0; i < 5; ++i) {
        m_fragile->LoseContext();
        EXPECT_EQ(Draw().rgba, before.rgba) << i;
    }
}

TEST_F(LostContext, EndsWithItsView)
{
    fill();
    Draw();
    m_fragile->LoseContext();

    m_view.reset();

    EXPECT_EQ(glGetError(), static_cast<GLenum>(GL_NO_ERROR));
}

} // namespace
} // namespace ViewOpenGl
