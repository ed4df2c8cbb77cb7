#ifndef ORVIKCAD_KERNEL_LINEMEETING_H
#define ORVIKCAD_KERNEL_LINEMEETING_H

#include <Geom_Surface.hxx>
#include <gp_Cone.hxx>
#include <gp_Cylinder.hxx>
#include <gp_Pln.hxx>
#include <gp_Pnt.hxx>
#include <gp_Sphere.hxx>
#include <gp_Vec.hxx>

#include <optional>

namespace OrvikCad {

/// A line by a point that lies near to where it is to meet a surface, and a direction of any length
/// but 0.
struct NearLine
{
    gp_Pnt point;
    gp_Vec direction;
    bool isAgainstNormal = true; ///< How it passes the surface, by the product of the derivatives.
};

/// Where a line meets a surface.
struct LineMeeting
{
    double parameter = 0.0; ///< From the line's point, in multiples of its direction.
    gp_Vec normal;          ///< The product of the surface's derivatives, of any length.
};

// Each finds the place that lies nearest to the line's point among those where the line passes to
// the side that it tells; none where the line passes by.

std::optional<LineMeeting> MeetPlane(const gp_Pln& plane, const NearLine& line);
std::optional<LineMeeting> MeetCylinder(const gp_Cylinder& cylinder, const NearLine& line);
std::optional<LineMeeting> MeetCone(const gp_Cone& cone, const NearLine& line);
std::optional<LineMeeting> MeetSphere(const gp_Sphere& sphere, const NearLine& line);

/// Looks for the place by Newton's method for three unknowns, from the parameters @p u and @p v;
/// none where it does not settle.
std::optional<LineMeeting> MeetSurface(const Geom_Surface& surface, double u, double v,
                                       const NearLine& line);

} // namespace OrvikCad

#endif
