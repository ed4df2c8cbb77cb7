#ifndef VIEWOPENGL_DETAILLEVELS_H
#define VIEWOPENGL_DETAILLEVELS_H

#include "TimeSlice.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace TambVizCore {
class Geometry;
}

namespace ViewOpenGl {

/// Primitives of one kind, over the vertices of the geometry that they come from.
struct DetailPrimitives
{
    std::vector<std::uint32_t> indices;
    std::vector<std::uint32_t> sources; ///< For each primitive that of the geometry it stands for.
};

/// A coarser version of a geometry.
struct DetailLevel
{
    double cell = 0.0;                          ///< No vertex moved farther than its diagonal.
    std::array<DetailPrimitives, 3> primitives; ///< Triangles, segments, points.
};

/// Makes coarser versions of a geometry, in slices: all vertices in a cell of a grid become the one
/// nearest to its middle, and what has become flat or is there already is left out (Rossignac and
/// Borrel, 1993).
///
/// Neighbours stay neighbours, so no gaps open; small holes close. Unlike a library's, the work
/// stops at any vertex and goes on later, so no frame waits for it.
/// @thread The thread that created it.
class DetailBuilder
{
public:
    /// Works on.
    ///
    /// @param geometry  the same one in every call.
    /// @return true when the levels are complete.
    bool Continue(const TambVizCore::Geometry& geometry, const TimeSlice& slice);

    /// @return the levels from fine to coarse, each with clearly fewer primitives than the one
    ///         before; none where that cannot be had.
    std::vector<DetailLevel>& Levels() { return m_levels; }

private:
    /// A cell of the grid that holds a vertex.
    struct Cluster
    {
        std::uint32_t vertex = 0; ///< Nearest to the middle so far.
        float distance = 0.0f;    ///< Its distance, squared.
    };

    void beginGrid(const TambVizCore::Geometry& geometry);
    bool gatherVertices(const TambVizCore::Geometry& geometry, const TimeSlice& slice);
    bool mapPrimitives(const TambVizCore::Geometry& geometry, const TimeSlice& slice);
    void addVertex(const TambVizCore::Geometry& geometry, std::uint32_t vertex);
    std::uint32_t findCluster(std::uint32_t cell);
    void growTable();
    void beginKind(const TambVizCore::Geometry& geometry);
    bool isKnown(std::size_t kind, const std::uint32_t* corners);
    std::size_t findPrimitive(std::size_t kind, const std::uint32_t* corners) const;
    void mapPrimitive(const std::uint32_t* corners, std::size_t kind, std::uint32_t source);
    bool endGrid(const TambVizCore::Geometry& geometry);
    std::size_t primitiveCount(const TambVizCore::Geometry& geometry) const;

    enum class Step
    {
        Begin,
        Gather,
        Map,
        Done
    };

    std::vector<DetailLevel> m_levels;
    Step m_step = Step::Begin;
    std::size_t m_grid = 0;                 ///< Which grid, from fine to coarse.
    DetailLevel m_level;                    ///< Under way.
    std::size_t m_next = 0;                 ///< Vertex or primitive to go on with.
    std::size_t m_kind = 0;                 ///< Kind to go on with.
    double m_lo[3] = {};                    ///< Corner of the grid.
    std::vector<Cluster> m_clusters;        ///< By the order of their first vertex.
    std::vector<std::uint32_t> m_clusterOf; ///< For each vertex.
    std::vector<std::uint32_t> m_keys;      ///< Hash table: cells, and their clusters beside.
    std::vector<std::uint32_t> m_values;
    std::vector<std::uint32_t> m_table; ///< Hash table: primitives of the level, from 1.
    std::vector<std::uint32_t> m_kept;  ///< The vertices of the level before.
};

} // namespace ViewOpenGl

#endif
