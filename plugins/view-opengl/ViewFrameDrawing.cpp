// How a frame is drawn: at once, in full or coarse, or in full in slices.
#include "View3dOpenGlSG.h"

#include <OrvikOs/Clock.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace ViewOpenGl {
namespace {

/// A frame that takes longer is not drawn at once, milliseconds; a little below what a hand feels
/// as late, 50, because no forecast is exact.
constexpr double kFrameMs = 45.0;

/// What a coarse frame may take; the window still has to show it.
constexpr double kMovingMs = 36.0;

void waitForRenderer()
{
    glFinish();
}

} // namespace

/// @return whether the picture that was begun can be drawn in full at once.
bool View3dOpenGlSG::isCheap()
{
    FrameWork work = m_renderer.FullWork();
    work += workBeside();
    work = Shrunk(work, Coarseness(), frameSamples());
    return m_renderer.IsUploaded() && m_cost.Milliseconds(work) <= kFrameMs;
}

/// Draws the picture that was begun, in full or as coarse as it takes.
bool View3dOpenGlSG::drawFrameNow()
{
    const std::uint64_t began = OrvikOs::Clock::NowUs();
    m_hasFrame = false;
    Coarseness coarseness;
    if (!m_isFull)
        coarseness = m_renderer.FitBudget(m_cost, kMovingMs, workBeside(), frameSamples());
    if (!drawScene(coarseness)) {
        forgetFrame();
        return false;
    }
    FrameWork work = m_renderer.GetPainter().Work();
    endPicture(m_width, m_height);
    work += workBeside();
    learnCost(Shrunk(work, coarseness, frameSamples()), began);
    m_hasFrame = true;
    const bool isGood = showFrame();
    m_renderer.EndFrame();
    return isGood;
}

/// Draws the scene into m_frame; its depths too where something in it hides labels.
bool View3dOpenGlSG::drawScene(const Coarseness& coarseness)
{
    const int samples = coarseness.smooth ? frameSamples() : 1;
    // After a rest the frame in full is in the one, a coarse frame of before in the other.
    if (!m_frame.Has(m_width, m_height, samples) && m_next.Has(m_width, m_height, samples))
        std::swap(m_frame, m_next);
    const bool isSmall = coarseness.scale < 1.0;
    const auto shrunk = [&](int length) {
        return std::max(1, static_cast<int>(std::lround(length * coarseness.scale)));
    };
    if (isSmall && !bindTarget(m_small, shrunk(m_width), shrunk(m_height), 1))
        return false;
    if (!isSmall && !bindTarget(m_frame, m_width, m_height, samples))
        return false;
    m_renderer.DrawAll();
    if (!isSmall)
        return true;
    if (!bindTarget(m_frame, m_width, m_height, 1))
        return false;
    const bool hidesLabels = !textLabels().Bounds(m_renderer.FittedProjection().view).IsEmpty();
    m_small.Stretch(m_frame, hidesLabels);
    return true;
}

/// Draws on at the frame in full.
/// @return true when it is complete.
bool View3dOpenGlSG::refineFrame(const TimeSlice& slice)
{
    const std::uint64_t began = OrvikOs::Clock::NowUs();
    FrameWork work;
    if (!m_isDrawing) {
        beginPicture(m_width, m_height, Purpose::Frame, slice);
        if (!m_renderer.IsUploaded() ||
            !bindTarget(m_next, m_width, m_height, GetRenderingOptions()->GetAntialiasLevel()))
            return false;
        ++m_frameCount;
        m_isDrawing = true;
        work = workBeside();
    } else {
        m_next.Bind();
        work.slices = 1.0;
    }
    FrameBudget budget(m_cost, slice, &waitForRenderer);
    const bool isDone = m_renderer.Continue(budget);
    work.slices += budget.Waits();
    work += m_renderer.GetPainter().Work();
    if (isDone)
        endPicture(m_width, m_height);
    learnCost(Shrunk(work, Coarseness(), frameSamples()), began);
    if (!isDone)
        return false;
    std::swap(m_frame, m_next);
    m_isDrawing = false;
    m_hasFrame = true;
    m_isFull = showFrame();
    m_renderer.EndFrame();
    return m_isFull;
}

void View3dOpenGlSG::learnCost(const FrameWork& work, std::uint64_t beganUs)
{
    glFinish();
    m_cost.Learn(work, static_cast<double>(OrvikOs::Clock::NowUs() - beganUs) / 1000.0);
}

/// @return how many samples each pixel of a frame in full has.
int View3dOpenGlSG::frameSamples()
{
    return FrameTarget::SamplesFor(GetRenderingOptions()->GetAntialiasLevel());
}

/// @return what each frame comes to beside what is drawn into it, one sample a pixel.
FrameWork View3dOpenGlSG::workBeside() const
{
    FrameWork work;
    work.slices = 1.0;
    work.pixels = static_cast<double>(m_width) * m_height;
    return work;
}

} // namespace ViewOpenGl
