#ifndef TAMBVIZCORE_AVIEW3DADAPTER_H
#define TAMBVIZCORE_AVIEW3DADAPTER_H

#include "TambVizCore/Export.h"
#include "TambVizCore/RGBAColor.h"

#include <cstdint>
#include <vector>

namespace TambVizCore {

class EntityId;
class IHighlightStrategy;
class IView3D;
class Node;
class RenderId;
class RenderingOptions;

/// The pixel side of a 3D view: what lies under a pixel, how things are drawn, the drawing area.
///
/// A concrete view usually is its own adapter. No operation has the name of an operation of
/// IView3D, which forwards to these.
///
/// @thread Main thread.
class TAMBVIZCORE_API AView3DAdapter
{
public:
    virtual ~AView3DAdapter();

    /// Keeps the view that the adapter serves; not owned, null detaches.
    virtual void AttachView(IView3D* view);
    /// @return the view kept last; not owned, null at start.
    IView3D* AttachedView() const { return m_attachedView; }

    /// Finds what lies under a pixel; (0, 0) is the upper left one.
    /// @return false, with @p id cleared, when nothing does.
    virtual bool GetRenderIdAtPixel(int x, int y, RenderId& id) = 0;
    /// Finds the point of the nearest surface under a pixel.
    /// @param point  float[3], world units; untouched on false.
    virtual bool GetSurfacePointAtPixel(int x, int y, float* point) = 0;
    /// Lists every item that draws the same thing as @p id. The default lists @p id itself.
    /// @return false, with an empty list, for an empty id.
    virtual bool ExpandToRenderIds(const RenderId& id, std::vector<RenderId>& ids);
    /// Finds the entity that an item draws. The default looks at the nodes of the attached view.
    /// @return false, with @p entity cleared, when it is not known.
    virtual bool ConvertToEntity(const RenderId& id, EntityId& entity);
    /// Makes the id of a node, or of one of its parts.
    /// @param partId  0 for the node itself.
    virtual void MakeRenderId(const Node& node, std::uint64_t partId, RenderId& id) const;
    /// @return true when the item is highlighted. The default asks the attached view's holder.
    virtual bool IsHighlighted(const RenderId& id);

    /// @return the options, owned by the adapter; null when it has none.
    virtual RenderingOptions* GetRenderingOptions() = 0;
    /// @return the strategy, owned by the adapter; null when it has none.
    virtual IHighlightStrategy* GetHighlightStrategy() = 0;

    /// Writes the size of the drawing area in pixels.
    virtual void GetViewportSize(int& width, int& height) const = 0;
    /// Sets the size of the drawing area in pixels; values below 0 count as 0.
    virtual void ResizeViewport(int width, int height) = 0;
    /// Reads the colour at the top (1) or bottom (2). @return false for another number.
    virtual bool GetViewportBackground(int number, RGBAColor& color) const = 0;
    /// Sets the colour at the top (1) or bottom (2). @return false for another number.
    virtual bool SetViewportBackground(int number, const RGBAColor& color) = 0;
    /// Removes everything that is drawn.
    virtual void ClearViewport() = 0;

protected:
    AView3DAdapter();

private:
    IView3D* m_attachedView = nullptr; ///< Not owned.
};

} // namespace TambVizCore

#endif
