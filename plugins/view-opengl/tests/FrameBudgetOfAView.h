#ifndef VIEWOPENGL_TESTS_FRAMEBUDGETOFAVIEW_H
#define VIEWOPENGL_TESTS_FRAMEBUDGETOFAVIEW_H

#include "FrameWindow.h"
#include "Shapes.h"
#include "TickingClock.h"
#include "ViewTest.h"

#include <OrvikCore/ACamera.h>

namespace ViewOpenGl {

/// A machine on which each look at the clock takes a while, so each frame does.
class FrameBudgetOfAView : public ViewTest
{
protected:
    void SetUp() override
    {
        ViewTest::SetUp();
        m_body = &Add(MakeSphere(100));
        m_view->SetWindowSize(200, 200);
        m_view->SetFrameWindow(&m_window);
    }

    void TearDown() override { m_view->SetFrameWindow(nullptr); }

    void turn(float toTheSide)
    {
        float eye[3] = {toTheSide, 0.0f, 10.0f};
        float target[3] = {0.0f, 0.0f, 0.0f};
        float up[3] = {0.0f, 1.0f, 0.0f};
        m_view->GetCamera()->SetCamera(eye, target, up);
    }

    /// Moves the camera until a frame is not drawn as well as it could be: coarse, or with one
    /// sample a pixel where it should have more.
    void moveUntilCoarse()
    {
        m_clock.SetStep(60000);
        const int waits = m_window.Waits();
        for (int i = 1; i < 40 && m_window.Waits() == waits; ++i) {
            turn(0.01f * static_cast<float>(i));
            m_view->UpdateDisplay();
        }
        ASSERT_GT(m_window.Waits(), waits);
    }

    /// Moves the camera on a machine so slow that frames become as coarse as can be, back to where
    /// it looks along -z.
    void moveFarBeyondTheBudget()
    {
        moveUntilCoarse();
        m_window.Settle();
        m_clock.SetStep(300000);
        for (int i = 1; i < 20; ++i) {
            turn(0.01f * static_cast<float>(i % 19));
            m_view->UpdateDisplay();
        }
    }

    /// @return what the window shows at a place as ViewTest has it.
    Shows shownAt(double x, double y)
    {
        m_image.width = m_image.height = 200;
        m_image.rgba = m_window.Pixels();
        return At(x, y);
    }

    FrameWindow m_window{*m_view};
    TickingClock m_clock{0};
    TambVizCore::GeoNode* m_body = nullptr;
};

} // namespace ViewOpenGl

#endif
