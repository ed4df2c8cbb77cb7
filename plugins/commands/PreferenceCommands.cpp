#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"

#include <OrvikCore/ASession.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/Settings.h>

#include <algorithm>
#include <cstdint>
#include <stdexcept>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::RGBAColor;
using TambVizCore::Settings;

constexpr std::int64_t kMaxComponent = 255;
constexpr double kWidestLine = 16;
constexpr double kFewestSteps = 2;
constexpr double kMostSteps = 100;

Settings& currentSettings()
{
    Settings* const settings = Settings::Current();
    if (settings == nullptr)
        throw std::runtime_error("There are no display settings.");
    return *settings;
}

bool isComponent(const Value& value)
{
    return value.GetKind() == Value::Kind::Integer && value.AsInteger() >= 0 &&
           value.AsInteger() <= kMaxComponent;
}

/// @throws CommandError for what is neither a colour nor #f.
RGBAColor highlightColorOf(const Value& value)
{
    if (value.GetKind() == Value::Kind::Bool && !value.AsBool())
        return Settings::Default().GetHighlightColor();
    const bool isColor = value.GetKind() == Value::Kind::List && value.AsList().size() == 3 &&
                         std::all_of(value.AsList().begin(), value.AsList().end(), &isComponent);
    if (!isColor)
        throw WrongArgument("app:set-highlight-color!", "color",
                            "red, green and blue, three integers from 0 to 255, or #f", value);
    const auto component = [&value](std::size_t i) {
        return static_cast<std::uint8_t>(value.AsList()[i].AsInteger());
    };
    return {component(0), component(1), component(2)};
}

Command highlightColorCommand()
{
    Command command;
    command.name = "app:highlight-color";
    command.result = ValueType::List;
    command.resultHelp = "red, green and blue from 0 to 255";
    command.summary = "Tells the colour of what is selected or highlighted.";
    command.example = "(app:highlight-color)";
    command.handler = [](const Arguments&) {
        const RGBAColor color =
            CallGate::Call([] { return currentSettings().GetHighlightColor(); });
        return Value(Value::List{Value(int{color.r}), Value(int{color.g}), Value(int{color.b})});
    };
    return command;
}

Command setHighlightColorCommand()
{
    Command command;
    command.name = "app:set-highlight-color!";
    Parameter color;
    color.name = "color";
    color.help = "list of red, green and blue from 0 to 255, or #f for the first setting";
    command.parameters = {color};
    command.summary = "Sets the colour of what is selected or highlighted.";
    command.example = "(app:set-highlight-color! '(255 140 0))";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const RGBAColor wanted = highlightColorOf(arguments["color"]);
        ChangeView([&wanted] {
            currentSettings().SetHighlightColor(wanted);
            CurrentOptions().SetHighlightColor(wanted);
        });
        return Value();
    };
    return command;
}

Command antialiasingCommand()
{
    Command command;
    command.name = "app:antialiasing";
    Parameter samples;
    samples.name = "samples";
    samples.type = ValueType::Integer;
    samples.help = "per pixel, 0 for none, -1 for what model and graphics system bear; left out, "
                   "nothing changes";
    samples.presence = Presence::Optional;
    samples.minimum = TambVizCore::kAutomaticAntialiasing;
    samples.maximum = TambVizCore::kMostAntialiasSamples;
    command.parameters = {samples};
    command.result = ValueType::Integer;
    command.resultHelp = "the samples that are asked for now";
    command.summary = "Chooses how smooth lines and borders are drawn.";
    command.help =
        "The graphics system may give fewer samples than it is asked for. With -1, as at "
        "start, there are 4; none where a processor draws more than 250,000 triangles and "
        "edges, in pictures of more than 16 million pixels, and where no model is in "
        "sight.";
    command.example = "(app:antialiasing 4)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        if (arguments.IsGiven("samples"))
            ChangeView([level = static_cast<int>(arguments["samples"].AsInteger())] {
                currentSettings().SetAntialiasLevel(level);
                CurrentOptions().SetAntialiasLevel(level);
            });
        return Value(CallGate::Call([] { return currentSettings().GetAntialiasLevel(); }));
    };
    return command;
}

