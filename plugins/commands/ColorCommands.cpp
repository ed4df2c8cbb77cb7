#include "CommandParts.h"
#include "Commands.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambApplicationCoreServices.h>

#include <cstdint>
#include <initializer_list>
#include <string>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Color24;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Int8;
using TambCommandsInfra::Nullable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

using Services = ITambApplicationCoreServices;

constexpr std::int64_t kMaxComponent = 255;

struct ColorSetting
{
    const char* word; ///< In the commands' names: "face".
    const char* what; ///< In their texts: "faces".
    Nullable<Color24> (Services::*get)();
    void (Services::*set)(const Nullable<Color24>& color);
};

struct AlphaSetting
{
    const char* word; ///< In the commands' names: "face".
    const char* what; ///< In their texts: "faces".
    Nullable<Int8> (Services::*get)();
    void (Services::*set)(const Nullable<Int8>& alpha);
};

bool isRestore(const Value& value)
{
    return value.GetKind() == Value::Kind::Bool && !value.AsBool();
}

bool isComponent(const Value& value)
{
    return value.GetKind() == Value::Kind::Integer && value.AsInteger() >= 0 &&
           value.AsInteger() <= kMaxComponent;
}

bool isColor(const Value& value)
{
    return value.GetKind() == Value::Kind::List && value.AsList().size() == 3 &&
           isComponent(value.AsList()[0]) && isComponent(value.AsList()[1]) &&
           isComponent(value.AsList()[2]);
}

std::uint8_t componentOf(const Value& value)
{
    return static_cast<std::uint8_t>(value.AsInteger());
}

/// @throws CommandError for anything but a colour.
Color24 colorOf(const std::string& command, const Value& value, const std::string& orElse)
{
    if (!isColor(value))
        throw WrongArgument(command, "color",
                            "red, green and blue, three integers from 0 to 255" + orElse, value);
    const Value::List& list = value.AsList();
    return Color24{componentOf(list[0]), componentOf(list[1]), componentOf(list[2])};
}

Value colorValue(const Nullable<Color24>& color)
{
    if (!color.HasValue())
        return Value(false);
    const Color24 c = color.Value();
    return Value(Value::List{Value(std::int64_t{c.red}), Value(std::int64_t{c.green}),
                             Value(std::int64_t{c.blue})});
}

Parameter anyParameter(const std::string& name, const std::string& help)
{
    Parameter parameter;
    parameter.name = name;
    parameter.type = ValueType::Any;
    parameter.help = help;
    return parameter;
}

Command colorCommand(const ColorSetting& setting)
{
    Command command;
    command.name = std::string("app:default-") + setting.word + "-color";
    command.result = ValueType::List;
    command.resultHelp = "red, green and blue from 0 to 255";
    command.summary = std::string("Tells the colour that ") + setting.what + " have by default.";
    command.example = "(" + command.name + ")";
    command.handler = [get = setting.get](const Arguments&) {
        return colorValue((ApplicationServices().*get)());
    };
    return command;
}

Command setColorCommand(const ColorSetting& setting)
{
    Command command;
    command.name = std::string("app:set-default-") + setting.word + "-color!";
    command.parameters = {anyParameter(
        "color", "list of red, green and blue from 0 to 255, or #f for the first setting")};
    command.summary = std::string("Sets the colour that ") + setting.what + " have by default.";
    command.help = "The alpha component stays as it is.";
    command.example = "(" + command.name + " '(200 120 40))";
    command.effect = CommandEffect::Changes;
    command.handler = [set = setting.set, name = command.name](const Arguments& arguments) {
        Nullable<Color24> color;
        if (!isRestore(arguments["color"]))
            color = colorOf(name, arguments["color"], ", or #f");
        (ApplicationServices().*set)(color);
        return Value();
    };
    return command;
}

Command alphaCommand(const AlphaSetting& setting)
{
    Command command;
    command.name = std::string("app:default-") + setting.word + "-alpha";
    command.result = ValueType::Integer;
    command.resultHelp = "from 0, transparent, to 255, opaque";
    command.summary = std::string("Tells how opaque ") + setting.what + " are by default.";
    command.example = "(" + command.name + ")";
    command.handler = [get = setting.get](const Arguments&) {
        const Nullable<Int8> alpha = (ApplicationServices().*get)();
        return alpha.HasValue() ? Value(std::int64_t{alpha.Value().Value()}) : Value(false);
    };
    return command;
}

