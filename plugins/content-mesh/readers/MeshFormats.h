#ifndef ORVIKMESH_READERS_MESHFORMATS_H
#define ORVIKMESH_READERS_MESHFORMATS_H

#include "readers/MeshReader.h"

#include <span>
#include <string_view>

namespace OrvikMesh {

/// A format that has a reader of its own.
struct MeshFormat
{
    const wchar_t* extension; ///< Upper case, without the dot.
    const wchar_t* name;      ///< For users, of a kind of file.
    bool (*read)(const std::wstring& path, const ReadOptions& options, MeshData& mesh,
                 ReadMessages& messages);
};

/// All of them; each extension once.
std::span<const MeshFormat> MeshFormats();

/// @return the format with that extension (upper case, without the dot); null when there is none.
const MeshFormat* FindMeshFormat(std::wstring_view extension);

} // namespace OrvikMesh

#endif
