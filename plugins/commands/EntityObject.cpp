#include "EntityObject.h"

#include <TambVizCore/Utils.h>

#include <atomic>
#include <memory>
#include <stdexcept>

namespace OrvikCommands {

using TambCommandsInfra::Value;
using TambVizCore::EntityId;

namespace {

/// Written on the main thread, read on both.
std::atomic<std::uint64_t> closedDocuments = 0;

} // namespace

EntityObject::EntityObject(const EntityId& id)
    : m_id(id), m_documentNumber(closedDocuments.load(std::memory_order_acquire))
{
}

bool EntityObject::IsOfClosedDocument() const
{
    return m_documentNumber != closedDocuments.load(std::memory_order_acquire);
}

const char* EntityObject::TypeName() const
{
    return "entity";
}

std::wstring EntityObject::Describe() const
{
    std::string text = EntityKind(m_id);
    if (m_id.SubEntityIndex() >= 0)
        text += " " + std::to_string(m_id.SubEntityIndex()) + " of " +
                TambVizCore::EntityTypeName(m_id.Type());
    return TambVizCore::Utils::StringToWstring(text + " " + std::to_string(m_id.Value()));
}

bool EntityObject::IsSameAs(const ICommandObject& other) const
{
    const auto* const entity = dynamic_cast<const EntityObject*>(&other);
    return entity != nullptr && entity->m_id == m_id &&
           entity->m_documentNumber == m_documentNumber;
}

Value ToValue(const EntityId& id)
{
    return Value(Value::Object(std::make_shared<const EntityObject>(id)));
}

const EntityId& ToEntityId(const Value& value)
{
    const auto* const entity = dynamic_cast<const EntityObject*>(value.AsObject().get());
    if (entity == nullptr)
        throw std::invalid_argument("This entity comes from elsewhere.");
    return entity->Id();
}

void CloseEntities()
{
    closedDocuments.fetch_add(1, std::memory_order_acq_rel);
}

bool IsOfClosedDocument(const Value& value)
{
    const auto* const entity = dynamic_cast<const EntityObject*>(value.AsObject().get());
    return entity != nullptr && entity->IsOfClosedDocument();
}

const char* EntityKind(const EntityId& id)
{
    if (id.IsFace())
        return "face";
    if (id.IsEdge())
        return "edge";
    if (id.IsVertex())
        return "vertex";
    return TambVizCore::EntityTypeName(id.Type());
}

} // namespace OrvikCommands
