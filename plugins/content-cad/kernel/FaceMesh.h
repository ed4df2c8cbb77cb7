#ifndef ORVIKCAD_KERNEL_FACEMESH_H
#define ORVIKCAD_KERNEL_FACEMESH_H

#include "kernel/ShapeMesh.h"

#include <Geom_Surface.hxx>
#include <Poly_Triangulation.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS_Face.hxx>

#include <cstdint>
#include <vector>

namespace OrvikCad {

/// The arrays of a mesh while they grow.
struct MeshArrays
{
    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<std::uint32_t> triangles;
    double volume = 0.0; ///< Six times the volume that the triangles enclose with the origin.

    std::uint32_t VertexCount() const { return static_cast<std::uint32_t>(positions.size() / 3); }
};

/// Appends the triangles of one face with the normals of its surface, pointing out of the body.
///
/// @param samples  receives where the vertices lie on the surface, for surfaces that have no closed
///                 formula for where a line meets them; left empty for the others.
/// @return false when a coordinate is not finite; nothing is appended then.
bool AppendFace(const TopoDS_Face& face, const Handle(Poly_Triangulation) & triangles,
                const TopLoc_Location& place, MeshArrays& arrays,
                std::vector<SurfacePoint>& samples);

/// Whether a line meets that surface by a closed formula.
bool HasClosedForm(const Handle(Geom_Surface) & surface);

} // namespace OrvikCad

#endif
