#include "CommandParts.h"
#include "Commands.h"
#include "InputParts.h"

#include <OrvikCore/IInputQueue.h>
#include <OrvikCore/MouseButtonEventArgs.h>
#include <OrvikCore/MouseClickEventArgs.h>
#include <OrvikCore/MouseEventArgs.h>
#include <OrvikCore/MouseGesture.h>
#include <OrvikCore/MouseWheelEventArgs.h>
#include <TambCommandsInfra/CommandTable.h>

#include <cmath>
#include <cstdlib>
#include <string>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::IInputQueue;
using OrvikCore::MouseAction;
using OrvikCore::MouseButton;
using OrvikCore::MouseGesture;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

Parameter optionalCount(const std::string& name, const std::string& help, int value, double maximum)
{
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::Integer;
    parameter.help = help;
    parameter.presence = Presence::Optional;
    parameter.defaultValue = Value(value);
    parameter.minimum = 1;
    parameter.maximum = maximum;
    return parameter;
}

int pixelAt(const Arguments& arguments, const char* name)
{
    return static_cast<int>(arguments[name].AsInteger());
}

/// @param needsButton  Whether modifier keys alone will not do.
MouseGesture gestureArgument(const std::string& command, const Arguments& arguments,
                             bool needsButton)
{
    MouseGesture gesture;
    const Value& text = arguments["gesture"];
    if (!MouseGesture::FromText(text.AsString(), gesture) ||
        (needsButton && gesture.buttons == MouseButton::None))
        throw WrongArgument(command, "gesture",
                            "buttons and modifier keys such as \"Ctrl-Shift-left+middle\"", text);
    return gesture;
}

MouseButton onlyButton(const std::string& command, const Arguments& arguments,
                       const MouseGesture& gesture)
{
    const MouseButton button = gesture.buttons;
    if (button != MouseButton::Selection && button != MouseButton::Zoom &&
        button != MouseButton::Menu)
        throw WrongArgument(command, "gesture", "one button", arguments["gesture"]);
    return button;
}

std::vector<MouseButton> buttonsOf(const MouseGesture& gesture)
{
    std::vector<MouseButton> buttons;
    for (const MouseButton button : {MouseButton::Selection, MouseButton::Zoom, MouseButton::Menu})
        if ((gesture.buttons & button) != MouseButton::None)
            buttons.push_back(button);
    return buttons;
}

Command mouseCommand()
{
    Command command;
    command.name = "input:mouse";
    command.parameters = {
        WordParameter("state", "move, press, release or leave"),
        PixelParameter("x", "column of the pointer"), PixelParameter("y", "row of the pointer"),
        OptionalWord("gesture",
                     "modifier keys and buttons held, or the button pressed or released: "
                     "\"Shift\", \"Ctrl-left\", \"left+middle\"",
                     L"")};
    command.summary = "Moves the pointer in the view, or presses or releases a button.";
    command.help = kWhenEventsAct;
    command.example = "(input:mouse 'move 400 300 \"Shift\")";
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::wstring& state = arguments["state"].AsString();
        const int x = pixelAt(arguments, "x");
        const int y = pixelAt(arguments, "y");
        if (state == L"press" || state == L"release") {
            const MouseGesture gesture = gestureArgument(name, arguments, true);
            const MouseButton button = onlyButton(name, arguments, gesture);
            return PostEvents([&](IInputQueue& queue) {
                queue.PostButton({button, state == L"press", x, y, gesture.modifiers});
            });
        }
        if (state != L"move" && state != L"leave")
            throw WrongArgument(name, "state", "move, press, release or leave", arguments["state"]);
        const MouseGesture gesture = gestureArgument(name, arguments, false);
        const MouseAction action = state == L"leave" ? MouseAction::HoverEnded : MouseAction::Moved;
        return PostEvents([&](IInputQueue& queue) {
            queue.PostMotion({action, x, y, gesture.buttons, gesture.modifiers});
        });
    };
    return command;
}

