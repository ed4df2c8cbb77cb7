// The rubber band of the view: it follows drags, and what it holds at their end is selected.
#include "BoxSelection.h"
#include "View3dOpenGlSG.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/ViewOpDrag.h>
#include <TambVizCore/EntityId.h>

#include <cstdlib>

namespace ViewOpenGl {

using OrvikCore::IViewOpState;

namespace {

/// A drag that stays within this distance, pixels, is a click of a shaking hand.
constexpr int kLeastDrag = 3;

} // namespace

void View3dOpenGlSG::ControllerNotify(OrvikCore::IViewOp* op)
{
    if (op != nullptr && op->Type() == OrvikCore::ViewOpType::Drag)
        followDrag(static_cast<const OrvikCore::ViewOpDrag&>(*op));
    AView3D::ControllerNotify(op);
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
    BoxQuery query;
    query.rectangle = *m_band;
    query.width = m_width;
    query.height = m_height;
    query.touching = m_band->x2 < m_band->x1;
    const auto found = FindInBox(GetSceneRoot(), *GetRenderingOptions(),
                                 MakeProjection(*GetCamera(), m_width, m_height), query);
    OrvikCore::ASession& session = OrvikCore::SessionMgr::Instance().CurrentSession();
    session.UnSelect();
    session.SetPickedEntities(found);
    for (const TambVizCore::EntityId& entity : found)
        session.Select(entity);
}

} // namespace ViewOpenGl
