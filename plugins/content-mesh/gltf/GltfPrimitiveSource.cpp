#include "gltf/GltfPrimitiveSource.h"

#include "gltf/GltfTexts.h"

#include <string>

namespace OrvikMesh {

namespace {

bool findMode(const JsonValue& primitive, GltfMode& found, std::wstring& reason)
{
    const auto mode = WholeMember(primitive, "mode", 4);
    if (!mode || *mode > 6) {
        reason = FillText(kGltfBadMode, {mode ? std::to_wstring(*mode) : L"?"});
        return false;
    }
    found = static_cast<GltfMode>(*mode);
    return true;
}

bool findPositions(GltfFile& file, const JsonValue& primitive, GltfAccessor& positions,
                   std::wstring& reason)
{
    const JsonValue* attributes = FindMember(primitive, "attributes");
    const auto index =
        attributes ? WholeMember(*attributes, "POSITION") : std::optional<std::uint64_t>();
    const JsonValue* element = index ? file.Element(GltfList::Accessors, *index) : nullptr;
    if (!index) {
        reason = kGltfNoPositions;
        return false;
    }
    const JsonValue* extensions = FindMember(primitive, "extensions");
    if (extensions && FindMember(*extensions, "KHR_draco_mesh_compression") && element &&
        !FindMember(*element, "bufferView")) {
        reason = FillText(kGltfCompressed, {L"KHR_draco_mesh_compression"});
        return false;
    }
    if (!FindAccessor(file, *index, positions, reason))
        return false;
    if (positions.components != 3) {
        reason = FillText(
            kGltfBadComponents,
            {std::to_wstring(*index), std::to_wstring(positions.components), L"POSITION", L"3"});
        return false;
    }
    return true;
}

bool findIndices(GltfFile& file, const JsonValue& primitive, std::optional<GltfAccessor>& indices,
                 std::wstring& reason)
{
    if (!FindMember(primitive, "indices"))
        return true;
    const auto index = WholeMember(primitive, "indices");
    GltfAccessor accessor;
    if (!index) {
        reason = FillText(kGltfNoSuch, {L"accessor", L"?"});
        return false;
    }
    if (!FindAccessor(file, *index, accessor, reason))
        return false;
    indices = accessor;
    return true;
}

} // namespace

bool FindPrimitiveSource(GltfFile& file, const JsonValue& primitive, PrimitiveSource& source,
                         std::wstring& reason)
{
    return findMode(primitive, source.mode, reason) &&
           findPositions(file, primitive, source.positions, reason) &&
           findIndices(file, primitive, source.indices, reason);
}

bool FindAttribute(GltfFile& file, const JsonValue& primitive, const char* name,
                   std::size_t vertexCount, GltfAccessor& accessor, PrimitiveNotes& notes)
{
    const JsonValue* attributes = FindMember(primitive, "attributes");
    const JsonValue* member = attributes ? FindMember(*attributes, name) : nullptr;
    if (!member)
        return false;
    const std::string narrow = name;
    const std::wstring wide(narrow.begin(), narrow.end());
    std::wstring reason = FillText(kGltfNoSuch, {L"accessor", L"?"});
    const auto index = ToWhole(*member);
    if (!index || !FindAccessor(file, *index, accessor, reason)) {
        notes.warnings.push_back(FillText(kGltfAttribute, {wide, reason}));
        return false;
    }
    if (accessor.values.count != vertexCount) {
        notes.warnings.push_back(
            FillText(kGltfAttributeCount,
                     {wide, std::to_wstring(accessor.values.count), std::to_wstring(vertexCount)}));
        return false;
    }
    return true;
}

} // namespace OrvikMesh
