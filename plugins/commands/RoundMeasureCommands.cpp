#include "Commands.h"
#include "Dimensions.h"
#include "EntityParts.h"
#include "RoundPlace.h"

#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;

/// What both say of themselves.
constexpr char kHelp[] =
    " Exact on solids, from triangles and lines on meshes; the end of the list says which. A cone "
    "has no radius, but the circles that bound it have; of a torus it is the way from its axis to "
    "the middle of its tube. The picture shows it until measure:clear; measure:draw switches that "
    "off. Measures are those of the model, also while it is shown exploded.";

std::optional<RoundPlace> placeOf(const EntityId& entity)
{
    const OrvikCore::IEntityProperties* const content = FindProperties(entity);
    return content == nullptr ? std::nullopt : FindRoundPlace(*content, entity);
}

Value answer(double length, const Triple& from, const Triple& to, bool isExact)
{
    return Value(
        Value::List{Value(length), ToPoint(from.data()), ToPoint(to.data()), ToHow(isExact)});
}

Value radius(const Arguments& arguments)
{
    const OrvikOs::FpMasked coordinatesAreData;
    const EntityId& entity = EntityArgument("measure:radius", "entity", arguments["entity"]);
    const auto place = placeOf(entity);
    if (!place)
        return Value(false);
    const Triple end = place->At(1.0);
    LeaveDimension(RadiusDimension(place->center, end, place->radius, place->isExact), {entity});
    return answer(place->radius, place->center, end, place->isExact);
}

Value diameter(const Arguments& arguments)
{
    const OrvikOs::FpMasked coordinatesAreData;
    const EntityId& entity = EntityArgument("measure:diameter", "entity", arguments["entity"]);
    const auto place = placeOf(entity);
    if (!place)
        return Value(false);
    const Triple from = place->At(-1.0);
    const Triple to = place->At(1.0);
    LeaveDimension(DiameterDimension(from, to, 2.0 * place->radius, place->isExact), {entity});
    return answer(2.0 * place->radius, from, to, place->isExact);
}

Command roundCommand(const char* name, const char* summary, const char* help,
                     const char* resultHelp, Value (*handler)(const Arguments&))
{
    Command command;
    command.name = name;
    command.parameters = {EntityParameter("entity", "a round face or edge: of a cylinder, a "
                                                    "sphere, a torus or a circle")};
    command.result = ValueType::Any;
    command.resultHelp = resultHelp;
    command.summary = summary;
    command.help = std::string(help) + kHelp;
    command.effect = CommandEffect::Changes;
    command.example = "(" + command.name + " (app:pick-face 0 0 100 0 0 -1 0.5))";
    command.handler = handler;
    return command;
}

} // namespace

void RegisterRoundMeasureCommands(CommandTable& table)
{
    table.Register(roundCommand(
        "measure:radius", "Measures the radius of a round face or edge, in mm.",
        "(car (measure:radius entity)) is the radius alone.",
        "a list: the radius in mm, a point on the axis and one on what is round (x, y and "
        "z in mm each), \"exact\" or \"triangles\"; #f for what is not round",
        radius));
    table.Register(
        roundCommand("measure:diameter", "Measures the diameter of a round face or edge, in mm.",
                     "(car (measure:diameter entity)) is the diameter alone.",
                     "a list: the diameter in mm, two points that face each other (x, y and z in "
                     "mm each), \"exact\" or \"triangles\"; #f for what is not round",
                     diameter));
}

} // namespace OrvikCommands
