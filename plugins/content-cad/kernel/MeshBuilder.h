#ifndef ORVIKCAD_KERNEL_MESHBUILDER_H
#define ORVIKCAD_KERNEL_MESHBUILDER_H

#include "kernel/ShapeMesh.h"
#include "kernel/ShapeParts.h"

#include <TopoDS_Shape.hxx>

namespace OrvikCad {

/// Collects the triangles that the kernel has left in a shape, with normals from the surfaces, and
/// the segments of its edges and the points of its vertices.
///
/// Neighbouring faces do not share vertices; the segments of an edge run over the vertices of the
/// first face at it. Seams (where a face meets itself) and degenerated edges draw nothing. Edges
/// without a face are cut here.
ShapeMesh BuildMesh(const TopoDS_Shape& shape, const ShapeParts& parts,
                    const MeshParameters& parameters);

/// @return a mesh that draws nothing.
ShapeMesh EmptyMesh(const MeshParameters& parameters);

} // namespace OrvikCad

#endif
