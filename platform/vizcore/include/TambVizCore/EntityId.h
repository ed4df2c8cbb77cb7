#ifndef TAMBVIZCORE_ENTITYID_H
#define TAMBVIZCORE_ENTITYID_H

#include "TambVizCore/EntityType.h"
#include "TambVizCore/Export.h"
#include "TambVizCore/PartKind.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>

namespace TambVizCore {

/// Names a model entity independently of any view.
///
/// Three main parts say which entity it is (value, owner, type); the sub-entity says which face,
/// edge or vertex of it, by kind and index. A new id is empty. A plain value, compared and ordered
/// by value, owner, type, sub-entity kind, sub-entity index.
///
/// @thread Any thread, one at a time for one id.
class TAMBVIZCORE_API EntityId
{
public:
    EntityId() = default;

    /// @param value  the entity within its owner; 0 is reserved for "none".
    /// @param owner  the qualifier: the container, set or document that gives the value its
    /// meaning.
    EntityId(std::uint64_t value, std::uint64_t owner, EntityType type);

    /// Makes the id empty.
    void Clear();

    /// @return true when value, owner and type are all 0, whatever the sub-entity.
    bool IsEmpty() const;

    std::uint64_t Value() const { return m_value; }
    void SetValue(std::uint64_t value) { m_value = value; }

    /// The second 64-bit value.
    std::uint64_t Owner() const { return m_owner; }
    void SetOwner(std::uint64_t owner) { m_owner = owner; }

    EntityType Type() const { return m_type; }
    void SetType(EntityType type) { m_type = type; }

    /// @return PartKind::None when the id names the whole entity.
    PartKind SubEntityKind() const { return m_subEntityKind; }

    /// @return the zero-based index within its kind; -1 when the id names the whole entity.
    std::int32_t SubEntityIndex() const { return m_subEntityIndex; }

    /// Names one face, edge or vertex; PartKind::None or a negative index names the whole entity.
    void SetSubEntity(PartKind kind, std::int32_t index);

    bool IsFace() const { return m_subEntityKind == PartKind::Face; }
    bool IsEdge() const { return m_subEntityKind == PartKind::Edge; }
    bool IsVertex() const { return m_subEntityKind == PartKind::Vertex; }

    /// Makes the id name the whole entity: clears the sub-entity and sets its index to -1.
    void ReduceToBody();

    /// @return the enumerator with that number, EntityType::Unknown when there is none.
    static EntityType GetTypeFromInt(std::uint64_t number);

    /// @return "EntityId = 6 owner = 5 type = 10003", followed by " face = 3" (or edge, vertex)
    ///         when it names a sub-entity.
    std::string ToString() const;

    bool operator==(const EntityId& other) const = default;
    bool operator<(const EntityId& other) const;

private:
    std::uint64_t m_value = 0;
    std::uint64_t m_owner = 0;
    EntityType m_type = EntityType::Unknown;
    PartKind m_subEntityKind = PartKind::None;
    std::int32_t m_subEntityIndex = -1;
};

/// @return a word for messages and scripts: "body", "assembly", "view", ...; "unknown" otherwise.
TAMBVIZCORE_API const char* EntityTypeName(EntityType type);

} // namespace TambVizCore

/// For unordered containers.
template <> struct std::hash<TambVizCore::EntityId>
{
    TAMBVIZCORE_API std::size_t operator()(const TambVizCore::EntityId& id) const noexcept;
};

#endif
