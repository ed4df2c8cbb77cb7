#include "content/Placement.h"

#include <algorithm>
#include <cmath>

namespace OrvikModel {

namespace {

bool isPmi(NodeKind kind)
{
    return kind == NodeKind::PmiSet || kind == NodeKind::PmiType || kind == NodeKind::Annotation;
}

double dotOfColumns(const double* matrix, int a, int b)
{
    return matrix[a * 4] * matrix[b * 4] + matrix[a * 4 + 1] * matrix[b * 4 + 1] +
           matrix[a * 4 + 2] * matrix[b * 4 + 2];
}

} // namespace

std::span<const ModelNode* const> NodesBelow(const Model& model, const ModelNode* node)
{
    const auto& all = model.InOrder();
    if (!node)
        return {all.data(), all.size()};
    // Numbers rise from a node through all below it, the last child of the last child at the end.
    const ModelNode* last = node;
    while (!last->children.empty())
        last = last->children.back().get();
    const auto isBefore = [](const ModelNode* a, std::uint64_t number) {
        return a->number < number;
    };
    const auto first = std::lower_bound(all.begin(), all.end(), node->number, isBefore);
    const auto end = std::lower_bound(first, all.end(), last->number + 1, isBefore);
    return {first, end};
}

std::vector<const ModelNode*> ShapesBelow(const Model& model, const ModelNode* node)
{
    const bool withPmi = node && isPmi(node->kind);
    std::vector<const ModelNode*> shapes;
    for (const ModelNode* below : NodesBelow(model, node))
        if (below->shape && (withPmi || below->kind != NodeKind::Annotation))
            shapes.push_back(below);
    return shapes;
}

std::optional<double> UniformScale(const double* matrix)
{
    const double size = dotOfColumns(matrix, 0, 0);
    const double tolerance = 1e-9 * size;
    for (int i = 0; i < 3; ++i)
        for (int k = i; k < 3; ++k)
            if (!(std::abs(dotOfColumns(matrix, i, k) - (i == k ? size : 0.0)) <= tolerance))
                return std::nullopt;
    if (!(size > 0.0))
        return std::nullopt;
    return std::sqrt(size);
}

} // namespace OrvikModel
