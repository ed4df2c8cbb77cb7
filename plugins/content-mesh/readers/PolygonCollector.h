#ifndef ORVIKMESH_READERS_POLYGONCOLLECTOR_H
#define ORVIKMESH_READERS_POLYGONCOLLECTOR_H

#include "readers/MeshData.h"
#include "readers/MeshReader.h"
#include "readers/ReadMessages.h"
#include "readers/Triangulate.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <vector>

namespace OrvikMesh {

/// Makes the triangles of a mesh from the faces of a file that names vertices by their number.
///
/// A face is left out and counted when it has fewer than three corners, an index out of range, or a
/// vertex that is not finite. Polygons are split, concave ones by cutting ears. One thread.
class PolygonCollector
{
public:
    /// @param mesh     Has all its positions already; its triangles are appended to.
    /// @param options  Outlives the collector; asked whether to stop at large polygons.
    PolygonCollector(MeshData& mesh, const ReadOptions& options);

    /// Makes room for so many triangles; a guess.
    void Reserve(std::size_t triangles) { m_mesh.triangles.Reserve(triangles * 3); }

    /// Adds a face.
    ///
    /// @param corners  Vertex indices, also out of range.
    /// @param offset   Of the face in the file, in bytes.
    void Add(const std::uint32_t* corners, std::size_t count, std::uint64_t offset)
    {
        if (count == 3 && isPlain(corners)) {
            m_mesh.triangles.PushBack(corners[0]);
            m_mesh.triangles.PushBack(corners[1]);
            m_mesh.triangles.PushBack(corners[2]);
        } else {
            addAny(corners, count, offset);
        }
    }

    /// The same for a face with a colour: four bytes, red, green, blue, alpha.
    void AddColored(const std::uint32_t* corners, std::size_t count, std::uint64_t offset,
                    const std::uint8_t* color);

    /// Adds strips of triangles, each ended by kNone; every second triangle is turned around.
    void AddStrips(const std::uint32_t* corners, std::size_t count, std::uint64_t offset);

    /// Says that a face could not be read.
    void AddUnreadable(std::uint64_t offset) { m_unreadable.Add(offset); }

    /// Appends triangles by a function that checks what it writes: it gets the room for
    /// @p most triangles and gives the number of those it wrote. Not with colours.
    void AppendChecked(std::size_t most,
                       const std::function<std::size_t(std::uint32_t* indices)>& write);

    std::uint32_t VertexCount() const { return m_vertexCount; }
    /// True when every vertex is finite, so that AppendChecked() only has to look at the range.
    bool AreVerticesFinite() const { return m_areVerticesFinite; }

    /// Ends the mesh: its one range, the colours of its faces, what was left out.
    ///
    /// @param placeOf  Turns an offset into the place that a message names.
    void Finish(ReadMessages& messages, const std::function<ReadPlace(std::uint64_t)>& placeOf);

private:
    bool isPlain(const std::uint32_t* corners) const
    {
        return m_areVerticesFinite && m_colors.IsEmpty() && corners[0] < m_vertexCount &&
               corners[1] < m_vertexCount && corners[2] < m_vertexCount;
    }
    void addFace(const std::uint32_t* corners, std::size_t count, std::uint64_t offset);
    void addAny(const std::uint32_t* corners, std::size_t count, std::uint64_t offset);
    bool isSound(const std::uint32_t* corners, std::size_t count, std::uint64_t offset);
    void fillColors(const std::uint8_t* color);

    MeshData& m_mesh;
    const ReadOptions& m_options;
    Triangulator m_triangulator;
    std::vector<std::uint32_t> m_split;
    MeshArray<std::uint8_t> m_colors; ///< Four per triangle; empty while no face has a colour.
    std::uint32_t m_vertexCount = 0;
    bool m_areVerticesFinite = true;
    Occurrences m_badIndices;
    Occurrences m_shortFaces;
    Occurrences m_nonFinite;
    Occurrences m_fanned;
    Occurrences m_unreadable;
};

} // namespace OrvikMesh

#endif
