#ifndef ORVIKMESH_READERS_PLYHEADER_H
#define ORVIKMESH_READERS_PLYHEADER_H

#include "readers/ReadMessages.h"
#include "readers/ScalarKernel.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace OrvikMesh {

enum class PlyFormat
{
    Text,
    LittleEndian,
    BigEndian,
};

/// What a property means to the mesh. The first ten are the components of a vertex.
enum class PlyRole : std::uint8_t
{
    X,
    Y,
    Z,
    NormalX,
    NormalY,
    NormalZ,
    Red,
    Green,
    Blue,
    Alpha,
    Corners, ///< The list of vertices of a face or of strips.
    None,
};

/// How many roles a single value can have: all before PlyRole::Corners.
inline constexpr std::size_t kPlyValueRoles = 10;

struct PlyProperty
{
    ScalarType type = ScalarType::Float32;
    bool isList = false;
    ScalarType countType = ScalarType::UInt8; ///< Of a list.
    PlyRole role = PlyRole::None;             ///< Each but None at most once in an element.
    std::string name;
};

struct PlyElement
{
    enum class Kind
    {
        Vertices, ///< The first element "vertex" with x, y and z.
        Faces,    ///< Has a property with the role Corners.
        Strips,   ///< The same.
        Other,
    };
    Kind kind = Kind::Other;
    std::string name;
    std::uint64_t count = 0;
    std::vector<PlyProperty> properties;

    bool HasLists() const;
    /// Bytes of a row without lists in a binary file; the least bytes of one with lists.
    std::size_t RowBytes() const;
    /// @return the property with that role; null when there is none.
    const PlyProperty* Find(PlyRole role) const;
};

struct PlyHeader
{
    PlyFormat format = PlyFormat::Text;
    std::vector<PlyElement> elements;
    std::size_t end = 0; ///< Where the data begin.
};

/// Reads the header of a PLY file.
///
/// Lines end with LF, CRLF or CR. Unknown lines are passed over with a warning.
///
/// @return false with an error when it does not begin with "ply", has no end, no format, no
///         vertices with x, y and z, or an element or property that cannot be understood: then the
///         place of the data after it is not known.
bool ReadPlyHeader(std::string_view content, PlyHeader& header, ReadMessages& messages);

} // namespace OrvikMesh

#endif