Command setAlphaCommand(const AlphaSetting& setting)
{
    Command command;
    command.name = std::string("app:set-default-") + setting.word + "-alpha!";
    command.parameters = {
        anyParameter("alpha", "from 0, transparent, to 255, opaque, or #f for the first setting")};
    command.summary = std::string("Sets how opaque ") + setting.what + " are by default.";
    command.help = "Red, green and blue stay as they are.";
    command.example = "(" + command.name + " 128)";
    command.effect = CommandEffect::Changes;
    command.handler = [set = setting.set, name = command.name](const Arguments& arguments) {
        const Value& given = arguments["alpha"];
        if (!isRestore(given) && !isComponent(given))
            throw WrongArgument(name, "alpha", "an integer from 0 to 255, or #f", given);
        Nullable<Int8> alpha;
        if (!isRestore(given))
            alpha = Int8(componentOf(given));
        (ApplicationServices().*set)(alpha);
        return Value();
    };
    return command;
}

Parameter backgroundParameter()
{
    Parameter parameter;
    parameter.name = "number";
    parameter.type = ValueType::Integer;
    parameter.help = "1 for the top of the picture, 2 for its bottom";
    parameter.minimum = 1;
    parameter.maximum = 2;
    return parameter;
}

Command backgroundCommand()
{
    Command command;
    command.name = "app:background-color";
    command.parameters = {backgroundParameter()};
    command.result = ValueType::List;
    command.resultHelp = "red, green and blue from 0 to 255";
    command.summary = "Tells one of the two colours of the background.";
    command.example = "(app:background-color 1)";
    command.handler = [](const Arguments& arguments) {
        return colorValue(ApplicationServices().GetBackgroundColor(
            static_cast<int>(arguments["number"].AsInteger())));
    };
    return command;
}

Command setBackgroundCommand()
{
    Command command;
    command.name = "app:set-background-color!";
    command.parameters = {backgroundParameter(),
                          anyParameter("color", "list of red, green and blue from 0 to 255")};
    command.summary = "Sets one of the two colours of the background.";
    command.help = "From the top to the bottom of the picture one goes over into the other.";
    command.example = "(app:set-background-color! 1 '(255 255 255))";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        ApplicationServices().SetBackgroundColor(
            colorOf("app:set-background-color!", arguments["color"], ""),
            static_cast<int>(arguments["number"].AsInteger()));
        return Value();
    };
    return command;
}

} // namespace

void RegisterColorCommands(CommandTable& table)
{
    for (const ColorSetting& setting : std::initializer_list<ColorSetting>{
             {"face", "faces", &Services::GetDefaultFaceColor, &Services::SetDefaultFaceColor},
             {"edge", "edges", &Services::GetDefaultEdgeColor, &Services::SetDefaultEdgeColor},
             {"vertex", "vertices", &Services::GetDefaultVertexColor,
              &Services::SetDefaultVertexColor},
             {"tessellated-edge", "edges of tessellations", &Services::GetDefaultTessEdgeColor,
              &Services::SetDefaultTessEdgeColor}}) {
        table.Register(colorCommand(setting));
        table.Register(setColorCommand(setting));
    }
    for (const AlphaSetting& setting : std::initializer_list<AlphaSetting>{
             {"face", "faces", &Services::GetDefaultFaceAlpha, &Services::SetDefaultFaceAlpha},
             {"edge", "edges", &Services::GetDefaultEdgeAlpha, &Services::SetDefaultEdgeAlpha},
             {"vertex", "vertices", &Services::GetDefaultVertexAlpha,
              &Services::SetDefaultVertexAlpha}}) {
        table.Register(alphaCommand(setting));
        table.Register(setAlphaCommand(setting));
    }
    table.Register(backgroundCommand());
    table.Register(setBackgroundCommand());
}

} // namespace OrvikCommands
