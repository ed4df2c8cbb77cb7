#ifndef TAMBVIZCORE_IVIEW3D_H
#define TAMBVIZCORE_IVIEW3D_H

#include "TambVizCore/Export.h"

#include <string>

namespace TambVizCore {

class AView3DAdapter;
class EntityId;
class Node;
class Ray;
class RenderId;
class SelectionHolder;
class VizBox;
struct Image;
struct RGBAColor;

/// A 3D view as its users see it: the window's size, the scene, its bounds, pictures.
///
/// What happens at the pixels belongs to the view's adapter (AView3DAdapter). A class may be both:
/// no operation of one has the name of an operation of the other.
///
/// @thread Main thread.
class TAMBVIZCORE_API IView3D
{
public:
    virtual ~IView3D();

    /// @return the name of the kind of view.
    virtual std::string GetName() const = 0;

    /// Writes a text picture of the scene graph to @p out, replacing what it held.
    /// @param withParts  whether parts are counted too.
    virtual void GetSceneGraphStructure(std::string& out, bool withParts) = 0;

    /// Writes the size of the drawing area in pixels; 0 x 0 before there is one.
    virtual void GetWindowSize(int& width, int& height) const = 0;
    /// Sets the size of the drawing area in pixels; values below 0 count as 0.
    virtual void SetWindowSize(int width, int height) = 0;
    /// @return the host window's handle as the host gave it; null without a window. Not owned.
    virtual void* GetWindowHandle() const = 0;
    /// Keeps the host window's handle; not owned.
    virtual void SetWindowHandle(void* handle) = 0;

    /// @return the radius of the sphere around what is shown, world units; 0 for an empty scene.
    virtual float GetGeometryRadius() const = 0;
    /// @return float[3], the centre of that sphere; zeros for an empty scene. Not owned, valid
    /// until
    ///         the next call.
    virtual const float* GetGeometryCenter() const = 0;
    /// Computes the box of an item of this view, world units. @return false when there is none.
    virtual bool GetBoundingBox(const RenderId& id, VizBox& box) = 0;
    /// Computes the box of what draws an entity, world units. @return false when there is none.
    virtual bool GetBoundingBox(const EntityId& id, VizBox& box) = 0;
    /// Finds the entity that an item of this view draws. @return false when it is not known.
    virtual bool Convert(const RenderId& id, EntityId& entity) = 0;

    /// @return the root of the scene; owned by the view, lives as long as it.
    virtual Node& GetSceneRoot() = 0;
    /// @return what is highlighted and selected; owned by the view, never null.
    virtual SelectionHolder* GetSelectionHolder() = 0;
    /// @return the adapter; not owned, may be the view itself, null when there is none.
    virtual AView3DAdapter* GetView3DAdapter() = 0;

    /// Offers a pick to the objects of the view (manipulators, markup) before the model is asked.
    /// @return true when one of them took it.
    virtual bool NotifyPick(const Ray& ray) = 0;

    /// Reads background 1 (above) or 2 (below). @return false for another number.
    virtual bool GetBackgroundColor(int number, RGBAColor& color) const = 0;
    /// Sets background 1 or 2. @return false for another number.
    virtual bool SetBackgroundColor(int number, const RGBAColor& color) = 0;

    /// Removes every node below the scene root and clears highlight and selection.
    virtual void Clear() = 0;
    /// Repaints at once, without dispatching events, when something changed since the last time.
    virtual void UpdateDisplay() = 0;
    /// Builds everything that is drawn anew, then repaints.
    virtual void Rerender() = 0;

    /// Draws the scene at any size with the present camera, whatever the window shows.
    /// @param width, height  pixels, at least 1; the driver sets the most.
    /// @return false, with @p image untouched, when the size is out of range or drawing failed.
    virtual bool ReadImage(int width, int height, Image& image) = 0;
};

} // namespace TambVizCore

#endif
