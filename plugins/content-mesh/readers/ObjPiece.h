#ifndef ORVIKMESH_READERS_OBJPIECE_H
#define ORVIKMESH_READERS_OBJPIECE_H

#include "readers/MeshArray.h"
#include "readers/ObjKernel.h"

#include <string>
#include <string_view>
#include <vector>

namespace OrvikMesh {

/// A line that names an object, a group, a material or a material library, and what it precedes.
struct ObjName
{
    enum class Kind
    {
        Object,
        Group,
        Material,
        Library,
    };
    Kind kind = Kind::Group;
    std::uint32_t face = 0; ///< The first face of the piece that comes after it.
    std::string name;       ///< Without blanks at its ends; may be empty.
};

/// A run of whole lines of an OBJ file and what they hold.
class ObjPiece
{
public:
    /// @param lines  Ends at the end of a line that does not continue, or of the file; stays alive.
    explicit ObjPiece(std::string_view lines);

    /// Reads the lines; once.
    void Read();

    /// What was found; its arrays belong to this piece.
    const ObjScan& Scan() const { return m_scan; }
    const std::vector<ObjName>& Names() const { return m_names; }

    /// Frees what was found, but for the counts.
    void Release();

private:
    void scanLines();
    void scanContinued();
    void addName();
    void makeRoom();
    void addColors();

    ObjScan m_scan;
    std::vector<ObjName> m_names;
    MeshArray<float> m_positions;
    MeshArray<std::uint8_t> m_colors;
    MeshArray<float> m_normals;
    MeshArray<ObjCorner> m_corners;
    MeshArray<ObjFace> m_faces;
};

/// Cuts a text into pieces of about @p pieceBytes, between statements.
std::vector<std::string_view> CutObjText(std::string_view text, std::size_t pieceBytes);

} // namespace OrvikMesh

#endif
