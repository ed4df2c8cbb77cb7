#include "OrvikCore/Input2OpStrategySelect.h"

#include "KeyCodes.h"
#include "MakeOp.h"

#include "OrvikCore/Controller.h"
#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseButtonEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"
#include "OrvikCore/OpStack.h"
#include "OrvikCore/ViewOpDrag.h"
#include "OrvikCore/ViewOpHighlight.h"
#include "OrvikCore/ViewOpHitTest.h"
#include "OrvikCore/ViewOpMouseMove.h"
#include "OrvikCore/ViewOpPan.h"
#include "OrvikCore/ViewOpRayPick.h"
#include "OrvikCore/ViewOpRotate.h"
#include "OrvikCore/ViewOpTargetCamera.h"
#include "OrvikCore/ViewOpZoom.h"

namespace OrvikCore {

namespace {

/// Zoom in percent for each step of the wheel and for each vertical motion with the zoom button.
constexpr int kZoomPercent = 5;

constexpr MouseButton kPanButtons = MouseButton::Selection | MouseButton::Zoom;
constexpr ModifierKey kShiftAlt = ModifierKey::Shift | ModifierKey::Alt;

} // namespace

Input2OpStrategySelect::Input2OpStrategySelect(Controller* owner) : Input2OpStrategy(owner) {}

Input2OpStrategySelect::~Input2OpStrategySelect() = default;

bool Input2OpStrategySelect::ConvertWindowEvent(KeyEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    IViewOp* op = nullptr;
    if (previous != nullptr && event->Key() == kKeyShift && !event->IsKeyUp() &&
        event->ModifierKeysCount() == 0) {
        if (previous->Type() == ViewOpType::RayPick) {
            // Deliberate: success without an operation; the ray pick is gone from the stack.
            // Held by Input2OpStrategySelect.ShiftPressDropsARayPick.
            opStack->Discard(previous);
            return true;
        }
        op = MakeOp<ViewOpHighlight>(nullptr, false);
    } else if (event->Key() == kKeyEscape) {
        op = MakeOp<ViewOpDrag>(0, 0, IViewOpState::End);
    }
    return conclude(previous, op);
}

bool Input2OpStrategySelect::ConvertWindowEvent(MouseWheelEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    return conclude(previous,
                    MakeOp<ViewOpZoom>(event->Delta() * kZoomPercent, event->X(), event->Y()));
}

bool Input2OpStrategySelect::ConvertWindowEvent(MouseClickEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    IViewOp* op = nullptr;
    if (event->GetMouseButton() == MouseButton::Selection) {
        if (event->ModifierKeys() == ModifierKey::None) {
            op = MakeOp<ViewOpTargetCamera>(event->X(), event->Y());
        } else if (event->ModifierKeys() == ModifierKey::Ctrl) {
            op = MakeOp<ViewOpRayPick>(false, event->X(), event->Y(), ViewOpRayPick::APERTURE,
                                       false);
        }
    }
    return conclude(previous, op);
}

bool Input2OpStrategySelect::ConvertWindowEvent(MouseButtonEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    const bool counts = event->GetMouseButtons() == MouseButton::Selection;
    return conclude(previous, counts ? buttonOp(*event, previous) : nullptr);
}

bool Input2OpStrategySelect::ConvertWindowEvent(MouseEventArgs* event)
{
    if (event == nullptr || opStack == nullptr) {
        return false;
    }
    IViewOp* previous = opStack->Pop();
    IViewOp* op = nullptr;
    if (event->GetMouseAction() == MouseAction::HoverEnded) {
        opStack->Clear();
        op = MakeOp<ViewOpHighlight>(nullptr, false);
    } else if (event->GetMouseAction() == MouseAction::Moved) {
        op = motionOp(*event, previous);
    }
    return conclude(previous, op);
}

bool Input2OpStrategySelect::conclude(IViewOp* previous, IViewOp* op)
{
    if (op != nullptr) {
        opStack->Discard(previous);
        opStack->Push(op);
    } else if (previous != nullptr) {
        opStack->Push(previous);
    }
    return op != nullptr;
}

IViewOp* Input2OpStrategySelect::motionOp(MouseEventArgs& event, const IViewOp* previous)
{
    const int x = event.X();
    const int y = event.Y();
    if (event.ModifierKeys() == ModifierKey::None) {
        return plainMotionOp(event, previous);
    }
    if (event.ModifierKeys() == ModifierKey::Shift) {
        return IsOfType(previous, ViewOpType::Drag)
                   ? MakeOp<ViewOpDrag>(x, y, IViewOpState::Processing)
                   : MakeOp<ViewOpHitTest>(x, y, false);
    }
    if (event.ModifierKeys() == kShiftAlt) {
        return MakeOp<ViewOpHitTest>(x, y, true);
    }
    return MakeOp<ViewOpMouseMove>(x, y);
}

IViewOp* Input2OpStrategySelect::plainMotionOp(MouseEventArgs& event, const IViewOp* previous)
{
    const int x = event.X();
    const int y = event.Y();
    const int beforeX = controller->PrevX();
    const int beforeY = controller->PrevY();
    // Deliberate: pans and rotations are in processing from the first motion to the last, and the
    // first motion after a ray pick resets the rubber band.
    // Held by the rows BothButtons, SelectionButton and NoButtonAfterARayPick of PointerMotion.
    if (event.GetMouseButtons() == kPanButtons) {
        return MakeOp<ViewOpPan>(x, y, beforeX, beforeY, IViewOpState::Processing);
    }
    if (event.GetMouseButtons() == MouseButton::Selection) {
        // Shift was let go while the button is still held.
        const bool isDragging =
            IsOfType(previous, ViewOpType::Drag) && previous->State() != IViewOpState::End;
        return isDragging ? MakeOp<ViewOpDrag>(0, 0, IViewOpState::End)
                          : MakeOp<ViewOpRotate>(x, y, beforeX, beforeY, IViewOpState::Processing);
    }
    if (event.GetMouseButtons() == MouseButton::Zoom) {
        const int way = y - beforeY;
        return way == 0 ? nullptr
                        : MakeOp<ViewOpZoom>(way < 1 ? -kZoomPercent : kZoomPercent, x, y);
    }
    return IsOfType(previous, ViewOpType::RayPick) ? MakeOp<ViewOpDrag>(x, y, IViewOpState::Reset)
                                                   : MakeOp<ViewOpMouseMove>(x, y);
}

IViewOp* Input2OpStrategySelect::buttonOp(MouseButtonEventArgs& event, const IViewOp* previous)
{
    const int x = event.X();
    const int y = event.Y();
    const bool wasDrag = IsOfType(previous, ViewOpType::Drag);
    if (event.ModifierKeys() == ModifierKey::Ctrl) {
        return MakeOp<ViewOpMouseMove>(x, y);
    }
    if (event.ModifierKeys() != ModifierKey::Shift && event.ModifierKeys() != ModifierKey::None) {
        return nullptr;
    }
    if (!event.IsPressed()) {
        return wasDrag ? MakeOp<ViewOpDrag>(x, y, IViewOpState::End) : nullptr;
    }
    if (event.ModifierKeys() == ModifierKey::Shift) {
        return MakeOp<ViewOpDrag>(x, y, IViewOpState::Start);
    }
    return wasDrag ? MakeOp<ViewOpDrag>(x, y, IViewOpState::Reset) : MakeOp<ViewOpMouseMove>(x, y);
}

} // namespace OrvikCore
