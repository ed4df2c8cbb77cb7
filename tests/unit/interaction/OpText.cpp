#include "OpText.h"

#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpMouseMove.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpTargetCamera.h"
#include "OrvikCore/ViewOpZoom.h"

#include <sstream>

namespace {

template <typename Op> std::string place(const Op& op)
{
    return std::to_string(op.MouseX()) + " " + std::to_string(op.MouseY());
}

template <typename Op> std::string way(const Op& op)
{
    return place(op) + " from " + std::to_string(op.PrevX()) + " " + std::to_string(op.PrevY());
}

} // namespace

std::string OpText(const OrvikCore::IViewOp* op)
{
    if (op == nullptr) {
        return "none";
    }
    std::ostringstream text;
    if (const auto* hit = dynamic_cast<const OrvikCore::ViewOpHitTest*>(op)) {
        text << "HitTest " << place(*hit) << " enhanced " << hit->UseEnhancedMode();
    } else if (const auto* light = dynamic_cast<const OrvikCore::ViewOpHighlight*>(op)) {
        text << "Highlight " << (light->GetPickResult() == nullptr ? "null" : "entity") << " on "
             << light->HighlightOn();
    } else if (const auto* pan = dynamic_cast<const OrvikCore::ViewOpPan*>(op)) {
        text << "Pan " << way(*pan);
    } else if (const auto* turn = dynamic_cast<const OrvikCore::ViewOpRotate*>(op)) {
        text << "Rotate " << way(*turn);
    } else if (const auto* zoom = dynamic_cast<const OrvikCore::ViewOpZoom*>(op)) {
        text << "Zoom " << zoom->Delta() << " at " << place(*zoom);
    } else if (const auto* pick = dynamic_cast<const OrvikCore::ViewOpRayPick*>(op)) {
        text << "RayPick " << place(*pick) << " aperture " << pick->ApertureRadius() << " multiple "
             << pick->IsMultiple() << " body " << pick->PickBody();
    } else if (const auto* target = dynamic_cast<const OrvikCore::ViewOpTargetCamera*>(op)) {
        text << "TargetCamera " << place(*target);
    } else if (const auto* move = dynamic_cast<const OrvikCore::ViewOpMouseMove*>(op)) {
        text << "MouseMove " << place(*move);
    } else if (const auto* drag = dynamic_cast<const OrvikCore::ViewOpDrag*>(op)) {
        text << "Drag " << place(*drag);
    } else {
        text << op->ToString();
    }
    text << " state " << static_cast<int>(op->State());
    return text.str();
}
