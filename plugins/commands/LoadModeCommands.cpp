#include "Commands.h"

#include <OrvikCore/LoadModes.h>
#include <TambCommandsInfra/CommandTable.h>

#include <string>

namespace OrvikCommands {
namespace {

using OrvikCore::LoadModes;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

/// One of the two settings that all loaders share.
struct ForcedMode
{
    const char* name; ///< In the commands' names.
    const char* title;
    const char* what; ///< What is loaded while it is on.
    const char* help;
    bool (*get)();
    void (*set)(bool);
};

constexpr ForcedMode kModes[] = {
    {"ForceGraphicalMode", "'Force Graphical Mode'",
     "CAD files as triangles, edges and points alone",
     "Exact surfaces are not kept: less memory is needed, measures come from the triangles, and "
     "the model is not written as a CAD file. Meshes are loaded as ever.",
     &LoadModes::GetForceGraphical, &LoadModes::SetForceGraphical},
    {"ForceProductStructureMode", "'Force ProductStructure Mode'", "only the structure of files",
     "Assemblies, references, names, colours and layers are there, bodies have nothing to draw or "
     "to measure. Formats without such a structure are not loaded: only STEP files are. With "
     "'Force Graphical Mode' on as well this one holds.",
     &LoadModes::GetForceProductStructure, &LoadModes::SetForceProductStructure},
};

Command getCommand(const ForcedMode& mode)
{
    Command command;
    command.name = std::string("WEND.get") + mode.name;
    command.result = ValueType::Bool;
    command.resultHelp = "#t while the setting is on";
    command.summary = std::string("Tells whether ") + mode.title + " loads " + mode.what + ".";
    command.help = mode.help;
    command.example = "(" + command.name + ")";
    command.handler = [get = mode.get](const Arguments&) { return Value(get()); };
    return command;
}

Command setCommand(const ForcedMode& mode)
{
    Command command;
    command.name = std::string("WEND.set") + mode.name;
    Parameter force;
    force.name = "force";
    force.type = ValueType::Bool;
    force.help = "#t for on, #f for off, which it is at the start";
    command.parameters = {force};
    command.summary = std::string("Sets ") + mode.title + ", which loads " + mode.what + ".";
    command.help = std::string(mode.help) + " What is loaded already stays as it is.";
    command.example = "(" + command.name + " #t)";
    command.effect = CommandEffect::Changes;
    command.handler = [set = mode.set](const Arguments& arguments) {
        set(arguments["force"].AsBool());
        return Value();
    };
    return command;
}

} // namespace

void RegisterLoadModeCommands(CommandTable& table)
{
    table.DescribeFamily("WEND", "What loaders make of files");
    for (const ForcedMode& mode : kModes) {
        table.Register(getCommand(mode));
        table.Register(setCommand(mode));
    }
}

} // namespace OrvikCommands
