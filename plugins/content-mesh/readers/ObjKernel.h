#ifndef ORVIKMESH_READERS_OBJKERNEL_H
#define ORVIKMESH_READERS_OBJKERNEL_H

#include "readers/AsciiStlKernel.h"

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

// Indices of corners are coded in 32 bits, because a piece of the file does not know how many
// vertices come before it:
//   1 to kObjMaxIndex       an index of the file, from 1
//   negative                kObjRelativeBase + r, where r counts from the piece's first vertex and
//                           may be negative itself
//   0                       none
inline constexpr std::int32_t kObjMaxIndex = (1 << 30) - 1;
inline constexpr std::int32_t kObjRelativeBase = -(1 << 30);
/// Codes an index that nothing can have: out of range whatever the number of vertices.
inline constexpr std::int32_t kObjImpossible = INT32_MIN;

struct ObjCorner
{
    std::int32_t vertex;
    std::int32_t normal;
};

/// The most corners that an element can count.
inline constexpr std::uint32_t kObjMaxCorners = (1u << 30) - 1;

/// What an element is.
enum class ObjElement : std::uint32_t
{
    Face,   ///< Three corners or more.
    Line,   ///< Two or more.
    Points, ///< One or more.
};

/// A face, a polyline or some points.
struct ObjFace
{
    ObjElement kind : 2;
    std::uint32_t cornerCount : 30;
    std::uint32_t offset; ///< Of its line from the start of the piece.
};

/// Why ScanObj() came back.
enum class ObjStop
{
    End,  ///< The piece is at its end.
    Full, ///< An array is full; the line at `at` was not read.
    Name, ///< A line that names something: keyword and names lie at nameBegin, the scan is past it.
    Continued, ///< The line at `at` continues on the next and was not read.
    Colored,   ///< The first vertex with a colour stands at `at`; `colors` must be given.
};

/// The state of a scan over a piece of an OBJ file; all memory is owned by the caller.
struct ObjScan
{
    const char* begin = nullptr; ///< Of the piece: offsets count from here.
    const char* at = nullptr;
    const char* end = nullptr;

    float* positions = nullptr;     ///< Three per vertex.
    std::uint8_t* colors = nullptr; ///< Four per vertex, room as for positions; null: none so far.
    std::uint32_t vertexCount = 0;
    std::uint32_t vertexRoom = 0;
    float* normals = nullptr; ///< Three each.
    std::uint32_t normalCount = 0;
    std::uint32_t normalRoom = 0;
    ObjCorner* corners = nullptr;
    std::uint32_t cornerCount = 0;
    std::uint32_t cornerRoom = 0;
    bool areCornersFull = false; ///< Set when a face did not fit: `corners` must grow.
    ObjFace* faces = nullptr;
    std::uint32_t faceCount = 0;
    std::uint32_t faceRoom = 0;

    const char* nameBegin = nullptr; ///< First letter of the keyword.
    const char* nameEnd = nullptr;   ///< End of the line.

    std::uint64_t nonFiniteVertices = 0;
    ScanOccurrences badNumbers;
    ScanOccurrences shortFaces;
    ScanOccurrences zeroIndices;
    ScanOccurrences junkLines;
    ScanOccurrences badThin; ///< Lines of one point; lines and points with an index 0.
    ScanOccurrences leftOut;
};

/// Reads whole lines until something stops it. Calls nothing that owns memory, so that a machine
/// fault in it unwinds cleanly. A vertex with something that is no number becomes not-a-number, so
/// that those after it keep their indices. Texture coordinates are skipped: nothing draws them.
ObjStop ScanObj(ObjScan& scan);

} // namespace OrvikMesh

#endif
