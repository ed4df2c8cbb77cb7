#ifndef ORVIKCORE_ATREERENDERERFACTORY_H
#define ORVIKCORE_ATREERENDERERFACTORY_H

#include "OrvikCore/Export.h"

#include <string>

namespace TambVizCore {
class Node;
} // namespace TambVizCore

namespace OrvikCore {

class AContent;
class ARendererTree;
class AViewTree;

/// Makes the renderers that draw contents of one kind into the model tree.
///
/// The session manager owns the registered factories and finds them by name.
///
/// @thread Main thread.
class ORVIKCORE_API ATreeRendererFactory
{
public:
    ATreeRendererFactory(const ATreeRendererFactory&) = default;
    ATreeRendererFactory& operator=(const ATreeRendererFactory&) = default;

    // Virtual operations in slot order; append only.

    /// Returns the name of the factory: what AContent::GetTypeName answers for its contents.
    virtual std::string GetName() const = 0;

    virtual ~ATreeRendererFactory();

    /// Makes a renderer; no row is built until IContentRenderer::Render.
    ///
    /// @param content  the content to draw; not owned.
    /// @param view     the tree view to draw into; not owned.
    /// @param node     the scene node that draws the content in 3D; not owned, may be null.
    /// @return         the renderer, transferred out; null when it cannot draw the content.
    virtual ARendererTree* CreateRenderer(AContent* content, AViewTree* view,
                                          TambVizCore::Node* node) = 0;

protected:
    ATreeRendererFactory();
};

} // namespace OrvikCore

#endif
