#ifndef VIEWOPENGL_OBJECTS_PIXELSIZE_H
#define VIEWOPENGL_OBJECTS_PIXELSIZE_H

#include "Projection.h"

#include <array>

namespace ViewOpenGl {

/// How a picture shows the world, for what keeps its size in pixels.
struct PictureScale
{
    Projection projection;
    double pixelScale = 1.0; ///< Pixels of the picture per pixel of the window.

    /// @param point  double[3], world units.
    /// @return the length of a pixel of the window there, world units; above 0.
    double PixelAt(const double* point) const;

    /// @param point  double[3], world units.
    /// @return how far right of and above the middle of the picture it is seen, pixels of the
    ///         window.
    std::array<double, 2> PlaceOf(const double* point) const;
};

} // namespace ViewOpenGl

#endif
