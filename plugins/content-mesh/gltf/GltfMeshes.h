#ifndef ORVIKMESH_GLTF_GLTFMESHES_H
#define ORVIKMESH_GLTF_GLTFMESHES_H

#include "gltf/GltfFile.h"
#include "gltf/GltfMessages.h"
#include "gltf/ModelPieces.h"
#include "gltf/ShapeArrays.h"

#include <OrvikModel/Model.h>

#include <array>
#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace OrvikMesh {

/// The meshes of a file, each read when the first node names it. Nodes share what is read, and so
/// do primitives of the same numbers. One thread.
class GltfMeshes
{
public:
    /// @param file, make, warnings  Outlive this; failures are not among the warnings.
    GltfMeshes(GltfFile& file, const ShapeMaker& make, WarningLimit& warnings);

    /// @return the pieces of a mesh that can be shown; valid while this is.
    const std::vector<MeshPiece>& Pieces(std::uint64_t mesh);

    /// @return the name of a mesh; empty without one.
    std::wstring Name(std::uint64_t mesh) const;

    /// @return why each primitive that cannot be shown was left out, in the order of reading.
    const std::vector<std::wstring>& Failures() const { return m_failures; }

private:
    /// Mode, accessors, and the material where it tints the vertices.
    using ShapeKey = std::array<std::int64_t, 6>;

    void readMesh(std::uint64_t mesh, std::vector<MeshPiece>& pieces);
    std::shared_ptr<const OrvikModel::ModelShape> shapeOf(std::uint64_t mesh, std::uint64_t number,
                                                          const JsonValue& primitive,
                                                          const ShapeKey& key);
    std::wstring placed(std::uint64_t mesh, std::uint64_t number, const std::wstring& reason) const;

    GltfFile& m_file;
    const ShapeMaker& m_make;
    WarningLimit& m_warnings;
    std::map<std::uint64_t, std::vector<MeshPiece>> m_meshes;
    std::map<ShapeKey, std::shared_ptr<const OrvikModel::ModelShape>> m_shapes;
    std::vector<std::wstring> m_failures;
};

} // namespace OrvikMesh

#endif
