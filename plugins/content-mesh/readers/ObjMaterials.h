#ifndef ORVIKMESH_READERS_OBJMATERIALS_H
#define ORVIKMESH_READERS_OBJMATERIALS_H

#include "readers/MeshData.h"
#include "readers/ReadMessages.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace OrvikMesh {

/// Material libraries that are read for one file; a hostile one may name a million.
inline constexpr std::size_t kMaxLibraries = 64;

/// Colours by the name of the material, as it stands in the file.
using MaterialColors = std::unordered_map<std::string, MeshColor>;

/// Reads the diffuse colours (Kd) and opacities (d, Tr) of a material library. Everything else in
/// it is passed over; a name defined twice keeps its first definition.
///
/// @param text  UTF-8, or any other superset of ASCII.
void ReadMaterialText(std::string_view text, MaterialColors& colors);

/// Gives the materials of a mesh their colours from the libraries beside its file. What cannot be
/// read, lies outside the folder of the file or is not defined is a warning.
///
/// @param path       Of the mesh's file.
/// @param libraries  Names from its "mtllib" lines: one or several file names each.
/// @param names      Of the materials, in the order of @p materials.
void LoadMaterials(const std::wstring& path, const std::vector<std::string>& libraries,
                   const std::vector<std::string>& names, std::vector<MeshMaterial>& materials,
                   ReadMessages& messages);

} // namespace OrvikMesh

#endif
