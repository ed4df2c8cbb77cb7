#include "CommandParts.h"
#include "Commands.h"
#include "Dimensions.h"
#include "EntityParts.h"
#include "Thickness.h"

#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>

#include <array>
#include <cmath>
#include <numbers>
#include <optional>
#include <string>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::DistanceResult;
using OrvikCore::EntityMeasure;
using OrvikCore::IEntityProperties;
using OrvikCore::MeasureResult;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;

bool measureDistance(const EntityId& from, const EntityId& to, DistanceResult& result)
{
    const IEntityProperties* const first = FindProperties(from);
    const IEntityProperties* const second = FindProperties(to);
    if (first == nullptr || second == nullptr)
        return false;
    if (first == second)
        return first->MeasureDistance(from, to, result);
    std::vector<OrvikCore::PlacedShape> shapes;
    return second->GetShapes(to, shapes) && first->MeasureDistanceToShapes(from, shapes, result);
}

Command distanceCommand()
{
    Command command;
    command.name = "measure:distance";
    command.parameters = {EntityParameter("from", "a body, face, edge, vertex, ..."),
                          EntityParameter("to", "another; also of another file")};
    command.result = ValueType::Any;
    command.resultHelp = "a list: the distance in mm, the nearest point on the first and "
                         "that on the second (x, y and z in mm each), \"exact\" or "
                         "\"triangles\"; #f for what has no shape";
    command.summary = "Measures the least distance between two entities, in mm.";
    command.help = "Exact between solids, else from triangles, lines and points; the end of the "
                   "list says which. (car (measure:distance a b)) is the distance alone. "
                   "The picture shows it until measure:clear; measure:draw switches that off. "
                   "Measures are those of the model, also while it is shown exploded.";
    command.effect = CommandEffect::Changes;
    command.example = "(measure:distance (app:pick-face 0 0 100 0 0 -1 0.5) (app:pick-face 0 0 "
                      "-100 0 0 1 0.5))";
    command.handler = [name = command.name](const Arguments& arguments) {
        const OrvikOs::FpMasked coordinatesAreData;
        const EntityId& from = EntityArgument(name, "from", arguments["from"]);
        const EntityId& to = EntityArgument(name, "to", arguments["to"]);
        DistanceResult result;
        if (!measureDistance(from, to, result))
            return Value(false);
        LeaveDimension(LengthDimension(result.from, result.to, result.distance, result.exact),
                       {from, to});
        return Value(Value::List{Value(result.distance), ToPoint(result.from), ToPoint(result.to),
                                 ToHow(result.exact)});
    };
    return command;
}

std::optional<Bearing> bearingOf(const EntityId& entity)
{
    const IEntityProperties* const content = FindProperties(entity);
    MeasureResult result;
    Bearing bearing;
    if (content == nullptr)
        return std::nullopt;
    if (content->Measure(entity, EntityMeasure::Normal, result))
        bearing.isPlane = true;
    else if (!content->Measure(entity, EntityMeasure::Direction, result))
        return std::nullopt;
    std::copy_n(result.vector, 3, bearing.vector.begin());
    bearing.isExact = result.exact;
    // The middle of a round face does not lie on its axis.
    if (content->Measure(entity, EntityMeasure::Origin, result) ||
        content->Measure(entity, EntityMeasure::Center, result))
        std::copy_n(result.vector, 3, bearing.place.begin());
    return bearing;
}

/// The angle between two lines, two planes or a line and a plane, 0 to 90 degrees.
double angleBetween(const Bearing& a, const Bearing& b)
{
    const Triple& u = a.vector;
    const Triple& v = b.vector;
    const double along = std::fabs(u[0] * v[0] + u[1] * v[1] + u[2] * v[2]);
    const double across =
        std::hypot(u[1] * v[2] - u[2] * v[1], u[2] * v[0] - u[0] * v[2], u[0] * v[1] - u[1] * v[0]);
    // The arc tangent keeps its precision near 0 and 90 degrees, where sine or cosine lose theirs.
    const double degrees = std::atan2(across, along) * 180.0 / std::numbers::pi;
    return a.isPlane == b.isPlane ? degrees : 90.0 - degrees;
}

