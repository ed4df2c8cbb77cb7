#ifndef ORVIKCORE_TESTS_CONTROLLERFIXTURE_H
#define ORVIKCORE_TESTS_CONTROLLERFIXTURE_H

#include "../jobs/DispatcherFixture.h"
#include "CountedOp.h"
#include "OpText.h"
#include "StrategyFixture.h"

#include "OrvikCore/Controller.h"
#include "OrvikCore/IControllerListener.h"
#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseButtonEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

/// Writes down the operations that it gets, after its name, in a list shared with its kin.
class RecordingListener : public OrvikCore::IControllerListener
{
public:
    RecordingListener(std::string name, std::vector<std::string>& received)
        : m_name(std::move(name)), m_received(received)
    {
    }

    void ControllerNotify(OrvikCore::IViewOp* op) override
    {
        m_received.push_back(m_name + ": " + OpText(op));
        if (const auto action = m_onNotify) { // A copy: the action may replace itself.
            action(op);
        }
    }

    std::function<void(OrvikCore::IViewOp*)> m_onNotify; ///< Run after writing down.

private:
    std::string m_name;
    std::vector<std::string>& m_received;
};

/// A controller with one listener, "a", and short ways to send it events.
class ControllerFixture : public DispatcherTest
{
protected:
    ControllerFixture() { m_controller.AddListener(&m_listener); }

    bool move(int x, int y, OrvikCore::MouseButton buttons = OrvikCore::MouseButton::None,
              OrvikCore::ModifierKey modifiers = OrvikCore::ModifierKey::None)
    {
        OrvikCore::MouseEventArgs event(OrvikCore::MouseAction::Moved, x, y, buttons, modifiers);
        return m_controller.HandleWindowEvent(&event);
    }
    bool leave()
    {
        OrvikCore::MouseEventArgs event(OrvikCore::MouseAction::HoverEnded, 0, 0,
                                        OrvikCore::MouseButton::None, OrvikCore::ModifierKey::None);
        return m_controller.HandleWindowEvent(&event);
    }
    bool click(int x, int y)
    {
        OrvikCore::MouseClickEventArgs event(OrvikCore::MouseButton::Selection, 1, x, y,
                                             OrvikCore::ModifierKey::None);
        return m_controller.HandleWindowEvent(&event);
    }
    bool press(OrvikCore::ModifierKey modifiers, int x, int y)
    {
        OrvikCore::MouseButtonEventArgs event(OrvikCore::MouseButton::Selection, true, x, y,
                                              modifiers);
        return m_controller.HandleWindowEvent(&event);
    }
    bool wheel(int delta)
    {
        OrvikCore::MouseWheelEventArgs event(delta, 1, 2);
        return m_controller.HandleWindowEvent(&event);
    }
    bool key(int code, OrvikCore::ModifierKey modifiers, bool up = false)
    {
        OrvikCore::KeyEventArgs event(code, up, modifiers);
        return m_controller.HandleWindowEvent(&event);
    }

    /// The operations on the controller's stack, newest first.
    std::vector<std::string> stacked()
    {
        std::vector<std::string> texts;
        OrvikCore::OpStack copy = m_shown.Stack();
        while (!copy.IsEmpty()) {
            texts.push_back(OpText(copy.Pop()));
        }
        return texts;
    }

    using Texts = std::vector<std::string>;

    std::vector<std::string> m_received;
    RecordingListener m_listener{"a", m_received};
    OrvikCore::Controller m_controller;
    ShownStrategy<OrvikCore::Input2OpStrategySelect> m_shown{&m_controller}; ///< For its stack.
};

#endif
