#ifndef ORVIKCORE_IDIMENSIONDRAWER_H
#define ORVIKCORE_IDIMENSIONDRAWER_H

#include "OrvikCore/Export.h"

#include <TambVizCore/EntityId.h>

#include <array>
#include <string>
#include <vector>

namespace OrvikCore {

/// What a measure found, as it is drawn in the 3D view; world units.
struct Dimension
{
    using Point = std::array<double, 3>;

    /// What was measured: a line or an arc as a polyline, with an arrow head at each end; see
    /// startsWithHead.
    std::vector<Point> line;
    /// Plain lines that lead there: the legs of an angle.
    std::vector<std::vector<Point>> legs;
    /// The value with its unit; stands beside the middle of the line.
    std::wstring text;
    /// What was measured: the dimension goes when one of them does. May be empty.
    std::vector<TambVizCore::EntityId> measured;
    /// Off for a radius: its line begins in the centre, and only its end has a head.
    bool startsWithHead = true;
};

/// A view that draws dimensions over the model; found by dynamic_cast.
///
/// A dimension moves along with what was measured where that is shown away from its place, and is
/// not drawn while its measured things are shown apart. Lines, heads and letters keep their size in
/// pixels and are hidden by nothing of the model. The newest 100 dimensions are kept. They go when
/// the view is cleared, and with the drawings of IViewObjectProvider::ClearDrawingObjects.
/// @thread Main thread.
class ORVIKCORE_API IDimensionDrawer
{
public:
    // Virtual operations in slot order; append only.
    virtual ~IDimensionDrawer();

    /// Adds a dimension. One without points, or with a number that is not finite, draws nothing.
    virtual void DrawDimension(const Dimension& dimension) = 0;

    /// Removes all dimensions.
    virtual void ClearDimensions() = 0;
};

} // namespace OrvikCore

#endif
