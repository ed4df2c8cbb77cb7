#ifndef ORVIKMESH_READERS_PLYREADER_H
#define ORVIKMESH_READERS_PLYREADER_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads a PLY file: text, or binary of either byte order. Coordinates in the file's own units.
///
/// Read are the element "vertex" (x, y, z, nx, ny, nz, red, green, blue, alpha and the other usual
/// names of colours; of any type and in any order), "face" with its list of vertices and its
/// colour, and "tristrips". Elements and properties of other names are passed over. Colours are
/// bytes, 16 bit, or numbers to 1 or to 255. Colours of faces take the place of those of vertices.
/// Vertices keep the order of the file; those that no face uses are left out. Without an element
/// "face" or "tristrips" that announces anything the file is a point cloud.
///
/// Errors: no PLY file, a header that is not understood, data that are text where the header says
/// binary or the other way around, a file that ends before the faces, no triangle or point at all.
/// Warnings, with a count and the first line or byte: a file that ends in its faces or points (what
/// is there is read), faces that name vertices that are not there or have fewer than three, values
/// that are missing or no numbers, coordinates that are not finite (their faces or points are left
/// out), elements that were left out, bytes after the last element.
bool ReadPly(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
bool ReadPlyContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages);

} // namespace OrvikMesh

#endif
