#ifndef ORVIKMESH_READERS_OBJASSEMBLER_H
#define ORVIKMESH_READERS_OBJASSEMBLER_H

#include "readers/MeshData.h"
#include "readers/MeshReader.h"
#include "readers/ObjPiece.h"
#include "readers/ObjThinBodies.h"
#include "readers/ObjVertices.h"
#include "readers/ReadMessages.h"
#include "readers/Triangulate.h"

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace OrvikMesh {

/// Makes one mesh of the pieces of an OBJ file: resolves indices, splits polygons, gives each
/// different pair of point and normal one vertex in the order of first use, and collects lines,
/// points and names. Points that no element uses are left out. One thread.
class ObjAssembler
{
public:
    /// @param text   The whole file, for the lines in messages.
    /// @param options  Outlives the assembler; asked whether to stop at large polygons.
    /// @param mesh   Empty; filled by Add() and Finish().
    ObjAssembler(std::string_view text, const ReadOptions& options, MeshData& mesh);

    /// Takes the points of all pieces; before the first Add().
    ///
    /// @throws std::length_error when there are more than 2^30 - 1 points or normals.
    void TakePoints(std::deque<ObjPiece>& pieces);

    /// Adds the faces of the next piece in the order of the file.
    void Add(const ObjPiece& piece);

    /// Completes the mesh and says what was left out.
    void Finish(ReadMessages& messages);

    /// True when there was a face, if only a bad one, or a line.
    bool HasFacesOrLines() const { return m_hasFaces || m_thin.HasLines(); }

    /// Makes a point cloud of all points; after Finish(), when there are neither faces nor lines.
    /// Normals are theirs where there are as many.
    ///
    /// @return false with an error when there is none.
    bool MakeCloud(ReadMessages& messages);

    /// Names of the material libraries, each once, as they stand in the file.
    const std::vector<std::string>& Libraries() const { return m_libraries; }
    /// Names of the materials, in the order of MeshData::materials, as they stand in the file.
    const std::vector<std::string>& MaterialNames() const { return m_materialNames.names; }

private:
    /// Numbers names in the order of their first appearance.
    struct NameTable
    {
        std::vector<std::string> names;
        std::unordered_map<std::string, std::uint32_t> indices;

        std::uint32_t IndexOf(const std::string& name);
    };

    /// Where the indices of a piece count from, and what stands before it.
    struct Base
    {
        std::uint32_t vertex = 0;
        std::uint32_t normal = 0;
    };

    void addFace(const ObjScan& scan, const ObjCorner* corners, const ObjFace& face);
    void addThin(const ObjCorner* corners, const ObjFace& element, std::uint64_t offset);
    bool resolveFace(const ObjScan& scan, const ObjCorner* corners, const ObjFace& face);
    void appendFace(std::size_t cornerCount);
    void applyName(const ObjName& name);
    void endRange();
    void warn(ReadMessages& messages, const wchar_t* reason, const Occurrences& occurrences) const;
    void addCounts(const ObjScan& scan);

    std::string_view m_text;
    const ReadOptions& m_options;
    MeshData& m_mesh;
    Triangulator m_triangulator;

    ObjVertices m_vertices;
    Base m_base;

    std::vector<std::uint32_t> m_facePoints; ///< Of the face in hand.
    std::vector<std::uint32_t> m_faceNormals;
    std::vector<std::uint32_t> m_faceTriangles;

    NameTable m_objectNames;
    NameTable m_groupNames;
    NameTable m_materialNames;
    std::vector<std::string> m_libraries;
    MeshRange m_range; ///< The run that is being filled.
    ObjThinBodies m_thin{m_vertices.Points(), m_vertices.PointColors()};

    Occurrences m_badIndices;
    Occurrences m_badNormals;
    Occurrences m_nonFinite;
    Occurrences m_fanned;
    Occurrences m_zeroIndices;
    Occurrences m_shortFaces;
    Occurrences m_badNumbers;
    Occurrences m_junkLines;
    Occurrences m_badThin;
    Occurrences m_leftOut;
    bool m_hasFaces = false;
};

} // namespace OrvikMesh

#endif
