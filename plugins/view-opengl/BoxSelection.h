#ifndef VIEWOPENGL_BOXSELECTION_H
#define VIEWOPENGL_BOXSELECTION_H

#include "Projection.h"
#include "objects/RubberBand.h"

#include <vector>

namespace TambVizCore {
class EntityId;
class Node;
class RenderingOptions;
} // namespace TambVizCore

namespace ViewOpenGl {

/// What a rectangle in the window asks for.
struct BoxQuery
{
    PixelRectangle rectangle; ///< Corners in any order.
    int width = 0;            ///< Of the window, pixels.
    int height = 0;
    /// True: bodies of which something lies in the rectangle; false: those that lie in it wholly.
    bool touching = false;
};

/// Finds the bodies in a rectangle of the window, in the order of the scene, each once: visible,
/// not auxiliary, with an entity. What section planes cut away does not count.
///
/// @param projection  that of the window's picture.
std::vector<TambVizCore::EntityId> FindInBox(const TambVizCore::Node& root,
                                             const TambVizCore::RenderingOptions& options,
                                             const Projection& projection, const BoxQuery& query);

} // namespace ViewOpenGl

#endif
