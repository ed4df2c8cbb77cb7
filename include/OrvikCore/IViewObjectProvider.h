#ifndef ORVIKCORE_IVIEWOBJECTPROVIDER_H
#define ORVIKCORE_IVIEWOBJECTPROVIDER_H

#include "OrvikCore/Export.h"

#include <vector>

namespace TambVizCore {
struct RGBAColor;
} // namespace TambVizCore

namespace OrvikCore {

class TextItem3D;
class ViewObjectManager;

/// Views that can draw beside the model. The session forwards its drawing operations to it.
///
/// @thread Main thread.
class ORVIKCORE_API IViewObjectProvider
{
public:
    // Virtual operations in slot order; append only.
    virtual ~IViewObjectProvider();

    /// Returns the manager of the view's objects; not owned, null while there is none.
    virtual ViewObjectManager* GetViewObjectManager() = 0;

    /// Draws open polylines.
    ///
    /// @param polylines  each one polyline: x, y, z triples, world units.
    /// @param color      of all of them.
    /// @throws std::runtime_error "DrawMarkupObjects needs to be implemented in your
    ///         ViewObjectProvider." by default.
    virtual void DrawMarkupObjects(std::vector<std::vector<double>> const& polylines,
                                   TambVizCore::RGBAColor const& color);

    /// Draws polylines that may be closed and filled.
    ///
    /// @param polylines  as above.
    /// @param closed     whether the last point is joined with the first.
    /// @param filled     whether the area inside a closed polyline is filled.
    /// @param color      of all of them.
    virtual void DrawMarkupObjects(std::vector<std::vector<double>> const& polylines, bool closed,
                                   bool filled, TambVizCore::RGBAColor const& color) = 0;

    /// Draws an arrow from the first point to the second, world units.
    virtual void DrawArrow(double x1, double y1, double z1, double x2, double y2, double z2) = 0;

    /// Draws triangles.
    ///
    /// @param points   x, y, z triples, world units.
    /// @param normals  one triple for each point, or empty.
    /// @param colors   red, green, blue from 0 to 1 for each point, or empty.
    /// @param indices  three for each triangle, counted from 0.
    virtual void DrawTessellationData(std::vector<float>& points, std::vector<float>& normals,
                                      std::vector<float>& colors, std::vector<int>& indices) = 0;

    /// Removes what the drawing operations drew.
    virtual void ClearDrawingObjects() = 0;

    /// Draws text labels.
    virtual void DrawTextItems(std::vector<TextItem3D> const& items) = 0;
};

} // namespace OrvikCore

#endif
