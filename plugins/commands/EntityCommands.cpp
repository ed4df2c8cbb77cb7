#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"

#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/RGBAColor.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizBox.h>

#include <functional>
#include <utility>

namespace OrvikCommands {
namespace {

using OrvikCore::IEntityProperties;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;

/// Answers from what the entity's content knows; called only when a content knows the entity.
using Answer = std::function<Value(const IEntityProperties& content, const EntityId& entity)>;

/// A command that takes one entity.
/// @param missing  The answer when nothing that is loaded knows the entity.
Command entityCommand(const std::string& word, const Value& missing, Answer answer)
{
    Command command;
    command.name = "entity:" + word;
    command.parameters = {EntityParameter()};
    command.result = ValueType::Any;
    command.example = "(" + command.name + " (app:pick-face 0 0 100 0 0 -1 0.5))";
    command.handler = [name = command.name, missing,
                       answer = std::move(answer)](const Arguments& arguments) {
        const OrvikOs::FpMasked coordinatesAreData;
        const EntityId& entity = EntityArgument(name, "entity", arguments["entity"]);
        const IEntityProperties* const content = FindProperties(entity);
        return content == nullptr ? missing : answer(*content, entity);
    };
    return command;
}

Command typeCommand()
{
    Command command = entityCommand("type", Value(false), nullptr);
    command.result = ValueType::String;
    command.resultHelp = "\"face\", \"edge\", \"vertex\", \"mesh\", \"body\", ...";
    command.summary = "Names the kind of an entity.";
    command.handler = [name = command.name](const Arguments& arguments) {
        return Value(TambVizCore::Utils::StringToWstring(
            EntityKind(EntityArgument(name, "entity", arguments["entity"]))));
    };
    return command;
}

Command nameCommand()
{
    Command command = entityCommand(
        "name", Value(false), [](const IEntityProperties& content, const EntityId& entity) {
            std::wstring name;
            return content.GetName(entity, name) ? Value(std::move(name)) : Value(false);
        });
    command.resultHelp = "a string, or #f: most faces, edges and vertices have no name";
    command.summary = "Tells the name of an entity.";
    return command;
}

Command colorCommand()
{
    Command command = entityCommand(
        "color", Value(false), [](const IEntityProperties& content, const EntityId& entity) {
            TambVizCore::RGBAColor color;
            if (!content.GetColor(entity, color))
                return Value(false);
            return Value(Value::List{Value(int{color.r}), Value(int{color.g}), Value(int{color.b}),
                                     Value(int{color.a})});
        });
    command.resultHelp = "red, green, blue and opacity from 0 to 255, or #f where the default "
                         "colours of the view hold";
    command.summary = "Tells the colour in which an entity is drawn, from 0 to 255.";
    return command;
}

Command layerCommand()
{
    Command command = entityCommand("layer", Value(Value::List{}),
                                    [](const IEntityProperties& content, const EntityId& entity) {
                                        std::vector<std::wstring> layers;
                                        Value::List names;
                                        if (content.GetLayers(entity, layers))
                                            names.assign(layers.begin(), layers.end());
                                        return Value(std::move(names));
                                    });
    command.result = ValueType::List;
    command.resultHelp = "the names of the layers, sorted; the empty list for none";
    command.summary = "Lists the layers that an entity, or something above it, is on.";
    return command;
}

Command bodyCommand()
{
    Command command =
        entityCommand("body", Value(false), [](const IEntityProperties&, const EntityId& entity) {
            EntityId body = entity;
            body.ReduceToBody();
            return IsBodyType(body) ? ToValue(body) : Value(false);
        });
    command.resultHelp = "the body, mesh, wire or point set; a body gives itself; #f for what is "
                         "above bodies";
    command.summary = "Finds the body that a face, an edge or a vertex belongs to.";
    return command;
}

Command parentCommand()
{
    Command command = entityCommand(
        "parent", Value(false), [](const IEntityProperties& content, const EntityId& entity) {
            EntityId parent;
            return content.GetParent(entity, parent) ? ToValue(parent) : Value(false);
        });
    command.resultHelp = "the body of a face, the reference of a body, the assembly of a "
                         "reference, ..., at last the file; #f above that";
    command.summary = "Finds what is directly above an entity in the model tree.";
    return command;
}

Command childrenCommand()
{
    Command command = entityCommand("children", Value(Value::List{}),
                                    [](const IEntityProperties& content, const EntityId& entity) {
                                        std::vector<EntityId> children;
                                        Value::List list;
                                        if (content.GetChildren(entity, children))
                                            for (const EntityId& child : children)
                                                list.push_back(ToValue(child));
                                        return Value(std::move(list));
                                    });
    command.result = ValueType::List;
    command.resultHelp = "a list of entities: of a body its faces, then its edges, then its "
                         "vertices; the empty list for none";
    command.summary = "Lists what is directly below an entity in the model tree.";
    command.example = "(length (entity:children (entity:body (app:pick-face 0 0 100 0 0 -1 0.5))))";
    return command;
}

Command boxCommand()
{
    Command command = entityCommand("box", Value(false),
                                    [](const IEntityProperties& content, const EntityId& entity) {
                                        TambVizCore::VizBox box;
                                        if (!content.GetBox(entity, box))
                                            return Value(false);
                                        Value::List corners(box.Lo(), box.Lo() + 3);
                                        corners.insert(corners.end(), box.Hi(), box.Hi() + 3);
                                        return Value(std::move(corners));
                                    });
    command.resultHelp = "x-min y-min z-min x-max y-max z-max in mm, or #f for what has "
                         "no extent";
    command.summary = "Measures the box around an entity, in mm.";
    command.help = "The box is that of the triangles, lines and points that are drawn.";
    return command;
}

} // namespace

void RegisterEntityCommands(CommandTable& table)
{
    table.DescribeFamily("entity", "Entities");
    table.Register(typeCommand());
    table.Register(nameCommand());
    table.Register(colorCommand());
    table.Register(layerCommand());
    table.Register(bodyCommand());
    table.Register(parentCommand());
    table.Register(childrenCommand());
    table.Register(boxCommand());
}

} // namespace OrvikCommands
