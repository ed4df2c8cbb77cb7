#include "TambVizCore/AttributeDisplacement.h"

#include "TambVizCore/Node.h"

#include <algorithm>
#include <utility>

namespace TambVizCore {

AttributeDisplacement::AttributeDisplacement(Displacements displacements)
    : m_displacements(std::move(displacements))
{
}

AttributeDisplacement::~AttributeDisplacement() = default;

std::unique_ptr<IViewAttribute> AttributeDisplacement::ApplyTo(Node& root, const RenderId& id) const
{
    Node* const node = FindRenderId(root, id).node;
    if (node == nullptr) {
        return nullptr;
    }
    std::array<double, 3> former{};
    std::copy_n(node->Displacement(), 3, former.begin());
    const auto listed = m_displacements.find(id);
    const std::array<double, 3> home{};
    node->SetDisplacement(listed != m_displacements.end() ? listed->second.data() : home.data());
    return std::make_unique<AttributeDisplacement>(Displacements{{id, former}});
}

} // namespace TambVizCore
