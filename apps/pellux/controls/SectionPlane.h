#ifndef PELLUX_CONTROLS_SECTIONPLANE_H
#define PELLUX_CONTROLS_SECTIONPLANE_H

#include <TambCommandsInfra/Value.h>
#include <TambVizCore/ClipPlane.h>
#include <TambVizCore/VizBox.h>

#include <QString>
#include <array>
#include <vector>

namespace Pellux {

/// A plane as a person sets it: where it lies along its axis, and which side it cuts away. A value.
struct SectionPlane
{
    std::array<double, 3> axis = {0.0, 0.0, 1.0}; ///< Unit length.
    double position = 0.0;                        ///< Along the axis, world units.
    bool isFlipped = false;                       ///< Cuts away what lies behind, not before.

    bool operator==(const SectionPlane& other) const = default;

    /// Reads a plane of a view: one along a coordinate axis as that axis, pointing forwards.
    static SectionPlane FromClipPlane(const TambVizCore::ClipPlane& plane);

    /// @return 0, 1 or 2 for an axis of the coordinates, 3 for any other.
    int AxisNumber() const;

    /// The normal that view:section takes: towards what is cut away.
    std::array<double, 3> Normal() const;
    std::array<double, 3> Point() const;

    /// The arguments of view:section.
    std::vector<TambCommandsInfra::Value> Arguments(int number) const;
    /// The call of view:section; numbers have the digits that a plane of single precision keeps.
    QString Form(int number) const;

    /// Where a box begins and ends along the axis, world units; 0 and 0 for an empty one.
    std::array<double, 2> Range(const TambVizCore::VizBox& box) const;

    /// @return a position that a slider gives with no more decimals than it can tell apart over a
    ///         range: a thousandth of it, or a part of that.
    static double Rounded(double position, double range);
};

} // namespace Pellux

#endif
