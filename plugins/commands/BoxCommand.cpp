#include "CommandParts.h"
#include "Commands.h"
#include "InputParts.h"
#include "SceneParts.h"
#include "Selection.h"

#include <OrvikCore/IBoxPicker.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::IBoxPicker;
using OrvikCore::PickBox;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;

/// As the rubber band has it: to the right it encloses, to the left it touches.
bool isTouching(const std::string& command, const Arguments& arguments, const PickBox& box)
{
    const std::string how = arguments["how"].AsUtf8();
    if (how != "direction" && how != "touching" && how != "enclosed")
        throw WrongArgument(command, "how", "touching, enclosed or direction", arguments["how"]);
    return how == "touching" || (how == "direction" && box.x2 < box.x1);
}

/// Main thread.
std::vector<EntityId> findInView(const PickBox& box)
{
    auto* const picker = dynamic_cast<IBoxPicker*>(&CurrentView());
    if (picker == nullptr)
        throw std::runtime_error("The view cannot tell what lies in a rectangle.");
    return picker->FindInBox(box);
}

Value selectBox(const std::string& command, const Arguments& arguments)
{
    PickBox box;
    box.x1 = static_cast<int>(arguments["x-from"].AsInteger());
    box.y1 = static_cast<int>(arguments["y-from"].AsInteger());
    box.x2 = static_cast<int>(arguments["x-to"].AsInteger());
    box.y2 = static_cast<int>(arguments["y-to"].AsInteger());
    box.touching = isTouching(command, arguments, box);
    const std::vector<EntityId> found = CallGate::Call([&box] { return findInView(box); });
    Select(found, arguments["add"].AsBool() ? Previous::Keep : Previous::Replace);
    return ToList(found);
}

} // namespace

void RegisterBoxCommand(CommandTable& table)
{
    Command command;
    command.name = "sel:box";
    Parameter add = SwitchParameter("add", "#t keeps what was selected before; #f when left out");
    add.defaultValue = Value(false);
    command.parameters = {
        PixelParameter("x-from", "column of a corner, from the left"),
        PixelParameter("y-from", "row of that corner, from the top"),
        PixelParameter("x-to", "column of the opposite corner"),
        PixelParameter("y-to", "row of the opposite corner"),
        OptionalWord("how",
                     "enclosed: bodies that lie in the rectangle wholly; touching: also those of "
                     "which only something lies in it; direction: enclosed from left to right, "
                     "touching from right to left",
                     L"direction"),
        add};
    command.result = ValueType::List;
    command.resultHelp = "the bodies in the rectangle, in the order of the scene; the empty list "
                         "for none";
    command.summary = "Selects the bodies in a rectangle of the view, as the rubber band does.";
    command.help = "The rectangle lies in the view as it is now, whose size (view:size) tells. "
                   "Hidden things and what sections cut away are not found. sel:by-box takes a box "
                   "in the world instead.";
    command.example = "(sel:box 100 100 500 400 'touching)";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name](const Arguments& arguments) {
        return selectBox(name, arguments);
    };
    table.Register(command);
}

} // namespace OrvikCommands
