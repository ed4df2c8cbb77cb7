#include "TambVizCore/AttributeVisibility.h"

#include "TambVizCore/GeoNode.h"
#include "TambVizCore/Node.h"

namespace TambVizCore {

AttributeVisibility::AttributeVisibility(bool visible) : m_visible(visible) {}

AttributeVisibility::~AttributeVisibility() = default;

std::unique_ptr<IViewAttribute> AttributeVisibility::ApplyTo(Node& root, const RenderId& id) const
{
    const NodeMatch match = FindRenderId(root, id);
    if (match.node == nullptr) {
        return nullptr;
    }
    if (match.part < 0) {
        auto former = std::make_unique<AttributeVisibility>(match.node->IsVisible());
        match.node->SetVisible(m_visible);
        return former;
    }
    GeoNode& geoNode = *match.node->AsGeoNode();
    const auto part = static_cast<std::uint32_t>(match.part);
    auto former =
        std::make_unique<AttributeVisibility>(geoNode.PartStates()[part].Has(PartState::kShown));
    geoNode.SetPartShown(part, m_visible);
    return former;
}

} // namespace TambVizCore
