#include "OrvikModel/ModelEntity.h"

#include "OrvikCore/ARendererTree.h"

#include <algorithm>

namespace OrvikModel {

using OrvikCore::ARendererTree;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::MakePartId;
using TambVizCore::PartKind;

namespace {

constexpr std::uint64_t kLowHalf = 0xFFFFFFFFu;
constexpr auto kViewOwner = static_cast<std::uint64_t>(EntityType::AnnotationSet);

bool isViewOrCapture(const ModelNode& node)
{
    return node.kind == NodeKind::View || node.kind == NodeKind::Capture;
}

std::uint64_t viewValue(const Model& model, const ModelNode& node)
{
    return (model.number << 32) | node.number;
}

/// @return the first child of the node's parent that has its type of PMI.
const ModelNode* firstOfType(const Model& model, const ModelNode& node)
{
    const auto& siblings = node.parent ? node.parent->children : model.nodes;
    const auto found = std::find_if(siblings.begin(), siblings.end(), [&node](const auto& sibling) {
        return sibling->kind == NodeKind::PmiType && sibling->pmiType == node.pmiType;
    });
    return found != siblings.end() ? found->get() : nullptr;
}

const wchar_t* wordFor(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Assembly:
        return L"assembly";
    case NodeKind::AssemblyReference:
        return L"reference";
    case NodeKind::Body:
        return L"body";
    case NodeKind::PolyBody:
        return L"polygon body";
    case NodeKind::Mesh:
        return L"mesh";
    case NodeKind::Wire:
        return L"wire";
    case NodeKind::PointSet:
        return L"points";
    case NodeKind::PointCloud:
        return L"point cloud";
    case NodeKind::PmiSet:
        return L"PMI";
    case NodeKind::PmiType:
        return L"PMI type";
    case NodeKind::Annotation:
        return L"annotation";
    case NodeKind::Views:
        return L"views";
    case NodeKind::View:
        return L"view";
    case NodeKind::Captures:
        return L"captures";
    case NodeKind::Capture:
        return L"capture";
    }
    return L"";
}

} // namespace

EntityId MakeEntity(const Model& model, const ModelNode& node, std::uint64_t partId)
{
    if (isViewOrCapture(node))
        return {viewValue(model, node), kViewOwner, EntityTypeOf(node)};
    EntityId entity(node.number, model.number, EntityTypeOf(node));
    if (partId != 0)
        entity.SetSubEntity(static_cast<PartKind>(partId >> 32),
                            static_cast<std::int32_t>(partId & kLowHalf));
    return entity;
}

EntityId MakeContainerEntity(const Model& model)
{
    return {model.number, ARendererTree::kSceneRowId, EntityType::Container};
}

EntityMatch FindEntity(const Model& model, const EntityId& entity)
{
    EntityMatch match;
    EntityId whole = entity;
    whole.ReduceToBody();
    if (whole == MakeContainerEntity(model)) {
        match.isContainer = true;
        return match;
    }
    const ModelNode* node =
        model.FindNode(entity.Owner() == kViewOwner ? entity.Value() & kLowHalf : entity.Value());
    if (!node || whole != MakeEntity(model, *node))
        return match;
    match.node = node;
    if (entity.SubEntityKind() != PartKind::None)
        match.partId =
            MakePartId(entity.SubEntityKind(), static_cast<std::uint32_t>(entity.SubEntityIndex()));
    return match;
}

bool HasPart(const ModelNode& node, std::uint64_t partId)
{
    if (!node.shape)
        return false;
    if (node.shape->Present()->FindPart(partId) >= 0)
        return true;
    node.shape->MakeParts();
    return node.shape->Present()->FindPart(partId) >= 0;
}

std::uint64_t RowIdOf(const Model& model, const ModelNode& node)
{
    if (isViewOrCapture(node))
        return viewValue(model, node);
    if (node.kind == NodeKind::PmiType && node.pmiType != EntityType::Unknown &&
        firstOfType(model, node) == &node)
        return static_cast<std::uint64_t>(node.pmiType);
    return node.number;
}

std::wstring DisplayName(const ModelNode& node)
{
    if (node.kind == NodeKind::Annotation && !node.text.empty())
        return node.name.empty() ? node.text : node.name + L": " + node.text;
    return node.name.empty() ? wordFor(node.kind) : node.name;
}

std::wstring DisplayName(std::uint64_t partId)
{
    const std::wstring index = std::to_wstring(partId & kLowHalf);
    switch (static_cast<PartKind>(partId >> 32)) {
    case PartKind::Face:
        return L"face " + index;
    case PartKind::Edge:
        return L"edge " + index;
    case PartKind::Vertex:
        return L"vertex " + index;
    case PartKind::None:
        break;
    }
    return index;
}

} // namespace OrvikModel
