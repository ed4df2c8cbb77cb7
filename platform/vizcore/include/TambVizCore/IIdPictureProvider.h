#ifndef TAMBVIZCORE_IIDPICTUREPROVIDER_H
#define TAMBVIZCORE_IIDPICTUREPROVIDER_H

#include "TambVizCore/Export.h"
#include "TambVizCore/RenderId.h"

#include <cstdint>
#include <vector>

namespace TambVizCore {

/// What is drawn at each pixel of a picture, by name.
struct IdPicture
{
    int width = 0;
    int height = 0;
    /// By row from the top, width numbers each: 0 where nothing of the model is drawn, else the
    /// position in #items plus 1.
    std::vector<std::uint32_t> pixels;
    /// The same order: how far along the viewing direction what is drawn lies from the eye, world
    /// units; 0 where the pixel is 0.
    std::vector<float> depths;
    /// What pixels name: a part of a node (face, edge or vertex), or a node where what is drawn
    /// belongs to no part. Each once, in no order; only what may be seen.
    std::vector<RenderId> items;
};

/// A view that can say what it draws at each pixel of a picture: an oracle for tests of picks, and
/// a map for programs that look at pictures.
///
/// @thread Main thread.
class TAMBVIZCORE_API IIdPictureProvider
{
public:
    virtual ~IIdPictureProvider();

    /// Draws the model as a picture of that size shows it, without antialiasing. What is hidden or
    /// cut away is left out, and so is what lies beside the model (axes, drawings). What is
    /// transparent counts as opaque. A cap belongs to the node that it closes.
    ///
    /// @return false, with @p picture untouched, when nothing can be drawn or the size is not one
    ///         that the view can draw; the debug output says why.
    virtual bool ReadIdPicture(int width, int height, IdPicture& picture) = 0;
};

} // namespace TambVizCore

#endif
