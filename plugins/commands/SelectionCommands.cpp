#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"
#include "SceneParts.h"
#include "Selection.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/IEntityProperties.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/VizBox.h>

#include <string>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace OrvikCommands {

using OrvikCore::ASession;
using OrvikCore::IEntityProperties;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;

namespace {

using Entities = std::vector<EntityId>;

/// Tells whether something is drawn for an entity. What no content knows is left to the session.
bool isDrawn(const EntityId& entity)
{
    const IEntityProperties* const content = FindProperties(entity);
    TambVizCore::VizBox box;
    return content == nullptr || content->GetBox(entity, box);
}

Command getCommand()
{
    Command command;
    command.name = "sel:get";
    command.result = ValueType::List;
    command.resultHelp = "a list of entities in the order of selecting; the empty list for none";
    command.summary = "Lists what is selected.";
    command.example = "(sel:get)";
    command.handler = [](const Arguments&) {
        const Entities selected = CallGate::Call([] { return Session().GetPickedEntities(); });
        return ToList(selected);
    };
    return command;
}

Command clearCommand()
{
    Command command;
    command.name = "sel:clear";
    command.summary = "Selects nothing, and highlights nothing.";
    command.example = "(sel:clear)";
    command.effect = CommandEffect::Changes;
    command.handler = [](const Arguments&) {
        Select({}, Previous::Replace);
        return Value();
    };
    return command;
}

Command selectCommand(const std::string& word, Previous previous, const std::string& summary)
{
    Command command;
    command.name = "sel:" + word;
    command.parameters = {EntitiesParameter()};
    command.summary = summary;
    command.help = "What is selected is highlighted in the view and in the model tree.";
    command.example = "(" + command.name + " (app:pick-face 0 0 100 0 0 -1 0.5))";
    command.effect = CommandEffect::Changes;
    command.handler = [name = command.name, previous](const Arguments& arguments) {
        Select(EntitiesFrom(name, arguments), previous);
        return Value();
    };
    return command;
}

} // namespace

Value ToList(const std::vector<EntityId>& entities)
{
    Value::List list;
    for (const EntityId& entity : entities)
        list.push_back(ToValue(entity));
    return Value(std::move(list));
}

void Select(const std::vector<EntityId>& entities, Previous previous)
{
    ASession& session = Session();
    Entities selected;
    if (previous == Previous::Keep)
        selected = CallGate::Call([&session] { return session.GetPickedEntities(); });
    std::unordered_set<EntityId> present(selected.begin(), selected.end());
    for (const EntityId& entity : entities)
        if (present.insert(entity).second)
            selected.push_back(entity);
    // What a plain click has picked is highlighted only: it is selected now.
    Entities drawn = entities;
    std::erase_if(drawn, [](const EntityId& entity) { return !isDrawn(entity); });
    CallGate::Call([&] {
        if (previous == Previous::Replace)
            session.UnSelect();
        session.SetPickedEntities(selected);
        for (const EntityId& entity : drawn)
            session.Select(entity);
        session.UpdateDisplay();
    });
}

void RegisterSelectionCommands(CommandTable& table)
{
    table.DescribeFamily("sel", "Selection");
    table.Register(getCommand());
    table.Register(selectCommand("set", Previous::Replace, "Selects entities and nothing else."));
    table.Register(
        selectCommand("add", Previous::Keep, "Selects entities beside what is selected."));
    table.Register(clearCommand());
}

} // namespace OrvikCommands
