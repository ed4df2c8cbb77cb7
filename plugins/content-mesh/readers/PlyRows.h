#ifndef ORVIKMESH_READERS_PLYROWS_H
#define ORVIKMESH_READERS_PLYROWS_H

#include "readers/MeshReader.h"
#include "readers/PlyHeader.h"
#include "readers/PolygonCollector.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace OrvikMesh {

/// Reads the rows of the elements of a PLY file, one element after the other. One thread.
///
/// Each operation gives the number of rows that it read: fewer than the element announces when the
/// file ended. Nothing is believed of a count before the rows are there.
class PlyRows
{
public:
    virtual ~PlyRows() = default;
    PlyRows(const PlyRows&) = delete;
    PlyRows& operator=(const PlyRows&) = delete;

    /// Reads positions, normals and colours. A coordinate that is missing or no number becomes
    /// not-a-number.
    virtual std::uint64_t ReadVertices(const PlyElement& element, MeshData& mesh) = 0;
    /// Reads faces or strips.
    virtual std::uint64_t ReadFaces(const PlyElement& element, PolygonCollector& polygons) = 0;
    virtual std::uint64_t Skip(const PlyElement& element) = 0;

    /// Where the next row begins, in bytes from the start of the file.
    virtual std::size_t Offset() const = 0;
    /// Goes back to where an element began.
    virtual void SetOffset(std::size_t offset) = 0;
    /// Bytes from the next row's place on, without blanks and line ends of a text.
    virtual std::size_t BytesLeft() const = 0;
    /// What a message calls the row at an offset.
    virtual ReadPlace PlaceOf(std::uint64_t offset) const = 0;

protected:
    PlyRows() = default;
};

/// Makes the rows of a file with binary data.
///
/// @param content  The whole file; outlives the rows, as @p options does.
std::unique_ptr<PlyRows> MakePlyBinaryRows(std::string_view content, const PlyHeader& header,
                                           const ReadOptions& options);

/// Makes the rows of a file with text: one line each, blank lines passed over. A value that is
/// missing or no number is a warning.
std::unique_ptr<PlyRows> MakePlyTextRows(std::string_view content, const PlyHeader& header,
                                         const ReadOptions& options, ReadMessages& messages);

/// The arrays that the vertices of an element fill, each a pointer to the first row's value and the
/// step from row to row; null where the role is not there.
class PlyVertexArrays
{
public:
    /// Makes room in @p mesh for @p rows vertices. Colours without alpha are opaque.
    PlyVertexArrays(const PlyElement& element, std::size_t rows, MeshData& mesh);

    float* Floats(PlyRole role, std::size_t row);
    std::uint8_t* Bytes(PlyRole role, std::size_t row);
    /// Makes a vertex what it is until its values are read: no position, no normal, white.
    void Clear(std::size_t row);

    /// Ends at @p rows vertices, at most as many as there was room for: gives normals their length
    /// and turns colours that are no bytes into bytes.
    void Finish(const PlyElement& element, std::size_t rows);

private:
    MeshData& m_mesh;
    MeshArray<float> m_colors; ///< Four per vertex, where the file's are no bytes.
    bool m_hasByteColors = false;
};

/// @return true for roles of colours.
inline bool IsColor(PlyRole role)
{
    return role >= PlyRole::Red && role <= PlyRole::Alpha;
}

/// Turns the colour of one face into bytes: integers count to 255 or 65535, other numbers to 1, or
/// to 255 when one is greater than 1.
///
/// @param values  Red, green, blue, alpha as they stand in the file; alpha 1 of its scale or NaN
///                where there is none.
std::array<std::uint8_t, 4> ToFaceColor(const std::array<double, 4>& values, ScalarType type);

} // namespace OrvikMesh

#endif
