#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"
#include "Selection.h"
#include "Wildcards.h"

#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/VizBox.h>

#include <array>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::IEntityProperties;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::VizBox;

using Entities = std::vector<EntityId>;

/// Decides whether an entity is looked for.
using Matches = std::function<bool(const IEntityProperties& content, const EntityId& entity)>;

/// @return every entity that matches, in the order of the model tree.
Entities find(Depth depth, const Matches& matches)
{
    const OrvikOs::FpMasked coordinatesAreData;
    Entities found;
    for (const IEntityProperties* const content : LoadedProperties())
        WalkEntities(*content, depth, [&](const EntityId& entity) {
            if (matches(*content, entity))
                found.push_back(entity);
        });
    return found;
}

Value selectFound(Depth depth, const Matches& matches)
{
    const Entities found = find(depth, matches);
    Select(found, Previous::Replace);
    return ToList(found);
}

/// What the commands that look for entities have in common.
Command findCommand(const std::string& word, const std::string& summary)
{
    Command command;
    command.name = "sel:by-" + word;
    command.result = ValueType::List;
    command.resultHelp = "the entities that are selected now, in the order of the model tree; the "
                         "empty list for none";
    command.summary = summary;
    command.help = "What was selected before is given up; (let ((before (sel:get))) ... (sel:add "
                   "before)) around the call keeps it.";
    command.effect = CommandEffect::Changes;
    return command;
}

bool isOfKind(const EntityId& entity, const std::string& kind)
{
    return kind.empty() || kind == EntityKind(entity);
}

Depth depthFor(const std::string& kind)
{
    return IsPartKind(kind) ? Depth::Parts : Depth::Bodies;
}

Command byNameCommand()
{
    Command command = findCommand("name", "Selects what has a name that fits a pattern.");
    Parameter pattern;
    pattern.name = "pattern";
    pattern.type = ValueType::String;
    pattern.help = "* stands for any text, ? for one character; upper and lower case differ";
    command.parameters = {
        pattern,
        KindParameter("only what is of this kind, such as body or face; when left out everything "
                      "but faces, edges and vertices")};
    command.example = "(sel:by-name \"bolt*\")";
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::wstring wanted = arguments["pattern"].AsString();
        const std::string kind = KindArgument(name, "kind", arguments["kind"]);
        return selectFound(depthFor(kind),
                           [&](const IEntityProperties& content, const EntityId& entity) {
                               std::wstring own;
                               return isOfKind(entity, kind) && content.GetName(entity, own) &&
                                      MatchesPattern(own, wanted);
                           });
    };
    return command;
}

Command byKindCommand()
{
    Command command = findCommand("kind", "Selects everything of one kind.");
    Parameter kind;
    kind.name = "kind";
    kind.type = ValueType::String;
    kind.help = "a word that entity:type gives: face, edge, vertex, body, mesh, assembly, ...";
    command.parameters = {kind};
    command.example = "(length (sel:by-kind \"body\"))";
    command.handler = [name = command.name](const Arguments& arguments) {
        const std::string wanted = KindArgument(name, "kind", arguments["kind"]);
        return selectFound(depthFor(wanted), [&](const IEntityProperties&, const EntityId& entity) {
            return isOfKind(entity, wanted);
        });
    };
    return command;
}

/// @param isEnclosed  The whole box must lie inside; otherwise it is enough that they touch.
bool isInBox(const VizBox& box, const std::array<double, 3>& low, const std::array<double, 3>& high,
             bool isEnclosed)
{
    for (std::size_t axis = 0; axis < 3; ++axis) {
        const double boxLow = box.Lo()[axis];
        const double boxHigh = box.Hi()[axis];
        const bool isInside = isEnclosed ? low[axis] <= boxLow && boxHigh <= high[axis]
                                         : low[axis] <= boxHigh && boxLow <= high[axis];
        if (!isInside)
            return false;
    }
    return true;
}

/// Puts the smaller numbers first.
void sortCorners(std::array<double, 3>& low, std::array<double, 3>& high)
{
    for (std::size_t axis = 0; axis < 3; ++axis)
        if (low[axis] > high[axis])
            std::swap(low[axis], high[axis]);
}

Value selectByBox(const std::string& name, const Arguments& arguments)
{
    const std::string how = arguments["how"].AsUtf8();
    if (how != "touching" && how != "enclosed")
        throw WrongArgument(name, "how", "touching or enclosed", arguments["how"]);
    const std::string kind = KindArgument(name, "kind", arguments["kind"]);
    std::array<double, 3> low = arguments["corner"].AsVector();
    std::array<double, 3> high = arguments["other-corner"].AsVector();
    sortCorners(low, high);
    return selectFound(depthFor(kind), [&](const IEntityProperties& content,
                                           const EntityId& entity) {
        VizBox box;
        const bool isCandidate = kind.empty() ? IsBodyType(entity) && entity.SubEntityIndex() < 0
                                              : isOfKind(entity, kind);
        return isCandidate && content.GetBox(entity, box) &&
               isInBox(box, low, high, how == "enclosed");
    });
}

Command byBoxCommand()
{
    Command command = findCommand("box", "Selects what lies in a box or touches it, in mm.");
    Parameter how;
    how.name = "how";
    how.type = ValueType::String;
    how.help = "touching: also what is only partly in the box; enclosed: only what is wholly in it";
    how.presence = Presence::Optional;
    how.defaultValue = Value(L"touching");
    command.parameters = {
        PointParameter("corner", "a corner of the box"),
        PointParameter("other-corner", "the opposite corner"), how,
        KindParameter("only what is of this kind, such as face; bodies of every kind when left "
                      "out")};
    command.help = "What counts of an entity is the box around it. " + command.help;
    command.example = "(sel:by-box '(0 0 0) '(10 10 10) 'enclosed)";
    command.handler = [name = command.name](const Arguments& arguments) {
        return selectByBox(name, arguments);
    };
    return command;
}

} // namespace

void RegisterSelectionFindCommands(CommandTable& table)
{
    table.Register(byNameCommand());
    table.Register(byKindCommand());
    table.Register(byBoxCommand());
}

} // namespace OrvikCommands
