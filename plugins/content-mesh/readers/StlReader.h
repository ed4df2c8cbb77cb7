#ifndef ORVIKMESH_READERS_STLREADER_H
#define ORVIKMESH_READERS_STLREADER_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads an STL file, binary or text, and welds its vertices. Coordinates in the file's own units.
///
/// Binary is what has the size that its count announces, whatever its header says; else a text that
/// mentions facets is text. The stored normals and attribute words are not read: the corners give
/// the direction. Each solid of a text becomes an object with its name (which may be empty).
///
/// Errors: no triangle at all; shorter than a header; neither binary nor text. Warnings: a count
/// that does not fit the size (the whole triangles that are there are read; what follows the
/// announced ones is left out), lines that are not understood, facets without three vertices or
/// numbers, facets with more than three vertices (split), a text without its end, triangles with a
/// coordinate that is not finite (left out; denormals are kept).
bool ReadStl(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
bool ReadStlContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages);

} // namespace OrvikMesh

#endif
