#include "gltf/ModelPieces.h"

#include <utility>

namespace OrvikMesh {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;

namespace {

void setPiece(const MeshPiece& piece, ModelNode& node)
{
    node.kind = piece.kind;
    node.shape = piece.shape;
    node.color = piece.color;
}

} // namespace

NodeKind KindOf(const OrvikModel::ModelShape& shape)
{
    const auto geometry = shape.Present();
    if (geometry->TriangleCount() > 0)
        return geometry->IsClosed() ? NodeKind::PolyBody : NodeKind::Mesh;
    return geometry->SegmentCount() > 0 ? NodeKind::Wire : NodeKind::PointCloud;
}

void ShowPieces(const std::vector<MeshPiece>& pieces, bool hasChildren, ModelNode& node)
{
    if (pieces.size() == 1 && !hasChildren) {
        setPiece(pieces.front(), node);
        return;
    }
    for (std::size_t i = 0; i < pieces.size(); ++i) {
        auto body = std::make_unique<ModelNode>();
        body->name = pieces[i].name.empty() ? node.name : pieces[i].name;
        if (pieces.size() > 1)
            body->name += L" " + std::to_wstring(i + 1);
        setPiece(pieces[i], *body);
        node.children.push_back(std::move(body));
    }
}

} // namespace OrvikMesh
