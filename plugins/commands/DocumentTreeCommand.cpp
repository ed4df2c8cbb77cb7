#include "CommandParts.h"
#include "Commands.h"
#include "EntityObject.h"
#include "EntityParts.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IEntityProperties.h>
#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>
#include <TambVizCore/Utils.h>

#include <string>
#include <utility>
#include <vector>

namespace OrvikCommands {
namespace {

using OrvikCore::AContent;
using OrvikCore::IEntityProperties;
using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;

Value row(const std::wstring& kind, const std::wstring& name, Value entity, Value::List below)
{
    return Value(Value::List{Value(kind), Value(name), std::move(entity), Value(std::move(below))});
}

/// @return the rows below an entity; those of the content itself for an empty one.
Value::List rowsBelow(const IEntityProperties& content, const EntityId& entity, Depth depth)
{
    TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
    Value::List rows;
    const bool isLeaf =
        entity.SubEntityIndex() >= 0 || (depth == Depth::Bodies && HasPartsBelow(entity));
    std::vector<EntityId> children;
    if (isLeaf || !content.GetChildren(entity, children))
        return rows;
    for (const EntityId& child : children) {
        std::wstring name;
        content.GetName(child, name);
        rows.push_back(row(TambVizCore::Utils::StringToWstring(EntityKind(child)), name,
                           ToValue(child), rowsBelow(content, child, depth)));
    }
    return rows;
}

/// The entity of a content is above all others of it.
Value entityOfContent(const IEntityProperties& content)
{
    std::vector<EntityId> top;
    EntityId entity;
    const bool isFound = content.GetChildren(EntityId(), top) && !top.empty() &&
                         content.GetParent(top.front(), entity);
    return isFound ? ToValue(entity) : Value(false);
}

Value::List contentRows(Depth depth)
{
    const OrvikOs::FpMasked coordinatesAreData;
    Value::List rows;
    for (AContent* const content : Session().Document().GetContentList()) {
        if (content == nullptr)
            continue;
        const auto* const properties = dynamic_cast<const IEntityProperties*>(content);
        rows.push_back(
            row(L"container", content->GetShortId(),
                properties == nullptr ? Value(false) : entityOfContent(*properties),
                properties == nullptr ? Value::List() : rowsBelow(*properties, EntityId(), depth)));
    }
    return rows;
}

} // namespace

void RegisterDocumentTreeCommand(CommandTable& table)
{
    Command command;
    command.name = "doc:tree";
    Parameter parts;
    parts.name = "parts";
    parts.type = ValueType::Bool;
    parts.help = "#t also lists faces, edges and vertices";
    parts.presence = Presence::Optional;
    parts.defaultValue = Value(false);
    command.parameters = {parts};
    command.result = ValueType::List;
    command.resultHelp = "for each loaded file a list of four: kind, name, entity, and the list of "
                         "what is below, in the same form";
    command.summary = "Lists what is loaded as a tree.";
    command.help = "Kinds are those of entity:type. The entity is #f for a file that says nothing "
                   "of its structure. pellux-batch --tree prints the rows of the model tree.";
    command.example = "(for-each (lambda (file) (app:print (cadr file))) (doc:tree))";
    command.handler = [](const Arguments& arguments) {
        return Value(contentRows(arguments["parts"].AsBool() ? Depth::Parts : Depth::Bodies));
    };
    table.Register(command);
}

} // namespace OrvikCommands
