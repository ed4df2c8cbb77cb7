#ifndef TAMBVIZCORE_VIZBOX_H
#define TAMBVIZCORE_VIZBOX_H

#include "TambVizCore/Export.h"

namespace TambVizCore {

/// An axis-aligned bounding box in world or local units; a small value.
///
/// A new box is empty: it holds no point, its corners are all 0, and adding to it makes the first
/// corner pair. A box of one point is not empty.
///
/// @thread Any thread, one at a time for one box.
class TAMBVIZCORE_API VizBox
{
public:
    VizBox() = default;

    /// Makes the smallest box that holds both corners, given in any order.
    VizBox(double x1, double y1, double z1, double x2, double y2, double z2);

    bool IsEmpty() const { return m_empty; }

    /// Makes the box empty.
    void Clear();

    /// Grows the box to hold a point; a point with a component that is not finite is ignored.
    void Add(double x, double y, double z);

    /// Grows the box to hold float[3]; same rule.
    void Add(const float* point);

    /// Grows the box to hold another; an empty one changes nothing.
    void Add(const VizBox& other);

    /// @return double[3], the low corner; zeros while empty. Valid while the box lives.
    const double* Lo() const { return m_lo; }

    /// @return double[3], the high corner; zeros while empty. Valid while the box lives.
    const double* Hi() const { return m_hi; }

    /// Writes the middle as float[3]; zeros while empty.
    void GetCenter(float* center) const;

    /// @return half the diagonal, the radius of the sphere around the box; 0 while empty.
    double Radius() const;

    /// @return true when the point lies inside or on the surface.
    bool Contains(double x, double y, double z) const;

    /// @return the box around the eight transformed corners; empty when this one is.
    /// @param matrix  double[16] column-major, affine.
    VizBox Transformed(const double* matrix) const;

    /// Finds where a line enters and leaves the box grown by @p margin on all sides.
    ///
    /// @param origin, direction  float[3]; the direction may have any length but 0.
    /// @param tMin, tMax         in: the piece of the line to look at; out: the piece inside. In
    ///                           units of the direction's length. Unchanged on false.
    /// @return false when the piece does not meet the box, or the box is empty.
    bool Clip(const float* origin, const float* direction, double margin, double& tMin,
              double& tMax) const;

    /// Equal when both are empty or all six numbers are equal.
    bool operator==(const VizBox& other) const;

private:
    double m_lo[3] = {0.0, 0.0, 0.0};
    double m_hi[3] = {0.0, 0.0, 0.0};
    bool m_empty = true;
};

} // namespace TambVizCore

#endif
