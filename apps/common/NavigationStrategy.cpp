#include "NavigationStrategy.h"

#include <OrvikCore/Controller.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/OpStack.h>
#include <OrvikCore/ViewOpDrag.h>
#include <OrvikCore/ViewOpMouseMove.h>
#include <OrvikCore/ViewOpPan.h>
#include <OrvikCore/ViewOpRayPick.h>
#include <OrvikCore/ViewOpRotate.h>
#include <OrvikCore/ViewOpZoom.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <new>
#include <utility>

namespace Pellux {

using OrvikCore::IViewOp;
using OrvikCore::IViewOpState;
using OrvikCore::KeyEventArgs;
using OrvikCore::MouseButton;
using OrvikCore::MouseButtonEventArgs;
using OrvikCore::MouseClickEventArgs;
using OrvikCore::MouseEventArgs;
using OrvikCore::MouseWheelEventArgs;
using OrvikCore::ViewOpDrag;
using OrvikCore::ViewOpMouseMove;
using OrvikCore::ViewOpPan;
using OrvikCore::ViewOpRayPick;
using OrvikCore::ViewOpRotate;
using OrvikCore::ViewOpZoom;

namespace {

/// Zoom in percent for each vertical motion.
constexpr int kZoomPercent = 5;

/// A rectangle that is smaller both ways, pixels, is the click of a shaking hand.
constexpr int kLeastRectangle = 3;

/// The nearest that a window zoom goes at once: to a hundredth of the distance.
constexpr int kLeastZoomPercent = -99;

bool isBand(NavigationAction action)
{
    return action == NavigationAction::WindowZoom || action == NavigationAction::Select ||
           action == NavigationAction::Add;
}

/// @return a new operation (transferred out); null when there is no memory for it.
template <typename Op, typename... Arguments> IViewOp* makeOp(const Arguments&... arguments)
{
    return new (std::nothrow) Op(arguments...);
}

MouseButton without(MouseButton buttons, MouseButton released)
{
    return static_cast<MouseButton>(static_cast<int>(buttons) & ~static_cast<int>(released));
}

} // namespace

NavigationStrategy::NavigationStrategy(OrvikCore::Controller* owner, NavigationTable table,
                                       WindowSize windowSize,
                                       std::shared_ptr<NavigationState> state)
    : Input2OpStrategyStickySelect(owner),
      m_table(std::move(table)),
      m_windowSize(std::move(windowSize)),
      m_state(std::move(state))
{
}

bool NavigationStrategy::ConvertWindowEvent(KeyEventArgs* event)
{
    const bool isEscape = event != nullptr && event->Key() == KeyEventArgs::kEscape;
    if (isEscape && event->IsKeyUp() && std::exchange(m_isEscapeUsed, false))
        return false;
    if (!isEscape || event->IsKeyUp() || opStack == nullptr || !isBandUnderWay())
        return Input2OpStrategyStickySelect::ConvertWindowEvent(event);
    m_isEscapeUsed = true;
    m_action = NavigationAction::None;
    return conclude(opStack->Pop(), makeOp<ViewOpDrag>(0, 0, IViewOpState::Reset));
}

bool NavigationStrategy::ConvertWindowEvent(MouseWheelEventArgs* event)
{
    return Input2OpStrategyStickySelect::ConvertWindowEvent(event);
}

bool NavigationStrategy::ConvertWindowEvent(MouseClickEventArgs* event)
{
    if (event == nullptr || opStack == nullptr)
        return false;
    const NavigationAction action = m_table.Find({event->ModifierKeys(), event->GetMouseButton()});
    if (action != NavigationAction::Select && action != NavigationAction::Add)
        return Input2OpStrategyStickySelect::ConvertWindowEvent(event);
    return conclude(opStack->Pop(),
                    makeOp<ViewOpRayPick>(false, event->X(), event->Y(), ViewOpRayPick::APERTURE,
                                          action == NavigationAction::Add));
}

bool NavigationStrategy::ConvertWindowEvent(MouseButtonEventArgs* event)
{
    if (event == nullptr || opStack == nullptr)
        return false;
    IViewOp* previous = opStack->Pop();
    return conclude(previous, event->IsPressed() ? pressOp(*event) : releaseOp(*event));
}

bool NavigationStrategy::ConvertWindowEvent(MouseEventArgs* event)
{
    const bool isMotion =
        event != nullptr && event->GetMouseAction() == OrvikCore::MouseAction::Moved;
    const bool isDrag =
        isMotion && (event->GetMouseButtons() != MouseButton::None || isBandUnderWay());
    if (!isDrag || opStack == nullptr)
        return Input2OpStrategyStickySelect::ConvertWindowEvent(event);
    IViewOp* previous = opStack->Pop();
    return conclude(previous, motionOp(*event));
}

bool NavigationStrategy::isBandUnderWay() const
{
    return isBand(m_action);
}

IViewOp* NavigationStrategy::pressOp(MouseButtonEventArgs& event)
{
    const bool wasBand = isBandUnderWay();
    m_held = m_held | event.GetMouseButtons();
    m_action = m_table.Find({event.ModifierKeys(), m_held});
    m_startX = event.X();
    m_startY = event.Y();
    m_state->isAdding = m_action == NavigationAction::Add;
    if (isBandUnderWay())
        return makeOp<ViewOpDrag>(event.X(), event.Y(), IViewOpState::Start);
    return wasBand ? makeOp<ViewOpDrag>(event.X(), event.Y(), IViewOpState::Reset)
                   : makeOp<ViewOpMouseMove>(event.X(), event.Y());
}

IViewOp* NavigationStrategy::releaseOp(MouseButtonEventArgs& event)
{
    m_held = without(m_held, event.GetMouseButtons());
    const NavigationAction ended = std::exchange(m_action, NavigationAction::None);
    if (!isBand(ended))
        return nullptr;
    if (ended != NavigationAction::WindowZoom)
        return makeOp<ViewOpDrag>(event.X(), event.Y(), IViewOpState::End);
    // The operation on the top is delivered first: the band goes before the camera moves.
    pushWindowZoom(event.X(), event.Y());
    return makeOp<ViewOpDrag>(event.X(), event.Y(), IViewOpState::Reset);
}

IViewOp* NavigationStrategy::motionOp(MouseEventArgs& event)
{
    const int x = event.X();
    const int y = event.Y();
    const int beforeX = controller->PrevX();
    const int beforeY = controller->PrevY();
    m_held = event.GetMouseButtons();
    if (isBandUnderWay()) {
        // The release was not seen, say because the window was left.
        const bool isLost = m_held == MouseButton::None;
        if (isLost)
            m_action = NavigationAction::None;
        return makeOp<ViewOpDrag>(x, y, isLost ? IViewOpState::Reset : IViewOpState::Processing);
    }
    switch (m_table.Find({event.ModifierKeys(), m_held})) {
    case NavigationAction::Rotate:
        return makeOp<ViewOpRotate>(x, y, beforeX, beforeY, IViewOpState::Processing);
    case NavigationAction::Pan:
        return makeOp<ViewOpPan>(x, y, beforeX, beforeY, IViewOpState::Processing);
    case NavigationAction::Zoom:
        return y == beforeY ? nullptr
                            : makeOp<ViewOpZoom>(y < beforeY ? -kZoomPercent : kZoomPercent, x, y);
    default:
        return makeOp<ViewOpMouseMove>(x, y);
    }
}

void NavigationStrategy::pushWindowZoom(int x, int y)
{
    const int width = std::abs(x - m_startX);
    const int height = std::abs(y - m_startY);
    int windowWidth = 0;
    int windowHeight = 0;
    m_windowSize(windowWidth, windowHeight);
    if ((width < kLeastRectangle && height < kLeastRectangle) || windowWidth <= 0 ||
        windowHeight <= 0)
        return;
    const double share = std::max(static_cast<double>(width) / windowWidth,
                                  static_cast<double>(height) / windowHeight);
    const int percent =
        std::max(static_cast<int>(std::lround((share - 1.0) * 100.0)), kLeastZoomPercent);
    const int middleX = windowWidth / 2;
    const int middleY = windowHeight / 2;
    if (IViewOp* const zoom = makeOp<ViewOpZoom>(percent, middleX, middleY))
        opStack->Push(zoom);
    if (IViewOp* const pan =
            makeOp<ViewOpPan>(middleX, middleY, m_startX + (x - m_startX) / 2,
                              m_startY + (y - m_startY) / 2, IViewOpState::Processing))
        opStack->Push(pan);
}

} // namespace Pellux
