#ifndef ORVIKMESH_WRITERS_BODYPLACEMENT_H
#define ORVIKMESH_WRITERS_BODYPLACEMENT_H

#include "writers/MeshToWrite.h"

#include <array>
#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// Gives the vertices and triangles of a body as they stand in the file: transformed, and turned
/// around where the transform mirrors. A transform that changes nothing changes no bit.
class BodyPlacement
{
public:
    /// @param body  Outlives the placement.
    explicit BodyPlacement(const BodyToWrite& body);

    std::array<float, 3> Position(std::size_t vertex) const;
    /// @return unit length or zero; the body has normals.
    std::array<float, 3> Normal(std::size_t vertex) const;
    std::array<std::uint32_t, 3> Triangle(std::size_t triangle) const;
    /// @return the colour of the vertex, of the body, or white.
    std::array<std::uint8_t, 4> Color(std::size_t vertex) const;

private:
    const BodyToWrite& m_body;
    bool m_isIdentity = true;
    bool m_isMirrored = false;
    std::array<double, 9> m_cofactors{}; ///< Of the linear portion, column-major: moves normals.
    std::array<std::uint8_t, 4> m_color{255, 255, 255, 255};
};

/// The bodies of a mesh that a format takes, and their counts.
struct WritableBodies
{
    std::vector<const BodyToWrite*> bodies;
    std::size_t vertices = 0;
    std::size_t triangles = 0;
    std::size_t cloudsLeftOut = 0;
    std::size_t wiresLeftOut = 0;
    bool arePoints = false; ///< All bodies are point clouds.

    bool HaveNormals() const; ///< All of them.
    bool HaveColors() const;  ///< Any of them.
};

/// What a file of some format can hold.
enum class FileHolds
{
    Triangles,
    TrianglesOrPoints, ///< The one or the other; triangles go first.
    All,               ///< Also lines, and all of it beside each other.
};

/// Chooses the bodies that a file can hold.
WritableBodies ChooseBodies(const MeshToWrite& mesh, FileHolds holds);

} // namespace OrvikMesh

#endif
