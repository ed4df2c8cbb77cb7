#ifndef ORVIKCAD_KERNEL_FREEFORMS_H
#define ORVIKCAD_KERNEL_FREEFORMS_H

#include <gp_Ax1.hxx>
#include <gp_Pln.hxx>

#include <optional>

class Adaptor3d_Curve;
class Adaptor3d_Surface;

/// What freeform curves and surfaces are that some systems write for planes, cylinders, spheres
/// and circles.
namespace OrvikCad {

enum class SimpleForm
{
    Plane,
    Cylinder,
    Sphere,
    Circle
};

/// The simple form that a freeform one has.
struct FoundForm
{
    SimpleForm form = SimpleForm::Plane;
    gp_Pln plane;        ///< Of a plane.
    gp_Ax1 axis;         ///< Of a cylinder or circle; of a sphere its location is the centre.
    double radius = 0.0; ///< Of what is round.
};

/// Looks at a bounded surface of any type at a grid of 9 x 9 places.
///
/// @return none where no simple form is met within 1e-6 of its size: what is only nearly round is
///         freeform.
/// @throws Standard_Failure  Where the kernel cannot evaluate the surface.
std::optional<FoundForm> FindForm(const Adaptor3d_Surface& surface);

/// Looks at a bounded curve of any type at 33 places. Finds circles only.
std::optional<FoundForm> FindForm(const Adaptor3d_Curve& curve);

} // namespace OrvikCad

#endif
