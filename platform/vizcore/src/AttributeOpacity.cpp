#include "TambVizCore/AttributeOpacity.h"

#include "TambVizCore/Node.h"

namespace TambVizCore {

AttributeOpacity::AttributeOpacity(float opacity) : m_opacity(opacity) {}

AttributeOpacity::~AttributeOpacity() = default;

std::unique_ptr<IViewAttribute> AttributeOpacity::ApplyTo(Node& root, const RenderId& id) const
{
    Node* const node = FindRenderId(root, id).node;
    if (node == nullptr) {
        return nullptr;
    }
    auto former = std::make_unique<AttributeOpacity>(node->Opacity());
    node->SetOpacity(m_opacity);
    return former;
}

} // namespace TambVizCore
