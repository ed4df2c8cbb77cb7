// How well a window's frame is drawn at once, and how it becomes better while the camera rests.
#include "View3dOpenGlSG.h"

#include <OrvikCore/IFrameWindow.h>
#include <OrvikOs/Clock.h>
#include <TambVizCore/Antialiasing.h>
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

constexpr int kMostRefineMs = 50;

/// Samples of a pixel where nobody has chosen a number.
constexpr int kAutomaticSamples = 4;

/// A software renderer takes three times as long for smooth pictures of small triangles; above so
/// many primitives in sight it draws none unless it is told to.
constexpr double kMostSmoothedInSoftware = 250e3;

/// A larger picture has pixels enough; with four samples each would take 32 bytes.
constexpr double kMostSmoothedPixels = 16e6;

void waitForRenderer()
{
    glFinish();
}

} // namespace

/// @return how many samples a pixel of the picture that was begun gets.
int View3dOpenGlSG::affordableSamples(int width, int height)
{
    const int level = GetRenderingOptions()->GetAntialiasLevel();
    if (level != TambVizCore::kAutomaticAntialiasing)
        return std::max(level, 1);
    const FrameWork work = m_renderer.FullWork();
    const double primitives = work.triangles + work.segments + work.points;
    const bool isCheap = !m_context->IsSoftware() || primitives <= kMostSmoothedInSoftware;
    const bool isSmall = static_cast<double>(width) * height <= kMostSmoothedPixels;
    return primitives > 0.0 && isCheap && isSmall ? kAutomaticSamples : 1;
}

/// @return how well the frame that was begun can be drawn without making anybody wait.
View3dOpenGlSG::FrameStage View3dOpenGlSG::stageAtOnce() const
{
    FrameWork work = m_renderer.FullWork();
    work += workBeside();
    if (!m_renderer.IsUploaded())
        return FrameStage::Coarse;
    if (m_samples > 1 && m_smoothCost.Milliseconds(work) <= kFrameMs)
        return FrameStage::Smooth;
    if (m_cost.Milliseconds(work) > kFrameMs)
        return FrameStage::Coarse;
    return m_samples > 1 ? FrameStage::Full : FrameStage::Smooth;
}

/// Draws the frame that was begun, as well as it was decided or as coarse as it takes.
bool View3dOpenGlSG::drawFrameNow()
{
    const std::uint64_t began = OrvikOs::Clock::NowUs();
    m_hasFrame = false;
    const bool isSmooth = m_stage == FrameStage::Smooth && bindSmooth();
    Coarseness coarseness;
    if (m_stage == FrameStage::Coarse)
        coarseness = m_renderer.FitBudget(m_cost, kMovingMs, workBeside());
    if (!drawScene(coarseness, isSmooth)) {
        forgetFrame();
        return false;
    }
    FrameWork work = m_renderer.GetPainter().Work();
    endPicture(m_width, m_height);
    if (isSmooth)
        m_smooth.ResolveInto(m_frame);
    work += workBeside();
    learnCost(isSmooth ? m_smoothCost : m_cost, Shrunk(work, coarseness), began);
    m_hasFrame = true;
    const bool isGood = showFrame();
    m_renderer.EndFrame();
    return isGood;
}

/// Draws the scene into m_frame, or into m_smooth, which stays bound; its depths too where
/// something in it hides labels.
bool View3dOpenGlSG::drawScene(const Coarseness& coarseness, bool isSmooth)
{
    const bool isSmall = coarseness.scale < 1.0;
    const auto shrunk = [&](int length) {
        return std::max(1, static_cast<int>(std::lround(length * coarseness.scale)));
    };
    if (!bindTarget(m_frame, m_width, m_height, 1) ||
        (isSmall && !bindTarget(m_small, shrunk(m_width), shrunk(m_height), 1)))
        return false;
    if (isSmooth)
        m_smooth.Bind();
    m_renderer.DrawAll();
    if (!isSmall)
        return true;
    const bool hidesLabels = !textLabels().Bounds(m_renderer.FittedProjection().view).IsEmpty();
    m_small.Stretch(m_frame, hidesLabels);
    return true;
}

