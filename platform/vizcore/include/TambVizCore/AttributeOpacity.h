#ifndef TAMBVIZCORE_ATTRIBUTEOPACITY_H
#define TAMBVIZCORE_ATTRIBUTEOPACITY_H

#include "TambVizCore/Export.h"
#include "TambVizCore/IViewAttribute.h"

namespace TambVizCore {

/// Makes a node with all below it more or less transparent. An id that names a part acts on the
/// node that the part belongs to.
///
/// @thread Main thread.
class TAMBVIZCORE_API AttributeOpacity : public IViewAttribute
{
public:
    /// @param opacity  0 to 1; see Node::SetOpacity.
    explicit AttributeOpacity(float opacity);
    ~AttributeOpacity() override;

    float Opacity() const { return m_opacity; }

    std::unique_ptr<IViewAttribute> ApplyTo(Node& root, const RenderId& id) const override;

private:
    float m_opacity;
};

} // namespace TambVizCore

#endif
