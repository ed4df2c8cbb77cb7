#ifndef ORVIKMESH_READERS_POINTTEXTREADER_H
#define ORVIKMESH_READERS_POINTTEXTREADER_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads a point cloud from a text with one point on each line: x, y and z, then anything of a
/// normal, an intensity and a colour. Coordinates in the file's own units.
///
/// Blanks, tabs, commas and semicolons separate numbers; "#" and "//" begin a comment; the first
/// line may be a heading or the number of points. What the columns after z mean is told by the
/// first thousand points: three of length 1 are a normal; three from 0 to 1, or whole numbers to
/// 255, are a colour; others are passed over. UTF-8, UTF-16 with a byte-order mark, LF, CRLF or CR.
///
/// Errors: bytes that are no text, a text that begins like a PLY, OFF or STL file, no point at all.
/// Warnings, with a count and the first line: lines that are not understood, coordinates that are
/// not finite (all left out), a number of points that is not the announced one.
bool ReadXyz(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
bool ReadXyzContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages);

/// Reads a PTS file: as ReadXyz(), but a line with one number may stand before each of several
/// clouds.
bool ReadPts(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
bool ReadPtsContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages);

} // namespace OrvikMesh

#endif
