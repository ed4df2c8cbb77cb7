// The frames of a window: when they are drawn, and how they reach it.
#include "View3dOpenGlSG.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/IFrameWindow.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <utility>

namespace ViewOpenGl {

void View3dOpenGlSG::SetFrameWindow(OrvikCore::IFrameWindow* window)
{
    if (window == m_window)
        return;
    ReleaseWindowContext();
    m_window = window;
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
    return m_width > 0 && m_height > 0 && prepare() && !(m_shown && *m_shown == wantedFrame());
}

bool View3dOpenGlSG::DrawFrame()
{
    if (m_width < 1 || m_height < 1 || !prepare())
        return false;
    const FrameShown wanted = wantedFrame();
    if (m_shown && *m_shown == wanted)
        return true;
    const GlContext::Current current(*m_context);
    if (!current.IsCurrent())
        return false;
    const bool sceneChanged = !m_shown || !(m_shown->frame == wanted.frame);
    m_shown.reset();
    ++m_frameCount;
    if (sceneChanged) {
        if (!bindTarget(m_frame, m_width, m_height, GetRenderingOptions()->GetAntialiasLevel()))
            return false;
        drawPicture(m_width, m_height, Purpose::Frame);
    }
    if (!overlayShows())
        m_present.Clear();
    else if (!presentOverlay())
        return false;
    m_renderer.EndFrame();
    m_shown = wanted;
    return true;
}

bool View3dOpenGlSG::ReadFrame(const OrvikCore::FrameRows& rows)
{
    FrameTarget& target = shownTarget();
    if (!m_shown || rows.first == nullptr || rows.width != target.Width() ||
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
    if (!m_shown || !m_context->IsLent() || width < 1 || height < 1)
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

bool View3dOpenGlSG::Refine(int)
{
    return false;
}

std::uint64_t View3dOpenGlSG::GetFrameCount() const
{
    return m_frameCount;
}

/// What lies over the frame is drawn onto a copy, so that the scene below is not drawn again for
/// it.
bool View3dOpenGlSG::presentOverlay()
{
    if (!bindTarget(m_present, m_width, m_height, 1))
        return false;
    m_frame.Blit(m_present.Framebuffer(), m_width, m_height);
    m_present.Bind();
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

View3dOpenGlSG::FrameShown View3dOpenGlSG::wantedFrame()
{
    FrameShown wanted;
    wanted.frame.camera = CameraState::Of(*GetCamera());
    const Projection projection =
        MakeProjection(*GetCamera(), std::max(m_width, 1), std::max(m_height, 1));
    prepareScene({projection, 1.0}, Purpose::Frame);
    SceneState& scene = wanted.frame.scene;
    scene.width = m_width;
    scene.height = m_height;
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
