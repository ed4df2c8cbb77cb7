#ifndef ORVIKMESH_READERS_OFFHEADER_H
#define ORVIKMESH_READERS_OFFHEADER_H

#include "readers/ReadMessages.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace OrvikMesh {

/// What the first lines of an OFF file say. A vertex has, in this order: three coordinates, a
/// homogeneous one, a normal of three, a colour of three or four, texture coordinates of two.
struct OffHeader
{
    bool isHomogeneous = false;
    bool hasNormals = false;
    bool hasColors = false;
    bool hasTexture = false;
    bool isBinary = false;
    std::uint64_t vertices = 0;
    std::uint64_t faces = 0;
    std::size_t end = 0; ///< Where the vertices begin.

    /// Numbers of a vertex before its colour.
    std::size_t NumbersBeforeColor() const
    {
        return std::size_t{3} + (isHomogeneous ? 1 : 0) + (hasNormals ? 3 : 0);
    }
};

/// Reads "[ST][C][N][4][n]OFF [BINARY]" and the counts; the keyword may be missing.
///
/// @param content  The whole file, as text where it is text.
/// @return false with an error when it is no OFF file, has another number of dimensions than three,
///         or announces more vertices than it can hold.
bool ReadOffHeader(std::string_view content, OffHeader& header, ReadMessages& messages);

} // namespace OrvikMesh

#endif
