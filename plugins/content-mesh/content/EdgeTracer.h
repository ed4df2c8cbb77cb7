#ifndef ORVIKMESH_CONTENT_EDGETRACER_H
#define ORVIKMESH_CONTENT_EDGETRACER_H

#include "content/TriangleSides.h"

#include <cstdint>
#include <vector>

namespace OrvikMesh {

/// The creases of a mesh as lines and the points where they end.
struct TracedEdges
{
    /// A run of segments.
    struct Edge
    {
        std::uint32_t first;
        std::uint32_t count;
    };

    std::vector<std::uint32_t> segments; ///< Two vertex indices each, edge by edge.
    std::vector<Edge> edges;
    std::vector<std::uint32_t> vertices; ///< Vertex indices of corners, in rising order of points.
};

/// Strings creases together to lines.
///
/// A line ends at a corner: a point where not exactly two creases meet, where the patches beside
/// them change, or where the line bends by more than @p cornerAngleDegrees. Lines begin with their
/// first crease in the order of @p sides.
///
/// @param positions  Three floats per vertex.
TracedEdges TraceEdges(const TriangleSides& sides, const float* positions,
                       double cornerAngleDegrees);

} // namespace OrvikMesh

#endif