Command copyPicksCommand()
{
    Command command;
    command.name = "app:copy-picks";
    Parameter on;
    on.name = "on";
    on.type = ValueType::Bool;
    on.help = "whether to copy; left out, nothing changes";
    on.presence = Presence::Optional;
    command.parameters = {on};
    command.result = ValueType::Bool;
    command.resultHelp = "whether picks are copied now";
    command.summary = "Chooses whether each pick of the mouse is placed on the clipboard as text.";
    command.example = "(app:copy-picks #t)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        if (arguments.IsGiven("on"))
            CallGate::Call([copies = arguments["on"].AsBool()] {
                currentSettings().SetCopyPickToClipboard(copies);
            });
        return Value(CallGate::Call([] { return currentSettings().GetCopyPickToClipboard(); }));
    };
    return command;
}

Command lineWidthCommand()
{
    Command command;
    command.name = "app:line-width";
    Parameter width;
    width.name = "width";
    width.type = ValueType::Real;
    width.help = "of edges; left out, nothing changes";
    width.unit = "pixels";
    width.presence = Presence::Optional;
    width.minimum = 1.0;
    width.maximum = kWidestLine;
    command.parameters = {width};
    command.result = ValueType::Real;
    command.resultHelp = "the width in pixels that is asked for now";
    command.summary = "Chooses how wide edges are drawn.";
    command.help = "The graphics system may draw narrower lines than it is asked for.";
    command.example = "(app:line-width 2)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        if (arguments.IsGiven("width"))
            ChangeView([pixels = static_cast<float>(arguments["width"].AsReal())] {
                currentSettings().SetLineWidth(pixels);
                CurrentOptions().SetLineWidth(pixels);
            });
        return Value(
            CallGate::Call([] { return static_cast<double>(currentSettings().GetLineWidth()); }));
    };
    return command;
}

Command animationStepsCommand()
{
    Command command;
    command.name = "app:animation-steps";
    Parameter steps;
    steps.name = "steps";
    steps.type = ValueType::Integer;
    steps.help = "of 30 milliseconds; left out, nothing changes";
    steps.presence = Presence::Optional;
    steps.minimum = kFewestSteps;
    steps.maximum = kMostSteps;
    command.parameters = {steps};
    command.result = ValueType::Integer;
    command.resultHelp = "the steps of a move now";
    command.summary = "Chooses how many steps a move of the camera takes.";
    command.help = "Whether it moves in steps at all is chosen by view:animate.";
    command.example = "(app:animation-steps 10)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        if (arguments.IsGiven("steps"))
            CallGate::Call([count = static_cast<int>(arguments["steps"].AsInteger())] {
                currentSettings().SetAnimationSteps(count);
            });
        return Value(CallGate::Call([] { return currentSettings().GetAnimationSteps(); }));
    };
    return command;
}

Command updatePreferencesCommand()
{
    Command command;
    command.name = "app:update-preferences";
    command.summary = "Reads the preferences of the window again.";
    command.help = "What they set is set once the script has ended. Nothing happens without a "
                   "window.";
    command.example = "(app:update-preferences)";
    command.handler = [](const Arguments&) {
        OrvikCore::ASession& session = Session();
        CallGate::Call([&session] { session.UpdatePreferences(); });
        return Value();
    };
    return command;
}

} // namespace

void RegisterPreferenceCommands(CommandTable& table)
{
    table.Register(highlightColorCommand());
    table.Register(setHighlightColorCommand());
    table.Register(antialiasingCommand());
    table.Register(copyPicksCommand());
    table.Register(lineWidthCommand());
    table.Register(animationStepsCommand());
    table.Register(updatePreferencesCommand());
}

} // namespace OrvikCommands
