#ifndef TAMBVIZCORE_IVIEWATTRIBUTE_H
#define TAMBVIZCORE_IVIEWATTRIBUTE_H

#include "TambVizCore/Export.h"

#include <memory>

namespace TambVizCore {

class Node;
class RenderId;

/// A change of how an item of a view looks, applied to whatever a RenderId names.
///
/// @thread Main thread.
class TAMBVIZCORE_API IViewAttribute
{
public:
    virtual ~IViewAttribute();

    /// Changes the node or part that @p id names below @p root.
    ///
    /// @return the attribute that brings the former state back (transferred out), also when the
    ///         state was that already; null when @p id names nothing.
    virtual std::unique_ptr<IViewAttribute> ApplyTo(Node& root, const RenderId& id) const = 0;
};

} // namespace TambVizCore

#endif
