#ifndef PLUGINCOMMANDS_ENTITYOBJECT_H
#define PLUGINCOMMANDS_ENTITYOBJECT_H

#include <TambCommandsInfra/ICommandObject.h>
#include <TambCommandsInfra/Value.h>
#include <TambVizCore/EntityId.h>

#include <cstdint>

namespace OrvikCommands {

/// A picked entity, as scripts hold it, and the document that it was picked in.
class EntityObject final : public TambCommandsInfra::ICommandObject
{
public:
    /// An entity of what is loaded now.
    explicit EntityObject(const TambVizCore::EntityId& id);

    /// Tells whether the document that it was picked in has been closed since. A later document may
    /// use the same ids for something else.
    bool IsOfClosedDocument() const;

    const TambVizCore::EntityId& Id() const { return m_id; }

    /// @return "entity".
    const char* TypeName() const override;
    std::wstring Describe() const override;

    /// Equal ids of the same document name the same entity.
    bool IsSameAs(const ICommandObject& other) const override;

private:
    TambVizCore::EntityId m_id;
    std::uint64_t m_documentNumber; ///< Counts the documents that were closed before.
};

/// Says that everything that was loaded is closed. Any thread.
void CloseEntities();

/// @return the value that scripts get for an entity.
TambCommandsInfra::Value ToValue(const TambVizCore::EntityId& id);

/// @return the id behind an argument of type entity.
/// @throws std::invalid_argument "This entity comes from elsewhere." for an object of another
///         maker.
const TambVizCore::EntityId& ToEntityId(const TambCommandsInfra::Value& value);

/// @return true for an entity of a document that was closed; false for an object of another maker.
bool IsOfClosedDocument(const TambCommandsInfra::Value& value);

/// @return "face", "edge", "vertex", or the kind of the whole entity: "body", "mesh", ...
const char* EntityKind(const TambVizCore::EntityId& id);

} // namespace OrvikCommands

#endif
