// The frames of a window: when they are drawn, and how they reach it.
#include "View3dOpenGlSG.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/IFrameWindow.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>

namespace ViewOpenGl {
namespace {

/// How long a frame may wait for bodies on their way into graphics memory.
constexpr int kUploadMs = 8;

} // namespace

void View3dOpenGlSG::SetFrameWindow(OrvikCore::IFrameWindow* window)
{
    if (window == m_window)
        return;
    ReleaseWindowContext();
    m_window = window;
    if (m_context == nullptr)
        return;
    const GlContext::Current current(*m_context);
    if (!current.IsCurrent())
        return;
    m_frame.Clear();
    m_small.Clear();
    m_present.Clear();
    m_next.Clear();
    m_smooth.Clear();
    forgetFrame();
}

bool View3dOpenGlSG::UseWindowContext(std::string& errorText)
{
    if (m_window == nullptr) {
        errorText = "there is no window";
        return false;
    }
    std::unique_ptr<GlContext> lent = GlContext::Borrow(*m_window, errorText);
    if (lent == nullptr)
        return false;
    dropContext();
    takeContext(std::move(lent));
    return true;
}

void View3dOpenGlSG::ReleaseWindowContext()
{
    if (m_context != nullptr && m_context->IsLent())
        dropContext();
}

bool View3dOpenGlSG::NeedsFrame()
{
    // A context that was lost has taken the frame along.
    return m_width > 0 && m_height > 0 && prepare() && !(m_goal && *m_goal == wantedFrame());
}

bool View3dOpenGlSG::DrawFrame()
{
    if (m_width < 1 || m_height < 1 || !prepare())
        return false;
    const FrameShown wanted = wantedFrame();
    if (m_goal && *m_goal == wanted)
        return m_hasFrame;
    const GlContext::Current current(*m_context);
    if (!current.IsCurrent())
        return false;
    ++m_frameCount;
    const bool sceneStays = m_hasFrame && m_goal && m_goal->frame == wanted.frame &&
                            m_goal->isTurning == wanted.isTurning;
    // What was not finished when the next change came is one of a row of changes.
    const bool isMoving = !m_hasFrame || !m_goal || m_stage == FrameStage::Coarse ||
                          !(m_goal->frame.camera == wanted.frame.camera) ||
                          m_goal->frame.scene.width != m_width ||
                          m_goal->frame.scene.height != m_height;
    m_goal = wanted;
    if (sceneStays)
        return showFrame();
    m_progress = StageProgress::None;
    beginPicture(m_width, m_height, Purpose::Frame, TimeSlice(kUploadMs));
    m_samples = affordableSamples(m_width, m_height);
    m_stage = stageAtOnce();
    const bool isCoarse = m_stage == FrameStage::Coarse;
    if (isCoarse)
        m_renderer.WantLevels();
    const bool isGood = (isCoarse && !isMoving) || drawFrameNow();
    if (m_stage != FrameStage::Smooth && m_window != nullptr)
        m_window->WorkWaits();
    return isGood;
}

void View3dOpenGlSG::forgetFrame()
{
    m_goal.reset();
    m_hasFrame = false;
    m_stage = FrameStage::Coarse;
    m_progress = StageProgress::None;
}

bool View3dOpenGlSG::ReadFrame(const OrvikCore::FrameRows& rows)
{
    FrameTarget& target = shownTarget();
    if (!m_hasFrame || rows.first == nullptr || rows.width != target.Width() ||
        rows.height != target.Height() || rows.stride < std::ptrdiff_t{4} * rows.width)
        return false;
    const GlContext::Current current(*m_context);
    if (!current.IsCurrent())
        return false;
    target.Read(rows);
    return true;
}

bool View3dOpenGlSG::BlitFrame(unsigned int framebuffer, int width, int height)
{
    if (!m_hasFrame || !m_context->IsLent() || width < 1 || height < 1)
        return false;
    {
        const GlContext::Current current(*m_context);
        if (!current.IsCurrent())
            return false;
        shownTarget().Blit(framebuffer, width, height);
    }
    glBindFramebuffer(GL_DRAW_FRAMEBUFFER, framebuffer);
    glViewport(0, 0, width, height);
    return true;
}

std::uint64_t View3dOpenGlSG::GetFrameCount() const
{
    return m_frameCount;
}

/// What lies over the frame is drawn onto a copy, so that the scene below is not drawn again for
/// it.
bool View3dOpenGlSG::showFrame()
{
    if (!overlayShows()) {
        m_present.Clear();
        return true;
    }
    if (!bindTarget(m_present, m_width, m_height, 1))
        return false;
    m_frame.Blit(m_present.Framebuffer(), m_width, m_height);
    m_present.Bind();
    m_pixelRatio = windowRatio();
    drawOverlay(m_width, m_height);
    return true;
}

bool View3dOpenGlSG::overlayShows()
{
    const RubberBand* const band = rubberBand();
    return band != nullptr && band->IsVisible() && GetViewObjectManager()->IsEnabled();
}

FrameTarget& View3dOpenGlSG::shownTarget()
{
    return m_present.Width() > 0 ? m_present : m_frame;
}

void View3dOpenGlSG::EndGesture()
{
    if (!m_isTurning)
        return;
    m_isTurning = false;
    if (m_window != nullptr && NeedsFrame())
        m_window->PaintNow();
}

View3dOpenGlSG::FrameShown View3dOpenGlSG::wantedFrame()
{
    FrameShown wanted;
    wanted.isTurning = m_isTurning;
    wanted.frame.camera = CameraState::Of(*GetCamera());
    const Projection projection =
        MakeProjection(*GetCamera(), std::max(m_width, 1), std::max(m_height, 1));
    prepareScene({projection, windowRatio()}, Purpose::Frame);
    SceneState& scene = wanted.frame.scene;
    scene.width = m_width;
    scene.height = m_height;
    scene.pixelRatio = windowRatio();
    scene.model = GetSceneRoot().Stamps().subtree;
    scene.objects = worldObjects().Stamps().subtree;
    scene.front = frontObjects().Stamps().subtree;
    scene.frontLabels = frontLabels().Revision();
    scene.corner = cornerObjects().Stamps().subtree;
    scene.labels = textLabels().Revision();
    scene.options = GetRenderingOptions()->Revision();
    scene.objectsEnabled = GetViewObjectManager()->IsEnabled();
    GetViewportBackground(1, scene.top);
    GetViewportBackground(2, scene.bottom);
    wanted.overlay = overlayShows() ? overlayObjects().Stamps().subtree : 0;
    return wanted;
}

} // namespace ViewOpenGl
