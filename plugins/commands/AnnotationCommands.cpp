#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/IViewObjectProvider.h>
#include <OrvikCore/TextItem3D.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RGBAColor.h>

#include <cmath>
#include <stdexcept>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::TextDirection;
using OrvikCore::TextItem3D;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::RGBAColor;

const char kDrawPolyline[] = "view:draw-polyline";
const char kDrawText[] = "view:draw-text";
constexpr RGBAColor kLineColor{230, 126, 34};
constexpr RGBAColor kTextColor{20, 30, 45};
constexpr RGBAColor kTextBackground{255, 255, 255, 200};

Parameter colorParameter()
{
    Parameter color;
    color.name = "color";
    color.type = ValueType::Vector;
    color.help = "red, green and blue from 0 to 1";
    color.presence = Presence::Optional;
    return color;
}

RGBAColor colorArgument(const char* command, const Value& value, const RGBAColor& standard)
{
    if (value.GetKind() == Value::Kind::Nil)
        return standard;
    std::uint8_t bytes[3];
    const std::array<double, 3> shares = value.AsVector();
    for (std::size_t i = 0; i < 3; ++i) {
        if (shares[i] < 0.0 || shares[i] > 1.0)
            throw WrongArgument(command, "color", "three numbers from 0 to 1", value);
        bytes[i] = static_cast<std::uint8_t>(std::lround(shares[i] * 255.0));
    }
    return RGBAColor(bytes[0], bytes[1], bytes[2]);
}

/// The coordinates of a list of points, one after the other.
std::vector<double> coordinates(const Value& points)
{
    std::vector<double> numbers;
    for (const Value& point : points.AsList()) {
        if (!IsThreeNumbers(point))
            throw WrongArgument(kDrawPolyline, "points", "a list of lists of three numbers", point);
        const std::array<double, 3> place = PlaceFrom(kDrawPolyline, "points", point);
        numbers.insert(numbers.end(), place.begin(), place.end());
    }
    if (numbers.size() < 6)
        throw WrongArgument(kDrawPolyline, "points", "at least two points", points);
    return numbers;
}

Command drawPolylineCommand()
{
    Command command;
    command.name = kDrawPolyline;
    Parameter points;
    points.name = "points";
    points.type = ValueType::List;
    points.help = "lists of x, y and z";
    points.unit = "mm";
    Parameter closed = SwitchParameter("closed", "#t joins the last point with the first");
    closed.defaultValue = Value(false);
    Parameter filled = SwitchParameter("filled", "#t fills the area inside a closed one");
    filled.defaultValue = Value(false);
    command.parameters = {points, closed, filled, colorParameter()};
    command.summary = "Draws a line through points over the model.";
    command.help = "It stays until view:clear-drawing.";
    command.example = "(view:draw-polyline '((0 0 0) (10 0 0) (10 10 0)) #t #t '(0.9 0.2 0.1))";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const std::vector<std::vector<double>> lines = {coordinates(arguments["points"])};
        const RGBAColor color = colorArgument(kDrawPolyline, arguments["color"], kLineColor);
        ChangeView([&] {
            CurrentProvider().DrawMarkupObjects(lines, arguments["closed"].AsBool(),
                                                arguments["filled"].AsBool(), color);
        });
        return Value();
    };
    return command;
}

Command drawTextCommand()
{
    Command command;
    command.name = kDrawText;
    Parameter text;
    text.name = "text";
    text.type = ValueType::String;
    text.help = "one line";
    Parameter height = RealParameter("height", "height of a capital letter", "pixels");
    height.presence = Presence::Optional;
    height.defaultValue = Value(14.0);
    height.minimum = 1.0;
    height.maximum = 512.0;
    command.parameters = {text, PointParameter("place", "where the text begins"), height,
                          colorParameter()};
    command.summary = "Writes a text over the model; it faces the eye.";
    command.help = "It stays until view:clear-drawing.";
    command.example = "(view:draw-text \"bore 12 mm\" '(0 0 20))";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const std::array<double, 3> place = PlaceFrom(kDrawText, "place", arguments["place"]);
        if (arguments["text"].AsString().empty())
            throw WrongArgument(kDrawText, "text", "a text with something in it",
                                arguments["text"]);
        const TextItem3D item(
            arguments["text"].AsString(), /*facesCamera=*/true, L"", static_cast<float>(place[0]),
            static_cast<float>(place[1]), static_cast<float>(place[2]), TextDirection::PositiveX,
            TextDirection::PositiveY, /*bold=*/false, /*italic=*/false,
            static_cast<float>(arguments["height"].AsReal()), 0.0f, 0.0f, L"",
            colorArgument(kDrawText, arguments["color"], kTextColor), kTextBackground);
        ChangeView([&item] { CurrentProvider().DrawTextItems({item}); });
        return Value();
    };
    return command;
}

} // namespace

void RegisterAnnotationCommands(CommandTable& table)
{
    table.Register(drawPolylineCommand());
    table.Register(drawTextCommand());
}

} // namespace OrvikCommands
