#include "OrvikModel/Model.h"

#include "OrvikCore/ARendererTree.h"

#include <TambVizCore/Matrix.h>
#include <TambVizCore/Utils.h>

#include <algorithm>

namespace OrvikModel {

using TambVizCore::EntityType;

namespace {

/// A node whose children are still to be numbered, and where it stands.
struct Level
{
    ModelNode* node;
    std::size_t nextChild;
    double world[16];
};

/// Walks a model from the top and numbers what it meets; without recursion, however deep it is.
struct Numbering
{
    std::uint64_t next = 1;
    std::vector<const ModelNode*> nodes;
    std::vector<Level> open;
    TambVizCore::VizBox box;
    TambVizCore::VizBox bodyBox;

    void walk(ModelNode& top)
    {
        double identity[16];
        TambVizCore::SetIdentity(identity);
        enter(top, nullptr, identity);
        while (!open.empty()) {
            Level& level = open.back();
            if (level.nextChild == level.node->children.size()) {
                open.pop_back();
                continue;
            }
            ModelNode& parent = *level.node;
            double world[16];
            std::copy_n(level.world, 16, world);
            enter(*parent.children[level.nextChild++], &parent, world);
        }
    }

    void enter(ModelNode& node, ModelNode* parent, const double* parentWorld)
    {
        node.parent = parent;
        node.number = SkipReservedNumbers(next);
        next = node.number + 1;
        nodes.push_back(&node);
        Level level{&node, 0, {}};
        if (node.transform)
            TambVizCore::MultiplyMatrices(parentWorld, node.transform->data(), level.world);
        else
            std::copy_n(parentWorld, 16, level.world);
        if (node.shape) {
            const TambVizCore::VizBox placed = node.shape->BoundingBox().Transformed(level.world);
            box.Add(placed);
            if (node.kind != NodeKind::Annotation)
                bodyBox.Add(placed);
        }
        open.push_back(level);
    }
};

} // namespace

std::uint64_t SkipReservedNumbers(std::uint64_t number)
{
    if (number >= 10001 && number <= 10999)
        return 11000;
    if (number == OrvikCore::ARendererTree::kSceneRowId)
        return number + 1;
    return number;
}

ModelSource::~ModelSource() = default;

void Model::NumberNodes()
{
    Numbering numbering;
    for (const auto& node : nodes)
        numbering.walk(*node);
    m_byPosition = std::move(numbering.nodes);
    box = numbering.box;
    bodyBox = numbering.bodyBox.IsEmpty() ? numbering.box : numbering.bodyBox;
}

const ModelNode* Model::FindNode(std::uint64_t nodeNumber) const
{
    const auto found = std::lower_bound(
        m_byPosition.begin(), m_byPosition.end(), nodeNumber,
        [](const ModelNode* node, std::uint64_t wanted) { return node->number < wanted; });
    return found != m_byPosition.end() && (*found)->number == nodeNumber ? *found : nullptr;
}

std::wstring Model::FileName() const
{
    return TambVizCore::Utils::GetFileNameOnly(path);
}

EntityType EntityTypeOf(const ModelNode& node)
{
    switch (node.kind) {
    case NodeKind::Assembly:
        return EntityType::Assembly;
    case NodeKind::AssemblyReference:
        return EntityType::AssemblyReference;
    case NodeKind::Body:
        return EntityType::Body;
    case NodeKind::PolyBody:
    case NodeKind::Mesh:
        return EntityType::Mesh;
    case NodeKind::Wire:
        return EntityType::Wire;
    case NodeKind::PointSet:
        return EntityType::PointSet;
    case NodeKind::PointCloud:
        return EntityType::PointCloud;
    case NodeKind::Annotation:
        return EntityType::Annotation;
    case NodeKind::View:
        return EntityType::View;
    case NodeKind::Capture:
        return EntityType::Capture;
    case NodeKind::PmiType:
        return node.pmiType;
    case NodeKind::PmiSet:
    case NodeKind::Views:
    case NodeKind::Captures:
        return EntityType::NonGraphical;
    }
    return EntityType::Unknown;
}

void GetWorldTransform(const ModelNode& node, double* matrix)
{
    TambVizCore::SetIdentity(matrix);
    for (const ModelNode* at = &node; at != nullptr; at = at->parent)
        if (at->transform)
            TambVizCore::MultiplyMatrices(at->transform->data(), matrix, matrix);
}

} // namespace OrvikModel
