#include "CommandParts.h"
#include "Commands.h"

#include <OrvikCore/ASession.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ITambViewServices.h>

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

/// Sets the parameters and draws what is loaded with them.
/// @return false when nothing is loaded.
bool tessellate(double sag, double maxAngle)
{
    if (!ViewServices().SetTessellationParameters(sag, /*step=*/0, maxAngle))
        return false;
    OrvikCore::ASession& session = Session();
    CallGate::Call([&session] {
        session.UpdateAfterContentModified();
        session.UpdateDisplay();
    });
    return true;
}

Command tessellationCommand()
{
    Command command;
    command.name = "view:tessellation";
    command.parameters = {
        RealParameter("sag", "greatest distance of a chord from its curve; 0 for the default",
                      "mm"),
        RealParameter("max-angle",
                      "greatest angle between neighbouring chords; 0, or left out, for the default",
                      "degrees")};
    for (Parameter& parameter : command.parameters) {
        parameter.presence = Presence::Optional;
        parameter.minimum = 0.0;
    }
    command.result = ValueType::Any;
    command.resultHelp = "sag and step in mm and the greatest angle in degrees, as they "
                         "were set last, or #f when nothing is loaded";
    command.summary = "Sets how finely curved faces are drawn, by a sag in mm and an "
                      "angle in degrees, or tells it.";
    command.help = "What is loaded is drawn anew with them at once; without arguments nothing is "
                   "changed. The default follows the size of the model.";
    command.example = "(view:tessellation 0.05 15)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& arguments) {
        const double newAngle =
            arguments.IsGiven("max-angle") ? arguments["max-angle"].AsReal() : 0.0;
        if (arguments.IsGiven("sag") && !tessellate(arguments["sag"].AsReal(), newAngle))
            return Value(false);
        double sag = 0;
        double step = 0;
        double maxAngle = 0;
        if (!ViewServices().GetTessellationParameters(sag, step, maxAngle))
            return Value(false);
        return Value(Value::List{Value(sag), Value(step), Value(maxAngle)});
    };
    return command;
}

Command setTessellationCommand()
{
    Command command;
    command.name = "view:set-tessellation!";
    command.parameters = {
        RealParameter("sag", "greatest distance of a chord from its curve", "mm"),
        RealParameter("step", "greatest length of a chord", "mm"),
        RealParameter("max-angle", "greatest angle between neighbouring chords", "degrees")};
    command.result = ValueType::Bool;
    command.resultHelp = "#f when nothing is loaded; nothing is set then";
    command.summary = "Sets how finely curved faces are drawn.";
    command.help = "0 or less asks for the default. What is loaded later is drawn so; "
                   "view:tessellation also draws anew what is loaded.";
    command.example = "(view:set-tessellation! 0.1 0 15)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments& a) {
        return Value(ViewServices().SetTessellationParameters(a["sag"].AsReal(), a["step"].AsReal(),
                                                              a["max-angle"].AsReal()));
    };
    return command;
}

} // namespace

void RegisterTessellationCommands(CommandTable& table)
{
    table.Register(tessellationCommand());
    table.Register(setTessellationCommand());
}

} // namespace OrvikCommands
