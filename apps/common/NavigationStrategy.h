#ifndef APPSCOMMON_NAVIGATIONSTRATEGY_H
#define APPSCOMMON_NAVIGATIONSTRATEGY_H

#include "NavigationTable.h"

#include <OrvikCore/Input2OpStrategyStickySelect.h>

#include <functional>
#include <memory>

namespace Pellux {

/// What a strategy tells of the gesture that goes on.
struct NavigationState
{
    bool isAdding = false; ///< The rubber band that goes on, or ended last, adds to the selection.
};

/// The strategy that reads a table: drags do what the table says of their buttons and modifier
/// keys.
///
/// What is done without a button, with the wheel and with keys is as in the base; so is a click of
/// the left button whose row neither selects nor adds. A rubber band goes on whatever becomes of
/// the modifier keys; Escape, or another button that means something else, gives it up. A window
/// zoom is a pan that brings the middle of the rectangle into the middle of the window and a zoom
/// until the rectangle fills it, to a whole percent.
///
/// @thread As its base.
class NavigationStrategy final : public OrvikCore::Input2OpStrategyStickySelect
{
public:
    /// Writes width and height of the window, pixels; zeros when there is none.
    using WindowSize = std::function<void(int& width, int& height)>;

    /// @param owner  the controller served; not owned.
    /// @param state  shared with whoever listens; not null.
    NavigationStrategy(OrvikCore::Controller* owner, NavigationTable table, WindowSize windowSize,
                       std::shared_ptr<NavigationState> state);

    bool ConvertWindowEvent(OrvikCore::KeyEventArgs* event) override;
    bool ConvertWindowEvent(OrvikCore::MouseWheelEventArgs* event) override;
    bool ConvertWindowEvent(OrvikCore::MouseClickEventArgs* event) override;
    bool ConvertWindowEvent(OrvikCore::MouseButtonEventArgs* event) override;
    bool ConvertWindowEvent(OrvikCore::MouseEventArgs* event) override;

private:
    bool isBandUnderWay() const;
    OrvikCore::IViewOp* pressOp(OrvikCore::MouseButtonEventArgs& event);
    OrvikCore::IViewOp* releaseOp(OrvikCore::MouseButtonEventArgs& event);
    OrvikCore::IViewOp* motionOp(OrvikCore::MouseEventArgs& event);
    void pushWindowZoom(int x, int y);

    NavigationTable m_table;
    WindowSize m_windowSize;
    std::shared_ptr<NavigationState> m_state;
    OrvikCore::MouseButton m_held = OrvikCore::MouseButton::None;
    NavigationAction m_action = NavigationAction::None; ///< Of the buttons that are held.
    int m_startX = 0;                                   ///< Where the gesture began, pixels.
    int m_startY = 0;
    bool m_isEscapeUsed = false; ///< Its press gave a band up: its release does nothing.
};

} // namespace Pellux

#endif
