#include "CommandParts.h"
#include "Commands.h"
#include "Explosion.h"
#include "SceneParts.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/IViewDoUndoStrategy.h>

namespace OrvikCommands {
namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

/// Farther apart nothing can be told apart in single precision.
constexpr double kLargestAmount = 10000.0;

Value explode(const Arguments& arguments)
{
    const double amount = arguments["amount"].AsReal();
    const Value& levels = arguments["levels"];
    bool isMoved = false;
    ChangeView([&] {
        Explosion explosion =
            Explode(CurrentView().GetSceneRoot(), amount,
                    levels.IsNil() ? kEveryLevel : static_cast<std::size_t>(levels.AsInteger()));
        isMoved = !explosion.moved.empty() &&
                  CurrentUndo().ApplyToAll(
                      explosion.moved,
                      TambVizCore::AttributeDisplacement(std::move(explosion.displacements)));
    });
    return Value(isMoved);
}

} // namespace

void RegisterExplodeCommand(CommandTable& table)
{
    Command command;
    command.name = "view:explode";
    Parameter amount = RealParameter("amount",
                                     "0 puts everything back; 1 moves what an assembly consists of "
                                     "as far again from its middle as it lies from it",
                                     "a share of the distance from the middle, 0 to 10000");
    amount.minimum = 0.0;
    amount.maximum = kLargestAmount;
    Parameter levels;
    levels.name = "levels";
    levels.type = ValueType::Integer;
    levels.help = "how many levels of assemblies come apart, from the outermost; all when left out";
    levels.presence = Presence::Optional;
    levels.minimum = 1.0;
    command.parameters = {amount, levels};
    command.result = ValueType::Bool;
    command.resultHelp = "#f when nothing moves";
    command.summary = "Shows assemblies taken apart.";
    command.help =
        "Picks, hover, boxes of the view, sections and highlighting follow what is shown. Measures "
        "of entities (measure:distance, entity:bounding-box, ...) stay those of the model. Files "
        "do not move away from each other. A second explosion replaces the first; view:undo takes "
        "it back.";
    command.example = "(view:explode 0.5)";
    command.effect = CommandEffect::Changes;
    command.handler = explode;
    table.Register(std::move(command));
}

} // namespace OrvikCommands
