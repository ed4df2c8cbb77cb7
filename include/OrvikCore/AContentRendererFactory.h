#ifndef ORVIKCORE_ACONTENTRENDERERFACTORY_H
#define ORVIKCORE_ACONTENTRENDERERFACTORY_H

#include "OrvikCore/Export.h"

#include <string>

namespace TambVizCore {
class IView3D;
} // namespace TambVizCore

namespace OrvikCore {

class AContent;
class IContentRenderer;

/// Makes the renderers that draw contents of one kind into the 3D view.
///
/// The session manager owns the registered factories and finds them by name.
///
/// @thread Main thread.
class ORVIKCORE_API AContentRendererFactory
{
public:
    AContentRendererFactory(const AContentRendererFactory&) = default;
    AContentRendererFactory& operator=(const AContentRendererFactory&) = default;

    // Virtual operations in slot order; append only.

    /// Returns the name of the factory: what AContent::GetTypeName answers for its contents.
    virtual std::string GetName() const = 0;

    virtual ~AContentRendererFactory();

    /// Makes a renderer; nothing is drawn until IContentRenderer::Render.
    ///
    /// @param content  the content to draw; not owned.
    /// @param view     the view to draw into; not owned.
    /// @return         the renderer, transferred out; null when it cannot draw the content.
    virtual IContentRenderer* CreateRenderer(AContent* content, TambVizCore::IView3D* view) = 0;

protected:
    AContentRendererFactory();
};

} // namespace OrvikCore

#endif