/// @return whether there is a target with more samples than one, as there should be; where the
///         driver has no memory for it, frames stay as they are.
bool View3dOpenGlSG::bindSmooth()
{
    if (m_samples > 1 && bindTarget(m_smooth, m_width, m_height, m_samples) &&
        m_smooth.Samples() > 1)
        return true;
    m_smooth.Clear();
    m_samples = 1;
    return false;
}

bool View3dOpenGlSG::Refine(int milliseconds)
{
    const TimeSlice slice(std::clamp(milliseconds, 1, kMostRefineMs));
    // What has changed since is DrawFrame's, which comes first.
    if (m_width < 1 || m_height < 1 || !prepare() || !m_goal || !(*m_goal == wantedFrame()))
        return false;
    bool paints = false;
    bool isDone = false;
    {
        const GlContext::Current current(*m_context);
        if (!current.IsCurrent())
            return false;
        if (m_stage == FrameStage::Smooth)
            isDone = m_renderer.Gpu().BuildLevels(slice);
        else
            paints = refineFrame(slice);
    }
    if (paints && m_window != nullptr)
        m_window->PaintNow();
    return !isDone;
}

/// Works on at the next stage of the frame.
/// @return true when the window has something better to show.
bool View3dOpenGlSG::refineFrame(const TimeSlice& slice)
{
    if (m_progress == StageProgress::Drawn)
        return showStage();
    const std::uint64_t began = OrvikOs::Clock::NowUs();
    FrameWork work;
    if (m_progress == StageProgress::None) {
        if (!beginStage(slice))
            return false;
        work = workBeside();
    } else {
        (m_stage == FrameStage::Full ? m_smooth : m_next).Bind();
        work.slices = 1.0;
    }
    return drawStage(slice, work, began);
}

/// @return true when there is something to draw, and a target for it is bound.
bool View3dOpenGlSG::beginStage(const TimeSlice& slice)
{
    beginPicture(m_width, m_height, Purpose::Frame, slice);
    if (!m_renderer.IsUploaded())
        return false;
    m_samples = affordableSamples(m_width, m_height);
    if (m_stage == FrameStage::Full && !bindSmooth()) {
        m_stage = FrameStage::Smooth;
        return false;
    }
    if (m_stage == FrameStage::Coarse && !bindTarget(m_next, m_width, m_height, 1))
        return false;
    ++m_frameCount;
    m_progress = StageProgress::Drawing;
    return true;
}

/// Draws on.
///
/// @param work     what has been done in this slice before.
/// @param beganUs  when it began.
/// @return true when the window has something better to show.
bool View3dOpenGlSG::drawStage(const TimeSlice& slice, FrameWork work, std::uint64_t beganUs)
{
    const bool smooths = m_stage == FrameStage::Full;
    CostModel& cost = smooths ? m_smoothCost : m_cost;
    FrameBudget budget(cost, slice, &waitForRenderer);
    const bool isDone = m_renderer.Continue(budget);
    work.slices += budget.Waits();
    work += m_renderer.GetPainter().Work();
    if (isDone)
        endPicture(m_width, m_height);
    learnCost(cost, work, beganUs);
    if (!isDone)
        return false;
    m_progress = StageProgress::Drawn;
    // To make one sample of several takes a slice of its own.
    return !smooths && showStage();
}

/// Brings what was drawn into the frame.
/// @return true when the window shows it.
bool View3dOpenGlSG::showStage()
{
    if (m_stage == FrameStage::Full) {
        if (!bindTarget(m_next, m_width, m_height, 1))
            return false;
        m_smooth.ResolveInto(m_next);
    }
    std::swap(m_frame, m_next);
    m_progress = StageProgress::None;
    m_hasFrame = true;
    m_stage =
        m_stage == FrameStage::Coarse && m_samples > 1 ? FrameStage::Full : FrameStage::Smooth;
    const bool isGood = showFrame();
    m_renderer.EndFrame();
    return isGood;
}

void View3dOpenGlSG::learnCost(CostModel& cost, const FrameWork& work, std::uint64_t beganUs)
{
    glFinish();
    cost.Learn(work, static_cast<double>(OrvikOs::Clock::NowUs() - beganUs) / 1000.0);
}

/// @return what each frame comes to beside what is drawn into it.
FrameWork View3dOpenGlSG::workBeside() const
{
    FrameWork work;
    work.slices = 1.0;
    work.pixels = static_cast<double>(m_width) * m_height;
    return work;
}

} // namespace ViewOpenGl
