#include "gltf/GltfReader.h"

#include "gltf/GltfFile.h"
#include "gltf/GltfScene.h"

namespace OrvikMesh {

bool ReadGltfContent(const std::wstring& path, std::string_view content, const ReadOptions& options,
                     const ShapeMaker& make, OrvikModel::Model& model, ReadMessages& messages)
{
    GltfFile file(path, content, options, messages);
    if (!file.Open() || !BuildGltfScene(file, make, model))
        return false;
    model.NumberNodes();
    return true;
}

bool ReadGltf(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
              OrvikModel::Model& model, ReadMessages& messages)
{
    const ContentReader reader = [&](std::string_view content, const ReadOptions& told,
                                     MeshData& /*mesh*/, ReadMessages& said) {
        return ReadGltfContent(path, content, told, make, model, said);
    };
    MeshData unused;
    return ReadMappedFile(path, reader, options, unused, messages);
}

} // namespace OrvikMesh
