// What the view draws into a picture, and in which order.
#include "View3dOpenGlSG.h"
#include "objects/AxesObject.h"
#include "objects/RotationMark.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/IFrameWindow.h>
#include <OrvikCore/ViewObjectManager.h>
#include <TambVizCore/Matrix.h>

#include <algorithm>

namespace ViewOpenGl {
namespace {

/// The square of the axes: its share of the picture's smaller side, and pixels of the window.
constexpr double kAxesShare = 0.18;
constexpr int kLeastAxesPixels = 48;

/// Only the turn of a view.
void withoutPlace(const double* view, double* turn)
{
    std::copy_n(view, 16, turn);
    turn[12] = turn[13] = turn[14] = 0.0;
}

} // namespace

void View3dOpenGlSG::prepareScene(const PictureScale& scale, Purpose purpose)
{
    prepareObjects(*m_root, scale);
    RotationMark* const mark = rotationMark();
    if (mark == nullptr)
        return;
    // A camera that turns around no point leaves this one.
    float center[3];
    std::copy_n(GetGeometryCenter(), 3, center);
    GetCamera()->GetRotationCenter(center);
    const double point[3] = {center[0], center[1], center[2]};
    mark->Adapt(scale, point, m_isTurning && purpose == Purpose::Frame);
}

/// In pictures larger than the window lines and points grow along, as text does.
Projection View3dOpenGlSG::projectionOf(int width, int height)
{
    Projection projection = MakeProjection(*GetCamera(), width, height);
    projection.lineScale = std::max(1.0, scaleOf(projection, height).pixelScale);
    return projection;
}

double View3dOpenGlSG::windowRatio() const
{
    return m_window != nullptr ? m_window->GetPixelRatio() : 1.0;
}

PictureScale View3dOpenGlSG::scaleOf(const Projection& projection, int height) const
{
    return {projection,
            m_pixelRatio * (m_height > 0 ? static_cast<double>(height) / m_height : 1.0)};
}

void View3dOpenGlSG::beginPicture(int width, int height, Purpose purpose, const TimeSlice& upload)
{
    // Saved pictures are those of a replay, whatever the screen was.
    m_pixelRatio = purpose == Purpose::Frame ? windowRatio() : 1.0;
    Background background;
    GetViewportBackground(1, background.top);
    GetViewportBackground(2, background.bottom);
    const Projection projection = projectionOf(width, height);
    prepareScene(scaleOf(projection, height), purpose);
    m_renderer.Begin(*m_root, worldObjects(), *GetRenderingOptions(), projection, background,
                     textLabels().Bounds(projection.view), upload);
}

void View3dOpenGlSG::endPicture(int width, int height)
{
    const Projection projection = m_renderer.FittedProjection();
    if (GetViewObjectManager()->IsEnabled()) {
        const PictureScale scale = scaleOf(projection, height);
        textLabels().Draw(projection, width, height, scale.pixelScale);
        drawFront(scale, width, height);
    }
    drawAxes(projection, width, height);
    glViewport(0, 0, width, height);
}

void View3dOpenGlSG::drawFront(const PictureScale& scale, int width, int height)
{
    if (frontObjects().ChildCount() == 0)
        return;
    // What is in front has taken its widths from the scale already.
    Projection front = scale.projection;
    front.lineScale = 1.0;
    m_renderer.DrawInset(frontObjects(), *GetRenderingOptions(), front);
    frontLabels().Draw(scale.projection, width, height, scale.pixelScale);
}

void View3dOpenGlSG::drawAxes(const Projection& projection, int width, int height)
{
    const OrvikCore::AViewObject* const axes = GetViewObjectManager()->Get(kAxesName);
    if (axes == nullptr || !axes->IsVisible())
        return;
    const int side =
        std::max(kLeastAxesPixels, static_cast<int>(kAxesShare * std::min(width, height)));
    Projection corner;
    withoutPlace(projection.view, corner.view);
    corner.halfHeight = AxesObject::Reach();
    corner.pixelSize = 2.0 * corner.halfHeight / side;
    corner.lineScale = projection.lineScale;
    glViewport(0, 0, side, side);
    m_renderer.DrawInset(cornerObjects(), *GetRenderingOptions(), corner);
}

void View3dOpenGlSG::drawOverlay(int width, int height)
{
    const RubberBand* const band = rubberBand();
    if (band == nullptr || !band->IsVisible() || m_width == 0 || m_height == 0)
        return;
    Projection pixels;
    TambVizCore::SetIdentity(pixels.view);
    // Window pixels count from the top left, y down.
    pixels.view[5] = -1.0;
    pixels.view[12] = -0.5 * m_width;
    pixels.view[13] = 0.5 * m_height;
    pixels.halfHeight = 0.5 * m_height;
    pixels.aspect = static_cast<double>(m_width) / m_height;
    pixels.pixelSize = static_cast<double>(m_height) / height;
    pixels.lineScale = m_pixelRatio;
    glViewport(0, 0, width, height);
    m_renderer.DrawInset(overlayObjects(), *GetRenderingOptions(), pixels);
}

} // namespace ViewOpenGl
