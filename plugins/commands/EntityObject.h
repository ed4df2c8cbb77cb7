#ifndef PLUGINCOMMANDS_ENTITYOBJECT_H
#define PLUGINCOMMANDS_ENTITYOBJECT_H

#include <TambCommandsInfra/ICommandObject.h>
#include <TambCommandsInfra/Value.h>
#include <TambVizCore/EntityId.h>

namespace OrvikCommands {

/// A picked entity, as scripts hold it.
class EntityObject final : public TambCommandsInfra::ICommandObject
{
public:
    explicit EntityObject(const TambVizCore::EntityId& id);

    const TambVizCore::EntityId& Id() const { return m_id; }

    /// @return "entity".
    const char* TypeName() const override;
    std::wstring Describe() const override;

    /// Equal ids name the same entity.
    bool IsSameAs(const ICommandObject& other) const override;

private:
    TambVizCore::EntityId m_id;
};

/// @return the value that scripts get for an entity.
TambCommandsInfra::Value ToValue(const TambVizCore::EntityId& id);

/// @return the id behind an argument of type entity.
/// @throws std::invalid_argument "This entity comes from elsewhere." for an object of another
///         maker.
const TambVizCore::EntityId& ToEntityId(const TambCommandsInfra::Value& value);

/// @return "face", "edge", "vertex", or the kind of the whole entity: "body", "mesh", ...
const char* EntityKind(const TambVizCore::EntityId& id);

} // namespace OrvikCommands

#endif
