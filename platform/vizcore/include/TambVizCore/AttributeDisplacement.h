#ifndef TAMBVIZCORE_ATTRIBUTEDISPLACEMENT_H
#define TAMBVIZCORE_ATTRIBUTEDISPLACEMENT_H

#include "TambVizCore/Export.h"
#include "TambVizCore/IViewAttribute.h"
#include "TambVizCore/RenderId.h"

#include <array>
#include <unordered_map>

namespace TambVizCore {

/// Shows nodes away from where they belong, each by its own displacement. An id that names a part
/// acts on the node that the part belongs to.
///
/// @thread Main thread.
class TAMBVIZCORE_API AttributeDisplacement : public IViewAttribute
{
public:
    /// By the id of the node; in the units of its parent, see Node::SetDisplacement.
    using Displacements = std::unordered_map<RenderId, std::array<double, 3>>;

    /// @param displacements  What is not listed goes to where it belongs.
    explicit AttributeDisplacement(Displacements displacements);
    ~AttributeDisplacement() override;

    std::unique_ptr<IViewAttribute> ApplyTo(Node& root, const RenderId& id) const override;

private:
    Displacements m_displacements;
};

} // namespace TambVizCore

#endif
