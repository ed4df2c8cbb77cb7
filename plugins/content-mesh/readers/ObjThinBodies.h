#ifndef ORVIKMESH_READERS_OBJTHINBODIES_H
#define ORVIKMESH_READERS_OBJTHINBODIES_H

#include "readers/MeshData.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <span>
#include <tuple>
#include <vector>

namespace OrvikMesh {

/// Collects the lines and points of an OBJ file by object and group.
class ObjThinBodies
{
public:
    /// The most of them; what belongs to more goes to the last.
    static constexpr std::size_t kMostBodies = 10000;

    /// @param points  Three per point of the file; outlives the collector.
    /// @param colors  Four per point, or empty; likewise.
    ObjThinBodies(const MeshArray<float>& points, const MeshArray<std::uint8_t>& colors)
        : m_points(points), m_colors(colors)
    {
    }

    /// Adds a polyline of two points or more.
    /// @param place  Whose object, group and material hold for it.
    void AddLine(std::span<const std::uint32_t> points, const MeshRange& place);
    /// Adds points.
    void AddPoints(std::span<const std::uint32_t> points, const MeshRange& place);

    bool HasLines() const { return m_hasLines; }

    /// Hands over what was collected, in the order of first appearance.
    std::vector<MeshThin> Take() { return std::move(m_bodies); }

private:
    MeshThin& bodyFor(bool isLines, const MeshRange& place);
    std::uint32_t vertexOf(std::uint32_t point, MeshThin& body);

    const MeshArray<float>& m_points;
    const MeshArray<std::uint8_t>& m_colors;
    std::vector<MeshThin> m_bodies;
    std::map<std::tuple<bool, std::uint32_t, std::uint32_t>, std::size_t> m_positions;
    std::size_t m_current = static_cast<std::size_t>(-1); ///< Position of the body in hand.
    std::uint32_t m_run = 0;                              ///< Counts changes of the body in hand.
    MeshArray<std::uint32_t> m_vertex; ///< Per point: its vertex in the body in hand.
    MeshArray<std::uint32_t> m_stamp;  ///< Per point: the run for which m_vertex holds.
    bool m_hasLines = false;
};

} // namespace OrvikMesh

#endif
