#ifndef ORVIKCAD_KERNEL_EXACTSURFACES_H
#define ORVIKCAD_KERNEL_EXACTSURFACES_H

#include "kernel/LineMeeting.h"
#include "kernel/ShapeMesh.h"
#include "kernel/ShapeParts.h"

#include <Geom_Surface.hxx>
#include <OrvikModel/ModelShape.h>
#include <TopoDS_Face.hxx>
#include <gp_Cone.hxx>
#include <gp_Cylinder.hxx>
#include <gp_Pln.hxx>
#include <gp_Sphere.hxx>
#include <gp_Trsf.hxx>

#include <optional>
#include <variant>
#include <vector>

namespace OrvikCad {

/// The surfaces of a shape's faces, ready for lines to be met with.
///
/// @thread  Any thread; nothing changes after it was made.
class ExactSurfaces
{
public:
    explicit ExactSurfaces(const ShapeParts& parts);

    /// Finds where a line meets the surface of a face near to where it met a triangle of the face.
    ///
    /// Planes, cylinders, cones and spheres are met by formula. On others the place is looked for
    /// by Newton's method, from the vertex of the face's triangles that lies nearest.
    ///
    /// @param samples  Of the mesh that the triangle belongs to.
    /// @param sag      With which it was cut.
    /// @return false when the surface is not met within what the tessellation allows, or the kernel
    ///         failed.
    bool Meet(const MeshSamples& samples, double sag, const OrvikModel::FacetHit& facet,
              OrvikModel::RefinedHit& hit) const;

    /// @return the bytes that are held here; the surfaces are the kernel's.
    std::size_t MemoryBytes() const
    {
        return sizeof *this + m_surfaces.capacity() * sizeof(Surface);
    }

private:
    struct Surface
    {
        Handle(Geom_Surface) geometry; ///< Without trimming; null for a face without a surface.
        /// What a line meets by formula; nothing for other surfaces.
        std::variant<std::monostate, gp_Pln, gp_Cylinder, gp_Cone, gp_Sphere> form;
        gp_Trsf place;   ///< From the surface to the shape.
        gp_Trsf inverse; ///< From the shape to the surface.
        /// The body lies on the side to which the product of the derivatives, each placed, points.
        bool isFlipped = false;
    };
    static void fill(const TopoDS_Face& face, Surface& surface);
    static std::optional<LineMeeting> meet(const Surface& surface, const MeshSamples& samples,
                                           std::uint32_t face, const NearLine& line);

    std::vector<Surface> m_surfaces; ///< Per face.
};

} // namespace OrvikCad

#endif
