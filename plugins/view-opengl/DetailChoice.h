#ifndef VIEWOPENGL_DETAILCHOICE_H
#define VIEWOPENGL_DETAILCHOICE_H

#include "FrameCost.h"
#include "FrameItems.h"

#include <vector>

namespace TambVizCore {
class RenderingOptions;
}

namespace ViewOpenGl {

/// How coarse a frame is.
struct Coarseness
{
    double cellPixels = 0.0; ///< Versions are drawn whose cells are at most so large; 0 for none.
    double bodyPixels = 0.0; ///< Smaller bodies are left out.
    bool edges = true;
    bool boxes = false; ///< Large bodies without a version that is coarse enough are boxes.
};

/// @return what drawing the bodies as they are marked costs.
/// @param edges  whether their edges are drawn.
FrameWork WorkOf(const std::vector<FrameItem>& items, const TambVizCore::RenderingOptions& options,
                 bool edges);

/// Marks in each body how it is drawn: by a coarser version, as a box, not at all.
void Apply(const Coarseness& coarseness, std::vector<FrameItem>& items);

/// Marks the bodies so that drawing them takes at most some time, as the model has it, or as little
/// as it can be: first coarser versions, then no edges, then only large bodies.
///
/// @param rest  what else is drawn in the frame.
/// @return how coarse it became.
Coarseness FitBudget(const CostModel& model, double milliseconds, const FrameWork& rest,
                     const TambVizCore::RenderingOptions& options, std::vector<FrameItem>& items);

} // namespace ViewOpenGl

#endif
