#include "content/TreeRows.h"

#include "OrvikModel/ModelEntity.h"

#include <algorithm>
#include <vector>

namespace OrvikModel {

using OrvikCore::TreeBuilder;
using TambVizCore::EntityType;

namespace {

using Begin = void (TreeBuilder::*)(std::uint64_t const&, std::wstring const&);
using End = void (TreeBuilder::*)();
using Style = TreeBuilder::TreeItemStyles;

/// The row of one kind of node.
struct RowPair
{
    Begin begin;
    End end;
    Style style;
};

RowPair pairOf(NodeKind kind)
{
    switch (kind) {
    case NodeKind::Assembly:
        return {&TreeBuilder::AssemblyBegin, &TreeBuilder::AssemblyEnd, Style::Assembly};
    case NodeKind::AssemblyReference:
        return {&TreeBuilder::AssemblyReferenceBegin, &TreeBuilder::AssemblyReferenceEnd,
                Style::AssemblyReference};
    case NodeKind::Body:
        return {&TreeBuilder::BodyBegin, &TreeBuilder::BodyEnd, Style::Body};
    case NodeKind::PolyBody:
        return {&TreeBuilder::PolyBodyBegin, &TreeBuilder::PolyBodyEnd, Style::PolyBody};
    case NodeKind::Mesh:
        return {&TreeBuilder::MeshBegin, &TreeBuilder::MeshEnd, Style::PolyBody};
    case NodeKind::Wire:
        return {&TreeBuilder::WireBegin, &TreeBuilder::WireEnd, Style::Wire};
    case NodeKind::PointSet:
        return {&TreeBuilder::PointSetBegin, &TreeBuilder::PointSetEnd, Style::PointSet};
    case NodeKind::PointCloud:
        return {&TreeBuilder::PointCloudBegin, &TreeBuilder::PointCloudEnd, Style::PointCloud};
    case NodeKind::PmiSet:
        return {&TreeBuilder::PMIBegin, &TreeBuilder::PMIEnd, Style::PMI};
    case NodeKind::PmiType:
        return {&TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, Style::PMIType};
    case NodeKind::Views:
        return {&TreeBuilder::ViewsBegin, &TreeBuilder::ViewsEnd, Style::Views};
    case NodeKind::View:
        return {&TreeBuilder::ViewBegin, &TreeBuilder::ViewEnd, Style::View};
    case NodeKind::Captures:
        return {&TreeBuilder::CapturesBegin, &TreeBuilder::CapturesEnd, Style::Captures};
    case NodeKind::Capture:
        return {&TreeBuilder::CaptureBegin, &TreeBuilder::CaptureEnd, Style::Capture};
    case NodeKind::Annotation:
        break;
    }
    return {&TreeBuilder::FTAGeometryBegin, &TreeBuilder::FTAGeometryEnd, Style::FTAGeometry};
}

Style styleOfPmiType(EntityType type)
{
    switch (type) {
    case EntityType::PmiDimension:
        return Style::PMIType10101;
    case EntityType::PmiGeometricTolerance:
        return Style::PMIType10102;
    case EntityType::PmiDatum:
        return Style::PMIType10103;
    case EntityType::PmiNote:
        return Style::PMIType10104;
    case EntityType::PmiSurfaceFinish:
        return Style::PMIType10105;
    default:
        return Style::PMIType;
    }
}

/// A node whose row is open, and which of its children comes next.
struct OpenRow
{
    const ModelNode* node;
    std::size_t nextChild;
    End end;
};

void openRow(TreeBuilder& builder, const Model& model, const ModelNode& node,
             std::vector<OpenRow>& open)
{
    const RowPair pair = pairOf(node.kind);
    (builder.*pair.begin)(RowIdOf(model, node), DisplayName(node));
    if (!node.isShown)
        builder.SetCurrentNodeEnabled(false);
    open.push_back({&node, 0, pair.end});
}

/// @return the node that a row id would name if it stood somewhere in the tree.
const ModelNode* candidateFor(const Model& model, const ModelNode* parent, std::uint64_t rowId)
{
    if (const ModelNode* node = model.FindNode(rowId))
        return node;
    if (rowId >> 32 != 0)
        return model.FindNode(rowId & 0xFFFFFFFFu);
    // What is left is the number of a type of PMI.
    const auto& children = parent ? parent->children : model.nodes;
    const auto found = std::find_if(children.begin(), children.end(), [&](const auto& child) {
        return child->kind == NodeKind::PmiType && RowIdOf(model, *child) == rowId;
    });
    return found != children.end() ? found->get() : nullptr;
}

} // namespace

void BuildRows(TreeBuilder& builder, const Model& model)
{
    std::vector<OpenRow> open;
    for (const auto& top : model.nodes) {
        openRow(builder, model, *top, open);
        while (!open.empty()) {
            OpenRow& row = open.back();
            if (row.nextChild < row.node->children.size()) {
                openRow(builder, model, *row.node->children[row.nextChild++], open);
                continue;
            }
            (builder.*row.end)();
            open.pop_back();
        }
    }
}

Style StyleOf(const ModelNode& node)
{
    if (node.kind != NodeKind::PmiType)
        return pairOf(node.kind).style;
    return styleOfPmiType(node.pmiType);
}

const ModelNode* FindRowChild(const Model& model, const ModelNode* parent, std::uint64_t rowId)
{
    const ModelNode* node = candidateFor(model, parent, rowId);
    return node && node->parent == parent && RowIdOf(model, *node) == rowId ? node : nullptr;
}

} // namespace OrvikModel
