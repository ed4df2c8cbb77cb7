#ifndef ORVIKMESH_GLTF_MODELPIECES_H
#define ORVIKMESH_GLTF_MODELPIECES_H

#include <OrvikModel/Model.h>

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace OrvikMesh {

/// One shape of a mesh as it is shown.
struct MeshPiece
{
    OrvikModel::NodeKind kind = OrvikModel::NodeKind::Mesh;
    std::shared_ptr<const OrvikModel::ModelShape> shape; ///< Never null.
    std::optional<TambVizCore::RGBAColor> color;         ///< Empty where its vertices have colours.
    std::wstring name;                                   ///< Of its mesh; may be empty.
};

/// @return what a node with that shape is, by what the shape is made of.
OrvikModel::NodeKind KindOf(const OrvikModel::ModelShape& shape);

/// Gives a node its pieces: the one piece of a node without children makes it a body itself, else
/// each becomes a body below it. Bodies are called after their meshes, or after the node where
/// these have no names; several get numbers from 1.
void ShowPieces(const std::vector<MeshPiece>& pieces, bool hasChildren,
                OrvikModel::ModelNode& node);

} // namespace OrvikMesh

#endif
