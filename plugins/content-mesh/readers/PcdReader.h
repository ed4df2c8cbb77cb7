#ifndef ORVIKMESH_READERS_PCDREADER_H
#define ORVIKMESH_READERS_PCDREADER_H

#include "readers/MeshReader.h"

namespace OrvikMesh {

/// Reads a point cloud from a PCD file: text, binary, or compressed. Coordinates in the file's own
/// units, as they stand: the viewpoint moves nothing.
///
/// Read are the fields x, y, z, normal_x, normal_y, normal_z and rgb, rgba or r, g, b, of any type
/// and in any order; others are passed over. Colours are opaque. In a cloud with a height of more
/// than one, points that are not finite stand for pixels without a measurement and are left out
/// without a word.
///
/// Errors: no PCD file, a header that is not understood or has no x, y and z, compressed data that
/// are cut, damaged, of another size than the points, or out of all proportion to the file; no
/// point at all. Warnings: a file that ends before its points (what is there is read), values that
/// are missing or no numbers, coordinates that are not finite (their points are left out).
bool ReadPcd(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
             ReadMessages& messages);

/// The same from memory; to be called under ReadGuarded() when @p content may be hostile or fault.
bool ReadPcdContent(std::string_view content, const ReadOptions& options, MeshData& mesh,
                    ReadMessages& messages);

} // namespace OrvikMesh

#endif
