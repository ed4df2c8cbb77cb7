#ifndef VIEWOPENGL_DETAILCHOICE_H
#define VIEWOPENGL_DETAILCHOICE_H

#include "FrameCost.h"
#include "FrameItems.h"

#include <vector>

namespace TambVizCore {
class RenderingOptions;
}

namespace ViewOpenGl {

/// Which bodies are drawn as their boxes; those that are not in graphics memory yet always are.
enum class Boxes
{
    None,
    WithoutVersion, ///< Large bodies that have no coarser version.
    AllDearer       ///< All that take more than a box.
};

/// How coarse a frame is.
struct Coarseness
{
    double cellPixels = 0.0; ///< Versions are drawn whose cells are at most so large; 0 for none.
    double bodyPixels = 0.0; ///< Smaller bodies are left out.
    bool edges = true;       ///< Of bodies that show faces.
    Boxes boxes = Boxes::None;
    double scale = 1.0; ///< Share of the window's width and height that is drawn and stretched.
};

/// @return whether the edges of a body are seen.
/// @param edges  see Coarseness.
bool ShowsEdges(const FrameItem& item, const TambVizCore::RenderingOptions& options, bool edges);

/// @return whether the vertices of a body are seen.
bool ShowsVertices(const FrameItem& item, const TambVizCore::RenderingOptions& options);

/// @return what drawing the bodies as they are marked costs.
/// @param edges  see Coarseness.
FrameWork WorkOf(const std::vector<FrameItem>& items, const TambVizCore::RenderingOptions& options,
                 bool edges);

/// Marks in each body how it is drawn: by a coarser version, as a box, not at all.
void Apply(const Coarseness& coarseness, std::vector<FrameItem>& items);

/// @return what is drawn of some work in a frame that is coarse: fewer pixels.
FrameWork Shrunk(const FrameWork& work, const Coarseness& coarseness);

/// Marks the bodies so that drawing them takes at most some time, as the model has it: by coarser
/// versions, in fewer pixels, without edges, as boxes, and last only the largest bodies.
///
/// Something fits however dear the bodies are, but for a single one. Where the rest alone takes
/// nearly all of the time or more, even in the fewest pixels, they get a quarter of it on top.
///
/// @param rest   what else is drawn in the frame, as Shrunk() takes it.
/// @param order  Overwritten; kept by the caller for its memory.
/// @return how coarse it became.
Coarseness FitBudget(const CostModel& model, double milliseconds, const FrameWork& rest,
                     const TambVizCore::RenderingOptions& options, std::vector<FrameItem>& items,
                     std::vector<FrameItem*>& order);

} // namespace ViewOpenGl

#endif
