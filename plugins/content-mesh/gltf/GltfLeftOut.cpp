#include "gltf/GltfLeftOut.h"

#include "gltf/GltfFile.h"
#include "gltf/GltfTexts.h"

#include <algorithm>
#include <cstdint>
#include <string>

namespace OrvikMesh {

namespace {

bool hasPictureForColor(const JsonValue& material)
{
    const JsonValue* roughness = FindMember(material, "pbrMetallicRoughness");
    const JsonValue* extensions = FindMember(material, "extensions");
    const JsonValue* glossiness =
        extensions ? FindMember(*extensions, "KHR_materials_pbrSpecularGlossiness") : nullptr;
    return (roughness && FindMember(*roughness, "baseColorTexture")) ||
           (glossiness && FindMember(*glossiness, "diffuseTexture"));
}

bool hasMorphTargets(const JsonValue& mesh)
{
    const JsonValue* primitives = FindList(mesh, "primitives");
    return primitives && std::any_of(primitives->GetArray().begin(), primitives->GetArray().end(),
                                     [](const JsonValue& primitive) {
                                         return FindList(primitive, "targets") != nullptr;
                                     });
}

template <class IsCounted>
std::uint64_t countOf(const GltfFile& file, GltfList list, const IsCounted& isCounted)
{
    std::uint64_t count = 0;
    for (std::uint64_t i = 0; i < file.Count(list); ++i) {
        const JsonValue* element = file.Element(list, i);
        count += element && isCounted(*element) ? 1 : 0;
    }
    return count;
}

void warn(GltfFile& file, const wchar_t* text, std::uint64_t count)
{
    if (count > 0)
        file.Messages().Warn(FillText(text, {std::to_wstring(count)}));
}

} // namespace

void WarnOfLeftOut(GltfFile& file)
{
    if (FindList(file.Root(), "skins"))
        file.Messages().Warn(kGltfSkin);
    const JsonValue* animations = FindList(file.Root(), "animations");
    warn(file, kGltfAnimations, animations ? animations->GetArray().Size() : 0);
    warn(file, kGltfMorphs, countOf(file, GltfList::Meshes, hasMorphTargets));
    warn(file, kGltfTextures, countOf(file, GltfList::Materials, hasPictureForColor));
}

} // namespace OrvikMesh