Command angleCommand()
{
    Command command;
    command.name = "measure:angle";
    command.parameters = {EntityParameter("first", "a planar or round face, or an edge"),
                          EntityParameter("second", "another")};
    command.result = ValueType::Any;
    command.resultHelp = "a list: the angle from 0 to 90 degrees, \"exact\" or \"triangles\"; #f "
                         "where one has no direction";
    command.summary = "Measures the angle between two faces or edges, in degrees.";
    command.help = "A planar face counts as its plane, a straight edge as its line, a round face "
                   "or edge as its axis: 0 is parallel, 90 perpendicular. (car (measure:angle a "
                   "b)) is the angle alone. "
                   "The picture shows it until measure:clear; measure:draw switches that off. "
                   "Measures are those of the model, also while it is shown exploded.";
    command.effect = CommandEffect::Changes;
    command.example = "(measure:angle (app:pick-face 0 0 100 0 0 -1 0.5) (app:pick-face 100 0 0 "
                      "-1 0 0 0.5))";
    command.handler = [name = command.name](const Arguments& arguments) {
        const OrvikOs::FpMasked coordinatesAreData;
        const EntityId& a = EntityArgument(name, "first", arguments["first"]);
        const EntityId& b = EntityArgument(name, "second", arguments["second"]);
        const auto first = bearingOf(a);
        const auto second = bearingOf(b);
        if (!first || !second)
            return Value(false);
        const double degrees = angleBetween(*first, *second);
        LeaveDimension(AngleDimension(*first, *second, degrees), {a, b});
        return Value(Value::List{Value(degrees), ToHow(first->isExact && second->isExact)});
    };
    return command;
}

Parameter alongParameter()
{
    Parameter parameter;
    parameter.name = "along";
    parameter.type = ValueType::String;
    parameter.help = "ray: along the ray itself; normal: from the point that the ray hits straight "
                     "inwards, against the normal of the face";
    parameter.presence = Presence::Optional;
    parameter.defaultValue = Value(L"ray");
    return parameter;
}

Value thickness(const Arguments& arguments)
{
    constexpr char kName[] = "measure:thickness";
    const OrvikOs::FpMasked coordinatesAreData;
    const std::array<double, 3> origin = arguments["origin"].AsVector();
    const std::array<double, 3> direction = arguments["direction"].AsVector();
    const std::string along = arguments["along"].AsUtf8();
    if (along != "ray" && along != "normal")
        throw WrongArgument(kName, "along", "ray or normal", arguments["along"]);
    if (std::hypot(direction[0], direction[1], direction[2]) == 0.0)
        throw WrongArgument(kName, "direction", "a direction that is not 0",
                            arguments["direction"]);
    const auto result = MeasureThickness(LoadedProperties(), origin, direction, along == "normal");
    if (!result)
        return Value(false);
    LeaveDimension(LengthDimension(result->entry, result->exit, result->thickness, result->isExact),
                   {result->body});
    return Value(Value::List{Value(result->thickness), ToPoint(result->entry),
                             ToPoint(result->exit), ToHow(result->isExact)});
}

Command thicknessCommand()
{
    Command command;
    command.name = "measure:thickness";
    Parameter direction;
    direction.name = "direction";
    direction.type = ValueType::Vector;
    direction.help = "where the ray goes; of any length";
    command.parameters = {PointParameter("origin", "where the ray begins, outside the body"),
                          direction, alongParameter()};
    command.result = ValueType::Any;
    command.resultHelp = "a list: the thickness in mm, the point where the material "
                         "begins and that where it ends (x, y and z in mm each), "
                         "\"exact\" or \"triangles\"; #f when nothing is hit";
    command.summary = "Measures how thick the material is behind a point, in mm.";
    command.help = "The first body that the ray enters counts, up to where it leaves that body "
                   "again. What is hidden or cut away by section planes does not count; where a "
                   "plane cuts a closed body, its material begins or ends there. The faces must "
                   "point outwards. "
                   "(car (measure:thickness origin direction)) is the thickness alone. "
                   "The picture shows it until measure:clear; measure:draw switches that off. "
                   "While assemblies are shown exploded, bodies are met where they are shown.";
    command.effect = CommandEffect::Changes;
    command.example = "(measure:thickness '(0 0 100) '(0 0 -1))";
    command.handler = thickness;
    return command;
}

} // namespace

void RegisterMeasureCommands(CommandTable& table)
{
    table.DescribeFamily("measure", "Measuring");
    table.Register(distanceCommand());
    table.Register(angleCommand());
    table.Register(thicknessCommand());
}

} // namespace OrvikCommands
