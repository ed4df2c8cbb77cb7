#ifndef APPSCOMMON_TESTS_NAVIGATIONFIXTURE_H
#define APPSCOMMON_TESTS_NAVIGATIONFIXTURE_H

#include "../Navigation.h"
#include "../NavigationStrategy.h"

#include <OrvikCore/Controller.h>
#include <OrvikCore/IViewOp.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/MouseGesture.h>
#include <OrvikCore/ViewOpRayPick.h>

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>

/// Writes the operations down: their type, and the state of drags.
class OpLog : public OrvikCore::IControllerListener
{
public:
    void ControllerNotify(OrvikCore::IViewOp* op) override
    {
        if (op->Type() == OrvikCore::ViewOpType::Drag)
            m_log += "drag" + std::to_string(static_cast<int>(op->State())) + " ";
        else if (op->Type() == OrvikCore::ViewOpType::RayPick)
            m_log += static_cast<OrvikCore::ViewOpRayPick*>(op)->IsMultiple() ? "add " : "pick ";
        else if (op->Type() != OrvikCore::ViewOpType::MouseMove)
            m_log += op->ToString() + "; ";
    }
    std::string Take() { return std::exchange(m_log, {}); }

private:
    std::string m_log;
};

/// A controller with the strategy of one table, in a window of 200 x 100 pixels.
class TableStrategy : public testing::Test
{
protected:
    TableStrategy() { m_controller.AddListener(&m_log); }

    void use(const Pellux::NavigationTable& table)
    {
        const auto size = [](int& width, int& height) {
            width = 200;
            height = 100;
        };
        m_controller.SetStrategy(
            new Pellux::NavigationStrategy(&m_controller, table, size, m_state));
    }
    void use(std::size_t preset) { use(Pellux::NavigationPresets()[preset].table); }

    void move(int x, int y, OrvikCore::MouseGesture held = {})
    {
        OrvikCore::MouseEventArgs event(OrvikCore::MouseAction::Moved, x, y, held.buttons,
                                        held.modifiers);
        m_controller.HandleWindowEvent(&event);
    }
    void button(bool press, int x, int y, OrvikCore::MouseGesture held)
    {
        OrvikCore::MouseButtonEventArgs event(held.buttons, press, x, y, held.modifiers);
        m_controller.HandleWindowEvent(&event);
    }
    void key(int number, bool isUp)
    {
        OrvikCore::KeyEventArgs event(number, isUp, OrvikCore::ModifierKey::None);
        m_controller.HandleWindowEvent(&event);
    }
    std::string drag(OrvikCore::MouseGesture held, int x1 = 10, int y1 = 10, int x2 = 60,
                     int y2 = 35)
    {
        move(x1, y1, {held.modifiers, OrvikCore::MouseButton::None});
        m_log.Take();
        button(true, x1, y1, held);
        move(x2, y2, held);
        button(false, x2, y2, held);
        return m_log.Take();
    }
    std::string click(OrvikCore::MouseGesture held)
    {
        OrvikCore::MouseClickEventArgs event(held.buttons, 1, 10, 10, held.modifiers);
        m_controller.HandleWindowEvent(&event);
        return m_log.Take();
    }

    OpLog m_log;
    std::shared_ptr<Pellux::NavigationState> m_state = std::make_shared<Pellux::NavigationState>();
    OrvikCore::Controller m_controller;
};

#endif
