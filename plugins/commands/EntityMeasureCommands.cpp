#include "CommandParts.h"
#include "Commands.h"
#include "EntityParts.h"

#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <iterator>
#include <string>

namespace OrvikCommands {
namespace {

using OrvikCore::EntityMeasure;
using OrvikCore::IEntityProperties;
using OrvikCore::MeasureResult;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::Utils;

/// Which field of a MeasureResult holds the answer.
enum class Form
{
    Number,
    Triple,
    Word,
};

struct MeasureEntry
{
    const char* word; ///< In the commands' names: "area".
    EntityMeasure measure;
    Form form;
    const char* summary;
    const char* resultHelp;
};

constexpr MeasureEntry kMeasures[] = {
    {"area", EntityMeasure::Area, Form::Number,
     "Measures the area of a face, or of all faces of a body, in mm2.",
     "the area in mm2, or #f for what has no faces"},
    {"length", EntityMeasure::Length, Form::Number,
     "Measures the length of an edge, or of all edges of a wire, in mm.",
     "the length in mm, or #f for what has no length"},
    {"volume", EntityMeasure::Volume, Form::Number, "Measures the volume of a closed body, in mm3.",
     "the volume in mm3, or #f for what is not closed"},
    {"center", EntityMeasure::Center, Form::Triple,
     "Finds the centre of mass of a body, a face or an edge, or the place of a vertex, in mm.",
     "x, y and z in mm, or #f for what has none"},
    {"normal", EntityMeasure::Normal, Form::Triple,
     "Finds the normal of a planar face, a direction without unit.",
     "x, y and z of length 1, out of the body, or #f for what is not planar"},
    {"direction", EntityMeasure::Direction, Form::Triple,
     "Finds the direction of a straight edge, or of the axis of a round face or edge, without "
     "unit.",
     "x, y and z of length 1, or #f for what has no direction"},
    {"origin", EntityMeasure::Origin, Form::Triple,
     "Finds a point on the axis of a round face or edge, such as a circle's centre, in mm.",
     "x, y and z in mm, or #f for what is not round"},
    {"radius", EntityMeasure::Radius, Form::Number,
     "Measures the radius of a round face or edge, in mm.",
     "the radius in mm, or #f for what is not round"},
    {"surface", EntityMeasure::Surface, Form::Word, "Names the surface of a face.",
     "\"plane\", \"cylinder\", \"cone\", \"sphere\", \"torus\", \"freeform\", ..., or #f for what "
     "is no face"},
    {"curve", EntityMeasure::Curve, Form::Word, "Names the curve of an edge.",
     "\"line\", \"circle\", \"ellipse\", \"freeform\", \"polyline\", ..., or #f for what is no "
     "edge"},
};

Value toValue(const MeasureResult& result, Form form)
{
    switch (form) {
    case Form::Number:
        return Value(result.value);
    case Form::Triple:
        return ToPoint(result.vector);
    case Form::Word:
        return Value(Utils::StringToWstring(result.word));
    }
    return Value(false);
}

bool measure(const EntityId& entity, EntityMeasure what, MeasureResult& result)
{
    const OrvikOs::FpMasked coordinatesAreData;
    const IEntityProperties* const content = FindProperties(entity);
    return content != nullptr && content->Measure(entity, what, result);
}

Command measureCommand(const MeasureEntry& entry)
{
    Command command;
    command.name = std::string("entity:") + entry.word;
    command.parameters = {EntityParameter()};
    command.result = ValueType::Any;
    command.resultHelp = entry.resultHelp;
    command.summary = entry.summary;
    command.help = std::string("Exact for solids, from triangles and lines for meshes; (entity:"
                               "measure entity '") +
                   entry.word + ") says which.";
    command.example = "(" + command.name + " (app:pick-face 0 0 100 0 0 -1 0.5))";
    command.handler = [name = command.name, &entry](const Arguments& arguments) {
        MeasureResult result;
        return measure(EntityArgument(name, "entity", arguments["entity"]), entry.measure, result)
                   ? toValue(result, entry.form)
                   : Value(false);
    };
    return command;
}

Parameter whatParameter()
{
    Parameter parameter;
    parameter.name = "what";
    parameter.type = ValueType::String;
    parameter.help = "what to measure: area, length, volume, center, normal, direction, origin, "
                     "radius, surface or curve";
    return parameter;
}

const MeasureEntry& whatArgument(const std::string& command, const Value& value)
{
    const std::string word = value.AsUtf8();
    const auto found =
        std::find_if(std::begin(kMeasures), std::end(kMeasures),
                     [&word](const MeasureEntry& entry) { return word == entry.word; });
    if (found != std::end(kMeasures))
        return *found;
    std::string expected = "one of";
    for (const MeasureEntry& entry : kMeasures)
        expected += (&entry == kMeasures ? " " : ", ") + std::string(entry.word);
    throw WrongArgument(command, "what", expected, value);
}

Command measureWithHowCommand()
{
    Command command;
    command.name = "entity:measure";
    command.parameters = {EntityParameter(), whatParameter()};
    command.result = ValueType::Any;
    command.resultHelp = "a list: what the command of that name gives, in its unit, and how it is "
                         "known, \"exact\" or \"triangles\"; or #f";
    command.summary = "Measures an entity, in mm, and says how the answer is known.";
    command.help = "Solids are measured exactly, meshes by their triangles and lines. The number "
                   "alone is given by the command of that name: (entity:radius entity).";
    command.example = "(entity:measure (app:pick-face 0 0 100 0 0 -1 0.5) 'area)";
    command.handler = [name = command.name](const Arguments& arguments) {
        const EntityId& entity = EntityArgument(name, "entity", arguments["entity"]);
        const MeasureEntry& entry = whatArgument(name, arguments["what"]);
        MeasureResult result;
        if (!measure(entity, entry.measure, result))
            return Value(false);
        return Value(Value::List{toValue(result, entry.form), ToHow(result.exact)});
    };
    return command;
}

Command exactCommand()
{
    Command command;
    command.name = "entity:exact?";
    command.parameters = {EntityParameter(), whatParameter()};
    command.result = ValueType::Bool;
    command.resultHelp = "#t when it is measured exactly; #f when it is measured by triangles and "
                         "lines, or not at all";
    command.summary = "Tells whether an entity is measured exactly.";
    command.example = "(entity:exact? (app:pick-face 0 0 100 0 0 -1 0.5) 'area)";
    command.handler = [name = command.name](const Arguments& arguments) {
        const EntityId& entity = EntityArgument(name, "entity", arguments["entity"]);
        MeasureResult result;
        return Value(measure(entity, whatArgument(name, arguments["what"]).measure, result) &&
                     result.exact);
    };
    return command;
}

} // namespace

void RegisterEntityMeasureCommands(CommandTable& table)
{
    for (const MeasureEntry& entry : kMeasures)
        table.Register(measureCommand(entry));
    table.Register(measureWithHowCommand());
    table.Register(exactCommand());
}

} // namespace OrvikCommands
