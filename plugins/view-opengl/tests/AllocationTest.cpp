// A program of its own, because it counts what every operator new of the process is asked for.
#include "FrameWindow.h"
#include "Shapes.h"
#include "TickingClock.h"
#include "ViewTest.h"
#include "objects/AxesObject.h"
#include "objects/RotationMark.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/AViewObject.h>
#include <OrvikCore/IDimensionDrawer.h>
#include <OrvikCore/TextItem3D.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/Node.h>

#include <cstdlib>
#include <new>

namespace {

// Of the main thread: threads of the driver are its own business.
thread_local bool t_counts = false;
thread_local int t_count = 0;

void* allocate(std::size_t bytes)
{
    t_count += t_counts ? 1 : 0;
    if (void* const memory = std::malloc(bytes == 0 ? 1 : bytes))
        return memory;
    throw std::bad_alloc();
}

} // namespace

void* operator new(std::size_t bytes)
{
    return allocate(bytes);
}

void* operator new[](std::size_t bytes)
{
    return allocate(bytes);
}

void operator delete(void* memory) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory) noexcept
{
    std::free(memory);
}

void operator delete(void* memory, std::size_t) noexcept
{
    std::free(memory);
}

void operator delete[](void* memory, std::size_t) noexcept
{
    std::free(memory);
}

namespace ViewOpenGl {
namespace {

/// Sections with caps, transparency, a highlighted part, lines, points, and all kinds of objects
/// beside the model.
class SteadyFrame : public ViewTest
{
protected:
    void SetUp() override
    {
        ViewTest::SetUp();
        m_view->SetFrameWindow(&m_window);
        Add(MakeSphere(30), kGreen).SetPartHighlighted(0, true);
        Add(MakeBox(0.4f)).SetOpacity(0.5f);
        Add(MakeRectangles({{.left = -0.9f, .right = 0.9f, .z = 0.6f}, {.top = 0.9f}}))
            .SetPartColor(1, TambVizCore::RGBAColor(0, 0, 200, 100));
        Add(MakePoint());
        Options().SetShowVertices(true);
        Options().SetClipPlanes({{{1.0f, 0.0f, 0.0f}, 0.1f}, {{0.0f, 1.0f, 0.0f}, 0.2f}});
        m_view->DrawArrow(-0.5, 0.7, 0, 0.5, 0.7, 0);
        m_view->DrawMarkupObjects({{0, 0, 0, 0.5, 0.5, 0, 0.5, 0, 0}}, kBlue);
        m_view->DrawTextItems({OrvikCore::TextItem3D(L"text", false, L"", 0, 0, 0, {}, {}, true,
                                                     false, 12, 0, 0, L"", kRed, kBlack)});
        OrvikCore::Dimension dimension;
        dimension.line = {{-0.8, -0.5, 0.0}, {0.8, -0.5, 0.0}};
        dimension.text = L"\u2300 12 mm";
        m_view->DrawDimension(dimension);
        for (const char* const name : {kAxesName, kRotationMarkName})
            m_view->GetViewObjectManager()->Get(name)->SetIsVisible(true);
        auto* const band =
            dynamic_cast<RubberBand*>(m_view->GetViewObjectManager()->Get("Rubberband"));
        band->Place({10, 10, 50, 50});
        band->SetIsVisible(true);
        m_pixels.resize(std::size_t{4} * 64 * 64);
    }

    void TearDown() override { m_view->SetFrameWindow(nullptr); }

    void drawFrom(float side)
    {
        float eye[3] = {side, 0.0f, 10.0f};
        float target[3] = {0.0f, 0.0f, 0.0f};
        float up[3] = {0.0f, 1.0f, 0.0f};
        m_view->GetCamera()->SetCamera(eye, target, up);
        EXPECT_TRUE(m_view->DrawFrame());
        EXPECT_TRUE(m_view->ReadFrame({m_pixels.data(), 4 * 64, 64, 64, {}}));
        while (m_view->Refine(50)) {
        }
    }

    FrameWindow m_window{*m_view};
    std::vector<unsigned char> m_pixels;
};

TEST_F(SteadyFrame, AllocatesNothing)
{
    const std::uint64_t before = m_view->GetFrameCount();
    for (int i = 0; i < 8; ++i)
        drawFrom(0.1f * static_cast<float>(i));

    t_counts = true;
    for (int i = 0; i < 8; ++i)
        drawFrom(0.1f * static_cast<float>(i) + 0.03f);
    t_counts = false;

    EXPECT_EQ(t_count, 0);
    EXPECT_GE(m_view->GetFrameCount(), before + 16);
}

/// The same on a machine on which each frame takes long: coarse while the camera moves, completed
/// in slices at rest.
class SlowFrame : public SteadyFrame
{
protected:
    void SetUp() override
    {
        SteadyFrame::SetUp();
        Add(MakeSphere(100));
        m_view->SetWindowSize(64, 64);
    }
    void moveTo(float side)
    {
        float eye[3] = {side, 0.0f, 10.0f};
        float target[3] = {0.0f, 0.0f, 0.0f};
        float up[3] = {0.0f, 1.0f, 0.0f};
        m_view->GetCamera()->SetCamera(eye, target, up);
        EXPECT_TRUE(m_view->DrawFrame());
        EXPECT_TRUE(m_view->ReadFrame({m_pixels.data(), 4 * 64, 64, 64, {}}));
    }

    TickingClock m_clock{0};
};

TEST_F(SlowFrame, AllocatesNothingThoughItIsCoarseAndDrawnInSlices)
{
    m_clock.SetStep(60000);
    for (int i = 0; i < 40; ++i)
        moveTo(0.02f * static_cast<float>(i));
    m_clock.SetStep(100);
    while (m_view->Refine(50)) {
    }
    m_clock.SetStep(60000);
    for (int i = 0; i < 8; ++i)
        moveTo(0.02f * static_cast<float>(i));
    const int waits = m_window.Waits();

    t_counts = true;
    for (int i = 0; i < 8; ++i)
        moveTo(0.02f * static_cast<float>(i) + 0.01f);
    m_clock.SetStep(100);
    while (m_view->Refine(50)) {
    }
    t_counts = false;

    EXPECT_EQ(t_count, 0);
    EXPECT_GT(m_window.Waits(), waits) << "no frame was coarse";
}

TEST_F(SteadyFrame, CounterCounts)
{
    t_counts = true;
    const auto some = std::make_unique<std::vector<int>>(10);
    t_counts = false;

    EXPECT_EQ(t_count, 2);
    EXPECT_EQ(some->size(), 10u);
}

} // namespace
} // namespace ViewOpenGl
