#include "TambVizCore/EntityId.h"

#include <tuple>

namespace TambVizCore {

namespace {

struct TypeName
{
    EntityType type;
    const char* name;
};

constexpr TypeName kTypeNames[] = {
    {EntityType::Assembly, "assembly"},
    {EntityType::AssemblyReference, "assembly-reference"},
    {EntityType::Body, "body"},
    {EntityType::Mesh, "mesh"},
    {EntityType::AnnotationSet, "annotation-set"},
    {EntityType::PointCloud, "point-cloud"},
    {EntityType::NonGraphical, "non-graphical"},
    {EntityType::Wire, "wire"},
    {EntityType::PointSet, "point-set"},
    {EntityType::View, "view"},
    {EntityType::Annotation, "annotation"},
    {EntityType::Capture, "capture"},
    {EntityType::PmiDimension, "dimension"},
    {EntityType::PmiGeometricTolerance, "geometric-tolerance"},
    {EntityType::PmiDatum, "datum"},
    {EntityType::PmiNote, "note"},
    {EntityType::PmiSurfaceFinish, "surface-finish"},
    {EntityType::Container, "container"},
};

const char* kindName(PartKind kind)
{
    switch (kind) {
    case PartKind::Face:
        return "face";
    case PartKind::Edge:
        return "edge";
    case PartKind::Vertex:
        return "vertex";
    case PartKind::None:
        break;
    }
    return "";
}

std::size_t mix(std::size_t seed, std::uint64_t value)
{
    // The finalizer of splitmix64: neighbouring ids end far apart.
    std::uint64_t x = seed + 0x9E3779B97F4A7C15u + value;
    x = (x ^ (x >> 30)) * 0xBF58476D1CE4E5B9u;
    x = (x ^ (x >> 27)) * 0x94D049BB133111EBu;
    return static_cast<std::size_t>(x ^ (x >> 31));
}

} // namespace

EntityId::EntityId(std::uint64_t value, std::uint64_t owner, EntityType type)
    : m_value(value), m_owner(owner), m_type(type)
{
}

void EntityId::Clear()
{
    *this = EntityId();
}

bool EntityId::IsEmpty() const
{
    return m_value == 0 && m_owner == 0 && m_type == EntityType::Unknown;
}

void EntityId::SetSubEntity(PartKind kind, std::int32_t index)
{
    if (kind == PartKind::None || index < 0) {
        ReduceToBody();
        return;
    }
    m_subEntityKind = kind;
    m_subEntityIndex = index;
}

void EntityId::ReduceToBody()
{
    m_subEntityKind = PartKind::None;
    m_subEntityIndex = -1;
}

EntityType EntityId::GetTypeFromInt(std::uint64_t number)
{
    for (const TypeName& entry : kTypeNames) {
        if (static_cast<std::uint64_t>(entry.type) == number) {
            return entry.type;
        }
    }
    return EntityType::Unknown;
}

std::string EntityId::ToString() const
{
    std::string text = "EntityId = " + std::to_string(m_value) +
                       " owner = " + std::to_string(m_owner) +
                       " type = " + std::to_string(static_cast<std::uint32_t>(m_type));
    if (m_subEntityKind != PartKind::None) {
        text +=
            std::string(" ") + kindName(m_subEntityKind) + " = " + std::to_string(m_subEntityIndex);
    }
    return text;
}

bool EntityId::operator<(const EntityId& other) const
{
    return std::tie(m_value, m_owner, m_type, m_subEntityKind, m_subEntityIndex) <
           std::tie(other.m_value, other.m_owner, other.m_type, other.m_subEntityKind,
                    other.m_subEntityIndex);
}

const char* EntityTypeName(EntityType type)
{
    for (const TypeName& entry : kTypeNames) {
        if (entry.type == type) {
            return entry.name;
        }
    }
    return "unknown";
}

} // namespace TambVizCore

std::size_t
std::hash<TambVizCore::EntityId>::operator()(const TambVizCore::EntityId& id) const noexcept
{
    std::size_t seed = TambVizCore::mix(0, id.Value());
    seed = TambVizCore::mix(seed, id.Owner());
    seed = TambVizCore::mix(seed, static_cast<std::uint64_t>(id.Type()));
    seed = TambVizCore::mix(seed, static_cast<std::uint64_t>(id.SubEntityKind()));
    return TambVizCore::mix(seed, static_cast<std::uint64_t>(id.SubEntityIndex()));
}
