#include "OrvikCore/Input2OpStrategyStickySelect.h"

#include "KeyCodes.h"
#include "MakeOp.h"

#include "OrvikCore/Controller.h"
#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/OpStack.h"
#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpRayPick.h"

namespace OrvikCore {

Input2OpStrategyStickySelect::Input2OpStrategyStickySelect(Controller* owner)
    : Input2OpStrategySelect(owner)
{
    inputState = InputStrategyState::StickySelect;
    sticky = true;
}

Input2OpStrategyStickySelect::~Input2OpStrategyStickySelect() = default;

bool Input2OpStrategyStickySelect::ConvertWindowEvent(KeyEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    IViewOp* op = nullptr;
    if (event->ModifierKeysCount() != 0) {
        op = keyOpWithModifiers(*event);
    } else if (previous != nullptr && event->Key() == kKeyShift && event->IsKeyUp()) {
        if (previous->Type() == ViewOpType::RayPick) {
            // Deliberate: success without an operation; the ray pick is gone from the stack. The
            // plain strategy does so when Shift is pressed.
            // Held by Input2OpStrategyStickySelect.ShiftReleaseDropsARayPick.
            opStack->Discard(previous);
            return true;
        }
        op = MakeOp<ViewOpHighlight>(nullptr, false);
    } else if (event->Key() == kKeyEscape) {
        op = event->IsKeyUp() ? ViewOpRayPick::CreateViewOpReset()
                              : MakeOp<ViewOpDrag>(0, 0, IViewOpState::End);
    }
    return conclude(previous, op);
}

bool Input2OpStrategyStickySelect::ConvertWindowEvent(MouseClickEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    IViewOp* op = nullptr;
    if (event->GetMouseButton() == MouseButton::Selection) {
        const int x = event->X();
        const int y = event->Y();
        const ModifierKey modifiers = event->ModifierKeys();
        if (modifiers == ModifierKey::None || modifiers == ModifierKey::Ctrl) {
            const bool isMultiple = modifiers == ModifierKey::Ctrl;
            op = MakeOp<ViewOpRayPick>(false, x, y, ViewOpRayPick::APERTURE, isMultiple);
        } else if (modifiers == ModifierKey::Alt) {
            op = MakeOp<ViewOpHitTest>(x, y, true);
        }
    }
    return conclude(previous, op);
}

IViewOp* Input2OpStrategyStickySelect::keyOpWithModifiers(KeyEventArgs& event)
{
    if (event.HasShiftModifierOnly() && event.Key() == kKeyAlt) {
        return MakeOp<ViewOpHitTest>(controller->MouseX(), controller->MouseY(), false);
    }
    if (event.ModifierKeys() == (ModifierKey::Shift | ModifierKey::Alt)) {
        return MakeOp<ViewOpHitTest>(controller->MouseX(), controller->MouseY(), true);
    }
    if (event.HasAltModifierOnly() && event.Key() == kKeyShift) {
        return MakeOp<ViewOpHighlight>(nullptr, false);
    }
    return nullptr;
}

} // namespace OrvikCore
