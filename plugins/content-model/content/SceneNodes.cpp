#include "content/SceneNodes.h"

#include "OrvikModel/ModelEntity.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Utils.h>

namespace OrvikModel {

using TambVizCore::Geometry;
using TambVizCore::GeoNode;
using TambVizCore::Node;

namespace {

GeoNode::Category categoryOf(NodeKind kind)
{
    if (kind == NodeKind::Annotation)
        return GeoNode::Category::PMI;
    // Points that stand alone are no ends of edges, which the view's switch for vertices is for.
    const bool arePoints = kind == NodeKind::PointCloud || kind == NodeKind::PointSet;
    return arePoints ? GeoNode::Category::PointCloud : GeoNode::Category::Model;
}

std::unique_ptr<Node> makeNode(const ModelNode& node)
{
    const std::string name = TambVizCore::Utils::WstringToString(DisplayName(node));
    if (!node.shape)
        return std::make_unique<Node>(node.number, name);
    auto geo = std::make_unique<GeoNode>(node.number, name);
    geo->SetCategory(categoryOf(node.kind));
    geo->SetLineWidthPixels(node.lineWidthPixels);
    geo->SetPointSizePixels(node.pointSizePixels);
    AdoptShape(node, *geo);
    return geo;
}

} // namespace

bool HasSceneNode(const ModelNode& node)
{
    switch (node.kind) {
    case NodeKind::Views:
    case NodeKind::View:
    case NodeKind::Captures:
    case NodeKind::Capture:
        return false;
    case NodeKind::Annotation:
        return node.shape != nullptr;
    default:
        return true;
    }
}

std::unique_ptr<Node> MakeSceneNode(const Model& model, const ModelNode& node)
{
    std::unique_ptr<Node> scene = makeNode(node);
    scene->SetEntity(MakeEntity(model, node));
    if (node.transform)
        scene->SetTransform(node.transform->data());
    scene->SetColor(node.color);
    scene->SetVisible(node.isShown);
    return scene;
}

void AdoptShape(const ModelNode& node, GeoNode& scene)
{
    const std::shared_ptr<const Geometry> before = scene.GetGeometry();
    const std::shared_ptr<const Geometry> present = node.shape->Present();
    if (before == present)
        return;
    scene.SetGeometry(present);
    for (const auto& [partId, color] : node.partColors) {
        const std::int64_t part = present->FindPart(partId);
        if (part >= 0 && (!before || before->FindPart(partId) < 0))
            scene.SetPartColor(static_cast<std::uint32_t>(part), color);
    }
}

} // namespace OrvikModel
