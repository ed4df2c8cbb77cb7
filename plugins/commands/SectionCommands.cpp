#include "CommandParts.h"
#include "Commands.h"
#include "SceneParts.h"
#include "ViewSteps.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/RenderingOptions.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

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
using TambVizCore::ClipPlane;

constexpr std::size_t kMostSections = 3;
const char kSection[] = "view:section";
const char kSectionOff[] = "view:section-off";

/// The plane through a point that cuts away what its normal points to.
ClipPlane planeThrough(const std::array<double, 3>& point, const std::array<double, 3>& normal,
                       double length)
{
    ClipPlane plane;
    double offset = 0.0;
    for (std::size_t i = 0; i < 3; ++i) {
        plane.normal[i] = static_cast<float>(-normal[i] / length);
        offset += normal[i] / length * point[i];
    }
    plane.offset = static_cast<float>(offset);
    return plane;
}

Parameter numberParameter(Presence presence)
{
    Parameter number;
    number.name = "number";
    number.type = ValueType::Integer;
    number.help = "of the section, counted from 1";
    number.presence = presence;
    number.minimum = 1.0;
    number.maximum = static_cast<double>(kMostSections);
    return number;
}

Value setSection(const Arguments& arguments)
{
    const std::array<double, 3> normal = arguments["normal"].AsVector();
    const double length = std::hypot(normal[0], normal[1], normal[2]);
    if (!(length > 0.0))
        throw WrongArgument(kSection, "normal", "a direction other than (0 0 0)",
                            arguments["normal"]);
    const ClipPlane plane =
        planeThrough(PlaceFrom(kSection, "point", arguments["point"]), normal, length);
    const auto number = static_cast<std::size_t>(arguments["number"].AsInteger());
    ChangeView([&] {
        SeeingInside wanted = SeeingInside::Present();
        std::vector<ClipPlane>& planes = wanted.planes;
        if (number > planes.size() + 1)
            throw WrongArgument(kSection, "number",
                                "at most " + std::to_string(planes.size() + 1) +
                                    ", the next that is free",
                                arguments["number"]);
        planes.resize(std::max(planes.size(), number));
        planes[number - 1] = plane;
        wanted.Apply();
    });
    return Value();
}

Command sectionCommand()
{
    Command command;
    command.name = kSection;
    Parameter normal;
    normal.name = "normal";
    normal.type = ValueType::Vector;
    normal.help = "direction to what is cut away, of any length";
    Parameter number = numberParameter(Presence::Optional);
    number.defaultValue = Value(1);
    command.parameters = {PointParameter("point", "a point of the plane"), normal, number};
    command.summary = "Cuts the model open along a plane.";
    command.help = "Up to three sections cut at a time; solids are closed in their colour where "
                   "they are cut. What is cut away is neither picked nor hovered. A number that "
                   "is there already moves that section. view:undo takes it back.";
    command.example = "(view:section '(0 0 10) '(0 0 1))";
    command.effect = CommandEffect::Changes;
    command.handler = setSection;
    return command;
}

Command sectionsCommand()
{
    Command command;
    command.name = "view:sections";
    command.result = ValueType::List;
    command.resultHelp = "for each section a point (mm) and the normal that points to what "
                         "is cut away";
    command.summary = "Lists the planes that cut the model open.";
    command.example = "(view:sections)";
    command.handler = [](const Arguments&) {
        Value::List sections;
        for (const ClipPlane& plane :
             CallGate::Call([] { return CurrentOptions().GetClipPlanes(); })) {
            std::array<double, 3> point;
            std::array<double, 3> normal;
            for (std::size_t i = 0; i < 3; ++i) {
                normal[i] = -static_cast<double>(plane.normal[i]);
                point[i] = normal[i] * static_cast<double>(plane.offset);
            }
            sections.push_back(
                Value(Value::List{Value::FromVector(point), Value::FromVector(normal)}));
        }
        return Value(std::move(sections));
    };
    return command;
}

Command sectionOffCommand()
{
    Command command;
    command.name = kSectionOff;
    command.parameters = {numberParameter(Presence::Optional)};
    command.summary = "Takes a section away, or all of them.";
    command.help = "Without a number all sections go. The sections after one that goes move up.";
    command.example = "(view:section-off)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        ChangeView([&] {
            SeeingInside wanted = SeeingInside::Present();
            std::vector<ClipPlane>& planes = wanted.planes;
            const Value& number = arguments["number"];
            if (number.GetKind() == Value::Kind::Nil)
                planes.clear();
            else if (static_cast<std::size_t>(number.AsInteger()) > planes.size())
                throw WrongArgument(kSectionOff, "number", "a section that is there", number);
            else
                planes.erase(planes.begin() + (number.AsInteger() - 1));
            wanted.Apply();
        });
        return Value();
    };
    return command;
}

Command sectionCapsCommand()
{
    Command command;
    command.name = "view:section-caps";
    Parameter on;
    on.name = "on";
    on.type = ValueType::Bool;
    on.help = "whether to close them; left out, nothing changes";
    on.presence = Presence::Optional;
    command.parameters = {on};
    command.result = ValueType::Bool;
    command.resultHelp = "whether cuts are closed now";
    command.summary = "Chooses whether solids that a section cuts are closed.";
    command.help = "Without caps one looks into them.";
    command.example = "(view:section-caps #f)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        if (arguments.IsGiven("on"))
            ChangeView([&] {
                SeeingInside wanted = SeeingInside::Present();
                wanted.showsCaps = arguments["on"].AsBool();
                wanted.Apply();
            });
        return Value(CallGate::Call([] { return CurrentOptions().GetShowCaps(); }));
    };
    return command;
}

} // namespace

void RegisterSectionCommands(CommandTable& table)
{
    table.Register(sectionCommand());
    table.Register(sectionsCommand());
    table.Register(sectionOffCommand());
    table.Register(sectionCapsCommand());
}

} // namespace OrvikCommands
