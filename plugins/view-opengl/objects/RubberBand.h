#ifndef VIEWOPENGL_OBJECTS_RUBBERBAND_H
#define VIEWOPENGL_OBJECTS_RUBBERBAND_H

#include "objects/NodeObject.h"

namespace ViewOpenGl {

/// The name under which views keep their rubber band; the controller adapter looks for it.
inline constexpr char kRubberBandName[] = "Rubberband";

/// A rectangle between two corners, window pixels, in any order.
struct PixelRectangle
{
    int x1 = 0;
    int y1 = 0;
    int x2 = 0;
    int y2 = 0;
};

/// The rectangle that follows the pointer in a drag: its outline, and a thin wash inside. Hidden at
/// first.
class RubberBand final : public NodeObject<OrvikCore::AViewObject>
{
public:
    /// @param parent  the scene that is drawn over the picture, in window pixels from the top left.
    explicit RubberBand(TambVizCore::Node& parent);

    /// Places the rectangle. From left to right it encloses and is blue; from right to left it
    /// touches and is green.
    void Place(const PixelRectangle& rectangle);

protected:
    TambVizCore::Node* build(TambVizCore::Node& parent) override;

private:
    void apply();

    PixelRectangle m_rectangle;
};

} // namespace ViewOpenGl

#endif
