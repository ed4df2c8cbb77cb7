#ifndef TAMBVIZCORE_CLIPPLANE_H
#define TAMBVIZCORE_CLIPPLANE_H

namespace TambVizCore {

/// A section plane: points p with normal . p + offset >= 0 are kept, the others are cut away.
struct ClipPlane
{
    bool operator==(const ClipPlane& other) const = default;

    /// @param point  float[3] in the units of the plane.
    bool Keeps(const float* point) const
    {
        return normal[0] * point[0] + normal[1] * point[1] + normal[2] * point[2] + offset >= 0.0f;
    }

    float normal[3] = {0.0f, 0.0f, 1.0f};
    float offset = 0.0f;
};

} // namespace TambVizCore

#endif
