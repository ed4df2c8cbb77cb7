// What the view does with operations beyond its base: it zooms to the pointer, and the rubber band
// follows drags and selects at their end.
#include "BoxSelection.h"
#include "View3dOpenGlSG.h"

#include <OrvikCore/ACamera.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/ViewOpDrag.h>
#include <OrvikCore/ViewOpZoom.h>
#include <TambVizCore/EntityId.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace ViewOpenGl {

using OrvikCore::IViewOpState;

namespace {

/// A drag that stays within this distance, pixels, is a click of a shaking hand.
constexpr int kLeastDrag = 3;

double distanceBetween(const float* a, const float* b)
{
    return std::hypot(a[0] - b[0], a[1] - b[1], a[2] - b[2]);
}

} // namespace

void View3dOpenGlSG::ControllerNotify(OrvikCore::IViewOp* op)
{
    if (op != nullptr && op->Type() == OrvikCore::ViewOpType::Drag)
        followDrag(static_cast<const OrvikCore::ViewOpDrag&>(*op));
    if (op != nullptr && op->Type() == OrvikCore::ViewOpType::Rotate)
        m_isTurning = op->State() == IViewOpState::Start || op->State() == IViewOpState::Processing;
    if (op != nullptr && op->Type() == OrvikCore::ViewOpType::Zoom)
        zoomToPointer(static_cast<OrvikCore::ViewOpZoom&>(*op));
    else
        AView3D::ControllerNotify(op);
}

/// After the base has scaled the distance from the target, eye and target slide along the window
/// until what was under the pointer, at the depth of the target, is there again.
void View3dOpenGlSG::zoomToPointer(OrvikCore::ViewOpZoom& op)
{
    OrvikCore::ACamera& camera = *GetCamera();
    const Projection before = MakeProjection(camera, std::max(m_width, 1), std::max(m_height, 1));
    float eye[3], target[3], up[3];
    camera.GetCamera(eye, target, up);
    const double distance = distanceBetween(eye, target);
    AView3D::ControllerNotify(&op);
    camera.GetCamera(eye, target, up);
    const bool isInside =
        op.MouseX() >= 0 && op.MouseX() < m_width && op.MouseY() >= 0 && op.MouseY() < m_height;
    if (!isInside || !(distance > 0.0))
        return;
    // World units from the middle of the window to the pointer, less what is left of them.
    const double pixel = before.pixelSize * (before.orthographic ? 1.0 : distance);
    const double share = 1.0 - distanceBetween(eye, target) / distance;
    const double right = share * pixel * (op.MouseX() + 0.5 - 0.5 * m_width);
    const double above = share * pixel * (0.5 * m_height - op.MouseY() - 0.5);
    for (int i = 0; i < 3; ++i) {
        const double slide = right * before.view[4 * i] + above * before.view[4 * i + 1];
        eye[i] += static_cast<float>(slide);
        target[i] += static_cast<float>(slide);
    }
    const bool animate = camera.GetAnimate();
    camera.SetAnimate(false);
    camera.SetCamera(eye, target, up);
    camera.SetAnimate(animate);
}

void View3dOpenGlSG::followDrag(const OrvikCore::ViewOpDrag& op)
{
    const bool isUnderWay =
        op.State() == IViewOpState::Start || op.State() == IViewOpState::Processing;
    if (op.State() == IViewOpState::Start || (isUnderWay && !m_band))
        m_band = PixelRectangle{op.MouseX(), op.MouseY(), op.MouseX(), op.MouseY()};
    if (isUnderWay) {
        m_band->x2 = op.MouseX();
        m_band->y2 = op.MouseY();
    }
    if (RubberBand* const band = rubberBand()) {
        if (isUnderWay)
            band->Place(*m_band);
        band->SetIsVisible(isUnderWay);
    }
    // The end of a drag does not always know where the pointer is: the last point on the way
    // counts.
    if (op.State() == IViewOpState::End && m_band)
        selectInBand();
    if (!isUnderWay)
        m_band.reset();
}

void View3dOpenGlSG::selectInBand()
{
    if (m_width == 0 || m_height == 0 ||
        (std::abs(m_band->x2 - m_band->x1) < kLeastDrag &&
         std::abs(m_band->y2 - m_band->y1) < kLeastDrag))
        return;
    const bool touching = m_band->x2 < m_band->x1;
    const auto found = FindInBox({m_band->x1, m_band->y1, m_band->x2, m_band->y2, touching});
    OrvikCore::ASession& session = OrvikCore::SessionMgr::Instance().CurrentSession();
    session.UnSelect();
    session.SetPickedEntities(found);
    for (const TambVizCore::EntityId& entity : found)
        session.Select(entity);
}

std::vector<TambVizCore::EntityId> View3dOpenGlSG::FindInBox(const OrvikCore::PickBox& box)
{
    if (m_width == 0 || m_height == 0)
        return {};
    BoxQuery query;
    query.rectangle = {box.x1, box.y1, box.x2, box.y2};
    query.width = m_width;
    query.height = m_height;
    query.touching = box.touching;
    return ViewOpenGl::FindInBox(GetSceneRoot(), *GetRenderingOptions(),
                                 MakeProjection(*GetCamera(), m_width, m_height), query);
}

} // namespace ViewOpenGl
