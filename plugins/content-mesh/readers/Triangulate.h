#ifndef ORVIKMESH_READERS_TRIANGULATE_H
#define ORVIKMESH_READERS_TRIANGULATE_H

#include "readers/MeshArray.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace OrvikMesh {

/// Splits polygons of four and more corners into triangles by cutting ears; keeps its work arrays
/// between calls. One thread.
class Triangulator
{
public:
    /// Polygons with more corners are split as a fan: cutting ears takes the square of their
    /// number.
    static constexpr std::size_t kMaxEarCorners = 1024;

    /// Polygons with more corners may take a while: up to some ten milliseconds.
    static constexpr std::size_t kManyCorners = 64;

    /// Splits one polygon, which may be concave and need not be quite flat.
    ///
    /// @param positions  Three floats per vertex.
    /// @param corners    Vertex indices, at least 3, in order around the polygon.
    /// @param triangles  Receives 3 * (count - 2) positions within @p corners, wound as the
    /// polygon.
    /// @return false when the polygon has too many corners and became a fan.
    bool Split(const float* positions, const std::uint32_t* corners, std::size_t count,
               std::vector<std::uint32_t>& triangles);

private:
    struct Flat
    {
        double x;
        double y;
    };

    void flatten(const float* positions, const std::uint32_t* corners, std::size_t count);
    bool isConvex() const;
    bool isEar(std::size_t before, std::size_t tip, std::size_t after) const;
    void cutEars(std::vector<std::uint32_t>& triangles);
    double turn(std::size_t a, std::size_t b, std::size_t c) const;

    std::vector<Flat> m_points;        ///< Projected, counter-clockwise.
    std::vector<std::uint32_t> m_ring; ///< Corners that are left.
};

} // namespace OrvikMesh

#endif