Command clickCommand()
{
    Command command;
    command.name = "input:click";
    command.parameters = {
        PixelParameter("x", "column of the pointer"), PixelParameter("y", "row of the pointer"),
        OptionalWord("gesture", "a button, with modifier keys: \"Ctrl-left\"", L"left"),
        optionalCount("clicks", "1 for a click, 2 for a double click", 1, 3)};
    command.summary = "Moves the pointer to a place in the view and clicks there.";
    command.help = kWhenEventsAct;
    command.example = "(input:click 400 300 \"Ctrl-left\")";
    command.handler = [name = command.name](const Arguments& arguments) {
        const MouseGesture gesture = gestureArgument(name, arguments, true);
        const MouseButton button = onlyButton(name, arguments, gesture);
        const int x = pixelAt(arguments, "x");
        const int y = pixelAt(arguments, "y");
        const int clicks = pixelAt(arguments, "clicks");
        return PostEvents([&](IInputQueue& queue) {
            queue.PostMotion({MouseAction::Moved, x, y, MouseButton::None, gesture.modifiers});
            for (int click = 1; click <= clicks; ++click) {
                queue.PostButton({button, true, x, y, gesture.modifiers});
                queue.PostButton({button, false, x, y, gesture.modifiers});
                queue.PostClick({button, click, x, y, gesture.modifiers});
            }
        });
    };
    return command;
}

/// @return the way from a to b after a share of the steps, to the nearest pixel.
int between(int a, int b, int step, int steps)
{
    return static_cast<int>(std::lround(a + (static_cast<double>(b) - a) * step / steps));
}

Command dragCommand()
{
    Command command;
    command.name = "input:drag";
    command.parameters = {
        PixelParameter("x-from", "column where the buttons are pressed"),
        PixelParameter("y-from", "row where the buttons are pressed"),
        PixelParameter("x-to", "column where they are released"),
        PixelParameter("y-to", "row where they are released"),
        OptionalWord("gesture", "buttons, with modifier keys: \"left+middle\"", L"left"),
        optionalCount("steps", "motions on the way", 8, 10000)};
    command.summary = "Drags in the view: presses, moves in a straight line, releases.";
    command.help = std::string("With several buttons they are pressed left before middle before "
                               "right, and released in the same order. ") +
                   kWhenEventsAct;
    command.example = "(input:drag 400 300 500 320 \"Shift-left\")";
    command.handler = [name = command.name](const Arguments& arguments) {
        const MouseGesture gesture = gestureArgument(name, arguments, true);
        const int x1 = pixelAt(arguments, "x-from");
        const int y1 = pixelAt(arguments, "y-from");
        const int x2 = pixelAt(arguments, "x-to");
        const int y2 = pixelAt(arguments, "y-to");
        const int steps = pixelAt(arguments, "steps");
        return PostEvents([&](IInputQueue& queue) {
            queue.PostMotion({MouseAction::Moved, x1, y1, MouseButton::None, gesture.modifiers});
            for (const MouseButton button : buttonsOf(gesture))
                queue.PostButton({button, true, x1, y1, gesture.modifiers});
            for (int step = 1; step <= steps; ++step)
                queue.PostMotion({MouseAction::Moved, between(x1, x2, step, steps),
                                  between(y1, y2, step, steps), gesture.buttons,
                                  gesture.modifiers});
            for (const MouseButton button : buttonsOf(gesture))
                queue.PostButton({button, false, x2, y2, gesture.modifiers});
        });
    };
    return command;
}

Command wheelCommand()
{
    Command command;
    command.name = "input:wheel";
    Parameter steps;
    steps.name = "steps";
    steps.type = ValueType::Integer;
    steps.help = "notches that the wheel turns; positive moves the eye away";
    steps.minimum = -100;
    steps.maximum = 100;
    command.parameters = {steps, PixelParameter("x", "column of the pointer"),
                          PixelParameter("y", "row of the pointer")};
    command.summary = "Turns the wheel over a place in the view.";
    command.help = std::string("Each step is an event of its own. ") + kWhenEventsAct;
    command.example = "(input:wheel -2 400 300)";
    command.handler = [](const Arguments& arguments) {
        return PostEvents([&](IInputQueue& queue) {
            // A hand turns notch by notch: one event of 20 notches would put the eye on its target.
            const int notches = pixelAt(arguments, "steps");
            for (int i = 0; i < std::abs(notches); ++i)
                queue.PostWheel(
                    {notches > 0 ? 1 : -1, pixelAt(arguments, "x"), pixelAt(arguments, "y")});
        });
    };
    return command;
}

} // namespace

void RegisterMouseCommands(CommandTable& table)
{
    table.DescribeFamily("input", "Mouse and keys");
    table.Register(mouseCommand());
    table.Register(clickCommand());
    table.Register(dragCommand());
    table.Register(wheelCommand());
}

} // namespace OrvikCommands
