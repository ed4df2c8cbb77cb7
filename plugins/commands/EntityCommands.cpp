#include "Commands.h"
#include "EntityObject.h"

#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

namespace OrvikCommands {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

void RegisterEntityCommands(TambCommandsInfra::CommandTable& table)
{
    table.DescribeFamily("entity", "Entities");
    Command type;
    type.name = "entity:type";
    Parameter entity;
    entity.name = "entity";
    entity.type = ValueType::Entity;
    entity.help = "what a pick gave";
    type.parameters = {entity};
    type.result = ValueType::String;
    type.resultHelp = "\"face\", \"edge\", \"vertex\", \"mesh\", \"body\", ...";
    type.summary = "Names the kind of an entity.";
    type.example = "(entity:type (app:pick-face 0 0 100 0 0 -1 0.5))";
    type.handler = [](const Arguments& arguments) {
        return Value(
            TambVizCore::Utils::StringToWstring(EntityKind(ToEntityId(arguments["entity"]))));
    };
    table.Register(type);
}

} // namespace OrvikCommands
