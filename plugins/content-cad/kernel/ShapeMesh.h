#ifndef ORVIKCAD_KERNEL_SHAPEMESH_H
#define ORVIKCAD_KERNEL_SHAPEMESH_H

#include <TambVizCore/Geometry.h>

#include <cstdint>
#include <memory>
#include <vector>

namespace OrvikCad {

/// How finely one shape is cut, in its own units.
struct MeshParameters
{
    double sag = 0.0;          ///< Greatest distance of a chord from its curve; above 0.
    double angleRadians = 0.0; ///< Greatest angle between neighbouring chords; above 0.

    bool operator==(const MeshParameters& other) const = default;
};

/// Where a vertex of a face lies on the face's surface.
struct SurfacePoint
{
    float position[3];
    float u;
    float v;
};

/// The places of the vertices of one face without a closed formula, from which the exact hit is
/// looked for.
struct FaceSamples
{
    std::uint32_t face = 0; ///< From 0.
    std::vector<SurfacePoint> points;
};

/// Those of one mesh, in ascending order of the faces.
using MeshSamples = std::vector<FaceSamples>;

/// A shape cut into triangles, segments and points.
struct ShapeMesh
{
    std::shared_ptr<const TambVizCore::Geometry> geometry; ///< Null before the first cut.
    std::shared_ptr<const MeshSamples> samples;            ///< Likewise.
    MeshParameters parameters;
    std::uint32_t failedFaces = 0; ///< Faces without triangles though they have a surface.
};

} // namespace OrvikCad

#endif
