#include "EntityParts.h"

#include "CommandParts.h"
#include "EntityObject.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IEntityProperties.h>
#include <TambCommandsInfra/CancelToken.h>

#include <algorithm>
#include <string_view>
#include <utility>

namespace OrvikCommands {

using OrvikCore::IEntityProperties;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

namespace {

constexpr EntityType kTypes[] = {
    EntityType::Body,         EntityType::Mesh,
    EntityType::Assembly,     EntityType::AssemblyReference,
    EntityType::Wire,         EntityType::PointSet,
    EntityType::PointCloud,   EntityType::Annotation,
    EntityType::View,         EntityType::Capture,
    EntityType::NonGraphical, EntityType::PmiDimension,
    EntityType::PmiDatum,     EntityType::PmiGeometricTolerance,
    EntityType::PmiNote,      EntityType::PmiSurfaceFinish,
};

std::vector<std::string> kindWords()
{
    std::vector<std::string> words = {"face", "edge", "vertex"};
    for (const EntityType type : kTypes)
        words.emplace_back(TambVizCore::EntityTypeName(type));
    return words;
}

} // namespace

Parameter EntityParameter(std::string name, std::string help)
{
    Parameter parameter;
    parameter.name = std::move(name);
    parameter.type = ValueType::Entity;
    parameter.help = std::move(help);
    return parameter;
}

Parameter KindParameter(std::string help)
{
    Parameter parameter;
    parameter.name = "kind";
    parameter.type = ValueType::String;
    parameter.help = std::move(help);
    parameter.presence = Presence::Optional;
    return parameter;
}

const EntityId& EntityArgument(const std::string& command, const std::string& parameter,
                               const Value& value)
{
    if (IsOfClosedDocument(value))
        throw TambCommandsInfra::CommandError(
            command + ": parameter \"" + parameter +
            "\": expected an entity of what is loaded, got one of a document that was closed.");
    return ToEntityId(value);
}

void CollectEntities(const std::string& command, const Value& value,
                     std::vector<EntityId>& entities)
{
    const bool isMiss = value.GetKind() == Value::Kind::Bool && !value.AsBool();
    if (value.GetKind() == Value::Kind::List) {
        for (const Value& element : value.AsList())
            CollectEntities(command, element, entities);
    } else if (value.GetKind() == Value::Kind::Object &&
               std::string_view(value.AsObject()->TypeName()) == "entity") {
        entities.push_back(EntityArgument(command, "entities", value));
    } else if (!isMiss) {
        throw WrongArgument(command, "entities", "entities, lists of entities, or #f", value);
    }
}

std::string KindArgument(const std::string& command, const std::string& parameter,
                         const Value& value)
{
    if (value.IsNil())
        return {};
    const std::vector<std::string> words = kindWords();
    const std::string kind = value.AsUtf8();
    if (std::find(words.begin(), words.end(), kind) != words.end())
        return kind;
    std::string expected = "one of";
    for (const std::string& word : words)
        expected += (word == words.front() ? " " : ", ") + word;
    throw WrongArgument(command, parameter, expected, value);
}

bool IsPartKind(const std::string& kind)
{
    return kind == "face" || kind == "edge" || kind == "vertex";
}

bool IsBodyType(const EntityId& entity)
{
    switch (entity.Type()) {
    case EntityType::Body:
    case EntityType::Mesh:
    case EntityType::Wire:
    case EntityType::PointSet:
    case EntityType::PointCloud:
        return true;
    default:
        return false;
    }
}

bool HasPartsBelow(const EntityId& entity)
{
    const bool isPart = entity.SubEntityIndex() >= 0;
    return !isPart && (IsBodyType(entity) || entity.Type() == EntityType::Annotation);
}

std::vector<const IEntityProperties*> LoadedProperties()
{
    std::vector<const IEntityProperties*> loaded;
    for (OrvikCore::AContent* const content : Session().Document().GetContentList())
        if (const auto* const properties = dynamic_cast<const IEntityProperties*>(content))
            loaded.push_back(properties);
    return loaded;
}

const IEntityProperties* FindProperties(const EntityId& entity)
{
    for (const IEntityProperties* const properties : LoadedProperties()) {
        // Views and captures belong to the document, a file as a whole to nobody.
        EntityId parent;
        std::wstring name;
        if (properties->GetContentNumber() == entity.Owner() ||
            properties->GetParent(entity, parent) || properties->GetName(entity, name))
            return properties;
    }
    return nullptr;
}

void WalkEntities(const IEntityProperties& content, Depth depth,
                  const std::function<void(const EntityId& entity)>& visit)
{
    std::vector<EntityId> waiting;
    const auto enter = [&content, &waiting](const EntityId& entity) {
        std::vector<EntityId> children;
        if (content.GetChildren(entity, children))
            waiting.insert(waiting.end(), children.rbegin(), children.rend());
    };
    enter(EntityId());
    while (!waiting.empty()) {
        TambCommandsInfra::CancelToken::Instance().ThrowIfCancelled();
        const EntityId entity = waiting.back();
        waiting.pop_back();
        visit(entity);
        const bool isPart = entity.SubEntityIndex() >= 0;
        if (!isPart && (depth == Depth::Parts || !HasPartsBelow(entity)))
            enter(entity);
    }
}

Value ToPoint(const double* vector)
{
    return Value::FromVector({vector[0], vector[1], vector[2]});
}

Value ToHow(bool isExact)
{
    return Value(isExact ? L"exact" : L"triangles");
}

} // namespace OrvikCommands
