#include "gltf/GltfMeshes.h"

#include "gltf/GltfMaterial.h"
#include "gltf/GltfPrimitive.h"
#include "gltf/GltfTexts.h"

#include <utility>

namespace OrvikMesh {

using OrvikModel::ModelShape;

namespace {

/// @return the number of an accessor; -1 for none, -2 for something else.
std::int64_t keyOf(const JsonValue* value)
{
    if (!value)
        return -1;
    const auto number = ToWhole(*value);
    return number ? static_cast<std::int64_t>(*number) : -2;
}

} // namespace

GltfMeshes::GltfMeshes(GltfFile& file, const ShapeMaker& make, WarningLimit& warnings)
    : m_file(file), m_make(make), m_warnings(warnings)
{
}

std::wstring GltfMeshes::Name(std::uint64_t mesh) const
{
    const JsonValue* element = m_file.Element(GltfList::Meshes, mesh);
    return element ? WideTextOf(FindMember(*element, "name")) : std::wstring();
}

std::wstring GltfMeshes::placed(std::uint64_t mesh, std::uint64_t number,
                                const std::wstring& reason) const
{
    const std::wstring name = Name(mesh);
    return FillText(kGltfPrimitive,
                    {std::to_wstring(mesh), name.empty() ? L"" : L" \"" + ShortName(name) + L"\"",
                     std::to_wstring(number), reason});
}

const std::vector<MeshPiece>& GltfMeshes::Pieces(std::uint64_t mesh)
{
    const auto [entry, isNew] = m_meshes.try_emplace(mesh);
    if (isNew)
        readMesh(mesh, entry->second);
    return entry->second;
}

void GltfMeshes::readMesh(std::uint64_t mesh, std::vector<MeshPiece>& pieces)
{
    const JsonValue* element = m_file.Element(GltfList::Meshes, mesh);
    const JsonValue* primitives = element ? FindList(*element, "primitives") : nullptr;
    if (!primitives)
        return;
    std::uint64_t number = 0;
    for (const JsonValue& primitive : primitives->GetArray()) {
        const JsonValue* attributes = FindMember(primitive, "attributes");
        const auto member = [&](const char* name) {
            return attributes ? FindMember(*attributes, name) : nullptr;
        };
        const bool hasColors = member("COLOR_0") != nullptr;
        const ShapeKey key = {keyOf(FindMember(primitive, "mode")),
                              keyOf(FindMember(primitive, "indices")),
                              keyOf(member("POSITION")),
                              keyOf(member("NORMAL")),
                              keyOf(member("COLOR_0")),
                              hasColors ? keyOf(FindMember(primitive, "material")) : -1};
        MeshPiece piece;
        piece.shape = shapeOf(mesh, number++, primitive, key);
        if (!piece.shape)
            continue;
        piece.kind = KindOf(*piece.shape);
        piece.name = Name(mesh);
        const auto material = WholeMember(primitive, "material");
        if (material && m_file.Element(GltfList::Materials, *material) &&
            piece.shape->Present()->Colors().IsEmpty())
            piece.color = ToShownColor(ReadMaterial(m_file, material));
        pieces.push_back(std::move(piece));
    }
}

/// @return null when the primitive cannot be shown, which is kept among the failures.
std::shared_ptr<const ModelShape> GltfMeshes::shapeOf(std::uint64_t mesh, std::uint64_t number,
                                                      const JsonValue& primitive,
                                                      const ShapeKey& key)
{
    const auto [entry, isNew] = m_shapes.try_emplace(key);
    if (!isNew)
        return entry->second;
    ShapeArrays arrays;
    PrimitiveNotes notes;
    const GltfMaterial material = ReadMaterial(m_file, WholeMember(primitive, "material"));
    const bool isRead = ReadPrimitive(m_file, primitive, material, arrays, notes);
    for (const std::wstring& warning : notes.warnings)
        m_warnings.Warn(placed(mesh, number, warning));
    if (!isRead) {
        m_failures.push_back(placed(mesh, number, notes.reason));
        return nullptr;
    }
    entry->second = m_make(std::move(arrays));
    return entry->second;
}

} // namespace OrvikMesh
