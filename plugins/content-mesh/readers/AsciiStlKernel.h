#ifndef ORVIKMESH_READERS_ASCIISTLKERNEL_H
#define ORVIKMESH_READERS_ASCIISTLKERNEL_H

#include <cstddef>
#include <cstdint>

namespace OrvikMesh {

/// Why ScanAsciiStl() came back.
enum class AsciiStlStop
{
    End,   ///< The text is at its end.
    Full,  ///< There is no room for the triangles of another facet.
    Solid, ///< A solid begins: its name lies at nameBegin.
};

/// A count and the address of the first occurrence.
struct ScanOccurrences
{
    std::uint64_t count = 0;
    const char* first = nullptr;
};

/// The state of a scan over a text STL file; all memory is owned by the caller.
struct AsciiStlScan
{
    const char* at = nullptr;
    const char* end = nullptr;

    float* triangles = nullptr; ///< Nine floats each.
    std::size_t room = 0;       ///< Triangles that fit.
    std::size_t count = 0;      ///< Triangles that are there.

    const char* nameBegin = nullptr;
    const char* nameEnd = nullptr;

    std::uint64_t solidsEnded = 0;
    std::uint64_t solidsBegun = 0;
    ScanOccurrences junkLines;
    ScanOccurrences badFacets;
    ScanOccurrences polygons;
};

/// The most triangles that one facet may become; further corners make it bad.
inline constexpr std::size_t kMaxFacetTriangles = 64;

/// Reads facets until something stops it. Calls nothing that owns memory, so that a machine fault
/// in it unwinds cleanly. The scan stops only between facets.
AsciiStlStop ScanAsciiStl(AsciiStlScan& scan);

} // namespace OrvikMesh

#endif
