#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambApplicationCoreServices.h>
#include <TambVizCore/PartKind.h>
#include <TambVizCore/Ray.h>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandHandler;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::PartKind;

using Print = void (ITambApplicationCoreServices::*)(const std::wstring& text);

Command printCommand(const std::string& name, const std::string& kind, Print print)
{
    Command command;
    command.name = name;
    Parameter parts;
    parts.name = "values";
    parts.type = ValueType::Any;
    parts.help = "what to print, joined without blanks";
    parts.presence = Presence::Variadic;
    command.parameters = {parts};
    command.summary = "Prints " + kind + " in the console.";
    command.help = "Strings are printed as they are, numbers in their shortest form.";
    command.example = "(" + name + " \"bodies: \" 3)";
    command.handler = [print](const Arguments& arguments) {
        const OrvikOs::FpMasked numbersAreData;
        std::wstring text;
        for (const Value& value : arguments.Rest())
            text += DisplayText(value);
        (ApplicationServices().*print)(text);
        return Value();
    };
    return command;
}

TambVizCore::Ray rayOf(const Arguments& arguments)
{
    float numbers[6];
    for (std::size_t i = 0; i < 6; ++i)
        numbers[i] = static_cast<float>(arguments[i].AsReal());
    return TambVizCore::Ray(numbers, numbers + 3, arguments[6].AsReal());
}

/// @param kind  None for whatever the ray hits first.
Value pick(const Arguments& arguments, PartKind kind)
{
    const OrvikOs::FpMasked coordinatesAreData;
    OrvikCore::Document& document = Session().Document();
    const TambVizCore::Ray ray = rayOf(arguments);
    TambVizCore::EntityId hit;
    const bool found =
        kind == PartKind::None ? document.RayPick(ray, hit) : document.RayPickKind(ray, kind, hit);
    return found ? ToValue(hit) : Value(false);
}

Command pickCommand(const std::string& word, PartKind kind, const std::string& summary)
{
    Command command;
    command.name = "app:pick-" + word;
    for (const char* axis : {"x", "y", "z"})
        command.parameters.push_back(RealParameter(
            std::string("origin-") + axis, std::string(axis) + " of the ray's origin", "mm"));
    for (const char* axis : {"x", "y", "z"})
        command.parameters.push_back(RealParameter(
            std::string("direction-") + axis, std::string(axis) + " of the ray's direction", ""));
    command.parameters.push_back(
        RealParameter("radius", "how far an edge or a vertex may be off", "mm"));
    command.parameters.back().minimum = 0.0;
    command.result = ValueType::Any;
    command.resultHelp = "the entity, or #f when nothing is hit";
    command.summary = summary;
    command.help = "The form in which a pick with the mouse is echoed.";
    command.help += kind == PartKind::None
                        ? " Like a pick with the mouse it passes over kinds that are not displayed."
                        : " Found also while they are not displayed.";
    command.example = "(" + command.name + " 0 0 100 0 0 -1 0.5)";
    command.handler = [kind](const Arguments& arguments) { return pick(arguments, kind); };
    return command;
}

} // namespace

void RegisterApplicationCommands(CommandTable& table)
{
    table.DescribeFamily("app", "Application");
    table.Register(
        printCommand("app:print", "a text", &ITambApplicationCoreServices::PrintMessage));
    table.Register(
        printCommand("app:warn", "a warning", &ITambApplicationCoreServices::PrintWarningMessage));
    table.Register(printCommand("app:error", "an error message",
                                &ITambApplicationCoreServices::PrintErrorMessage));
    table.Register(
        pickCommand("entity", PartKind::None, "Finds the entity that a ray hits first."));
    table.Register(pickCommand("face", PartKind::Face, "Finds the face that a ray hits first."));
    table.Register(pickCommand("edge", PartKind::Edge, "Finds the edge that a ray hits first."));
    table.Register(
        pickCommand("vertex", PartKind::Vertex, "Finds the vertex that a ray hits first."));
}

} // namespace OrvikCommands
