#ifndef ORVIKMESH_IMPORT_IMPORTREADER_H
#define ORVIKMESH_IMPORT_IMPORTREADER_H

#include "gltf/ShapeArrays.h"
#include "readers/MeshReader.h"

#include <OrvikOs/RunApart.h>

#include <OrvikModel/Model.h>

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace OrvikMesh {

/// A format of the long tail.
struct ImportFormat
{
    const wchar_t* extension; ///< Upper case, without the dot.
    const wchar_t* name;      ///< For users, of a kind of file.
};

/// All of them; each extension once.
std::span<const ImportFormat> ImportFormats();

/// @return true when there is a format with that extension (upper case, without the dot).
bool IsImportFormat(std::wstring_view extension);

/// The largest file that is read: the library keeps several copies of what it reads.
inline constexpr std::uint64_t kMaxImportBytes = std::uint64_t{512} << 20;

/// What the library may take of memory and processor time for a file.
///
/// @param fileBytes  Of the file.
OrvikOs::ApartLimits ImportLimits(std::uint64_t fileBytes);

/// Reads a file of the long tail into a model, through OrvikMeshImport.dll, which is loaded on the
/// first call and stays.
///
/// The hierarchy with its transforms, meshes that nodes share, names, diffuse colours and vertex
/// colours; triangles, lines and points. Files beside the one read are taken only from its folder
/// and those below.
///
/// The library works in a copy of the process (OrvikOs::RunApart) with ImportLimits(), because
/// damaged files make it run for ever, take all memory or end the program; where the system has no
/// such copy, in this process without limits.
///
/// @param library  As OrvikOs::Library takes it.
/// @param model    Receives the nodes; its path and number are left alone. Holds anything after
///                 false.
/// @return false with an error in @p messages.
bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  OrvikModel::Model& model, ReadMessages& messages, const std::wstring& library);

/// The same with the library in the folder of the program.
bool ReadImported(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
                  OrvikModel::Model& model, ReadMessages& messages);

} // namespace OrvikMesh

#endif
