#include "objects/PixelSize.h"

#include <algorithm>

namespace ViewOpenGl {
namespace {

/// A row of the view applied to a point.
double along(const Projection& projection, int row, const double* point)
{
    const double* const m = projection.view + row;
    return m[0] * point[0] + m[4] * point[1] + m[8] * point[2] + m[12];
}

} // namespace

double PictureScale::PixelAt(const double* point) const
{
    const double pixel = projection.pixelSize * pixelScale;
    if (projection.orthographic)
        return pixel;
    // What lies behind the eye is not seen; its size does not matter.
    const double depth = -along(projection, 2, point);
    return pixel * std::max(depth, 1e-6);
}

std::array<double, 2> PictureScale::PlaceOf(const double* point) const
{
    const double pixel = PixelAt(point);
    return {along(projection, 0, point) / pixel, along(projection, 1, point) / pixel};
}

} // namespace ViewOpenGl
