#include "kernel/NodePlaces.h"

#include <TambVizCore/Matrix.h>

#include <OrvikModel/Model.h>

namespace OrvikCad {

Place Product(const Place& left, const Place& right)
{
    if (left.empty())
        return right;
    if (right.empty())
        return left;
    Place result(16);
    TambVizCore::MultiplyMatrices(left.data(), right.data(), result.data());
    return result;
}

NodePlaces::NodePlaces(const OrvikModel::Model& model)
{
    for (const auto& node : model.nodes)
        add(*node, {});
}

Place NodePlaces::Find(const OrvikModel::ModelNode* node) const
{
    const auto found = m_places.find(node);
    return found == m_places.end() ? Place() : found->second;
}

void NodePlaces::add(const OrvikModel::ModelNode& node, const Place& above)
{
    const Place place = node.transform ? Product(above, *node.transform) : above;
    if (!place.empty())
        m_places.emplace(&node, place);
    for (const auto& child : node.children)
        add(*child, place);
}

} // namespace OrvikCad
