#include "CommandParts.h"
#include "Commands.h"
#include "Explosion.h"
#include "SceneParts.h"

#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/IViewDoUndoStrategy.h>
#include <TambVizCore/Node.h>

#include <algorithm>
#include <cmath>

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

/// How far a scene is taken apart: what nodes are away by, in terms of what 1 would move them.
double presentAmount()
{
    TambVizCore::Node& root = CurrentView().GetSceneRoot();
    double amount = 0.0;
    // No amount is negative, so every node that would move is listed.
    for (const auto& [id, back] : Explode(root, -1.0, kEveryLevel).displacements) {
        const TambVizCore::Node* const node = TambVizCore::FindRenderId(root, id).node;
        double along = 0.0;
        double square = 0.0;
        for (std::size_t i = 0; i < 3; ++i) {
            along -= back[i] * node->Displacement()[i];
            square += back[i] * back[i];
        }
        if (square > 0.0)
            amount = std::max(amount, along / square);
    }
    // The displacements have rounded the last digits.
    return std::round(amount * 1e9) / 1e9;
}

Command explosionCommand()
{
    Command command;
    command.name = "view:explosion";
    command.result = ValueType::Real;
    command.resultHelp = "the amount that view:explode was given last, as far as it still shows";
    command.summary = "Tells how far assemblies are taken apart.";
    command.example = "(view:explosion)";
    command.handler = [](const Arguments&) {
        return Value(TambCommandsInfra::CallGate::Call([] { return presentAmount(); }));
    };
    return command;
}

} // namespace

void RegisterExplodeCommand(CommandTable& table)
{
    Command command;
    command.name = "view:explode";
    Parameter amount = RealParameter("amount",
                                     "0 puts everything back; 1 moves what an assembly consists of "
                                     "as far again from its middle as it lies from it",
                                     "shares of the distance from the middle");
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
        "of entities (measure:distance, entity:box, ...) stay those of the model. Files "
        "do not move away from each other. A second explosion replaces the first; view:undo takes "
        "it back.";
    command.example = "(view:explode 0.5)";
    command.effect = CommandEffect::Changes;
    command.handler = explode;
    table.Register(std::move(command));
    table.Register(explosionCommand());
}

} // namespace OrvikCommands
