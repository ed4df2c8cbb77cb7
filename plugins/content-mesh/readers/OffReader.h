#ifndef ORVIKMESH_READERS_OFFREADER_H
#define ORVIKMESH_READERS_OFFREADER_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads an OFF file, text or binary: "OFF" and its variants with "ST", "C", "N", "4" and "n", also
/// without a keyword. Coordinates in the file's own units.
///
/// A vertex, and a face, stands on one line of a text; "#" begins a comment. Polygons are split,
/// concave ones by cutting ears. Colours of faces (whole numbers to 255, others to 1) take the
/// place of those of vertices; numbers of a colour map are passed over, as texture coordinates are.
/// Vertices keep the order of the file; those that no face uses are left out. A file that announces
/// no faces is a point cloud.
///
/// Errors: no OFF file, counts that are missing or more than the file can hold, another number of
/// dimensions than three, an end before the faces, no triangle or point at all. Warnings, with a
/// count and the first line or byte: a file that ends in its faces (what is there is read), faces
/// that name vertices that are not there or have fewer than three, values that are missing or no
/// numbers, coordinates that are not finite (their faces or points are left out).
bool ReadOff(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
bool ReadOffContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages);

} // namespace OrvikMesh

#endif
