#ifndef TAMBVIZCORE_ATTRIBUTEVISIBILITY_H
#define TAMBVIZCORE_ATTRIBUTEVISIBILITY_H

#include "TambVizCore/IViewAttribute.h"

namespace TambVizCore {

/// Shows or hides a node (with all below it) or a part.
///
/// @thread Main thread.
class TAMBVIZCORE_API AttributeVisibility : public IViewAttribute
{
public:
    explicit AttributeVisibility(bool visible);
    ~AttributeVisibility() override;

    bool IsVisible() const { return m_visible; }

    std::unique_ptr<IViewAttribute> ApplyTo(Node& root, const RenderId& id) const override;

private:
    bool m_visible;
};

} // namespace TambVizCore

#endif
