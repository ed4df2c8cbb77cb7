#ifndef ORVIKMESH_READERS_OBJREADER_H
#define ORVIKMESH_READERS_OBJREADER_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads the faces of an OBJ file with their objects, groups, normals, vertex colours and the
/// diffuse colours of their materials. UTF-8, UTF-16 with a byte-order mark, LF, CRLF or CR.
///
/// Polygons are split, concave ones by cutting ears. Faces without normals in a file that has some
/// get flat ones. Texture coordinates are skipped. Each pair of point and normal becomes one
/// vertex, in the order of first use.
///
/// A file without faces is a point cloud of all its points, with a warning: it may have been cut
/// short.
///
/// Errors: neither a sound face nor a point. Warnings, each with a count and the first line: faces
/// with an index 0 or out of range, with fewer than three vertices or with a coordinate that is not
/// finite (all left out; denormals are kept); lines that are not understood; points, lines and
/// curves (left out); material libraries and materials that are missing.
bool ReadObj(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
///
/// @param path  Where material libraries are looked for beside; empty: none is read.
bool ReadObjContent(const std::wstring& path, std::string_view content, const ReadOptions& options,
                    MeshData& mesh, ReadMessages& messages);

} // namespace OrvikMesh

#endif
