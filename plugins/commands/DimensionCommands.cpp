#include "CommandParts.h"
#include "Commands.h"
#include "Dimensions.h"
#include "SceneParts.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/IView3D.h>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;

Command drawCommand()
{
    Command command;
    command.name = "measure:draw";
    command.parameters = {SwitchParameter("on", "#t when left out")};
    command.result = TambCommandsInfra::ValueType::Bool;
    command.resultHelp = "whether they did before";
    command.summary = "Chooses whether measures leave dimensions in the picture.";
    command.help = "They do at first: a distance or a thickness as a line with its length, a "
                   "radius or a diameter likewise with R or the diameter sign before it, in "
                   "millimetres where it is exact, an angle as an arc with degrees. The newest 100 "
                   "stay. Those that are there stay when it is switched off.";
    command.example = "(measure:draw #f)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const bool before = LeavesDimensions();
        SetLeavesDimensions(arguments["on"].AsBool());
        return Value(before);
    };
    return command;
}

Command clearCommand()
{
    Command command;
    command.name = "measure:clear";
    command.summary = "Removes the dimensions that measures have left in the picture.";
    command.help = "view:clear-drawing removes them too, with what else was drawn. A dimension "
                   "goes with what it measures.";
    command.example = "(measure:clear)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) {
        ChangeView([] {
            if (auto* const drawer = dynamic_cast<OrvikCore::IDimensionDrawer*>(&CurrentView()))
                drawer->ClearDimensions();
        });
        return Value();
    };
    return command;
}

} // namespace

void RegisterDimensionCommands(CommandTable& table)
{
    table.Register(drawCommand());
    table.Register(clearCommand());
}

} // namespace OrvikCommands
