#ifndef ORVIKMESH_GLTF_GLTFREADER_H
#define ORVIKMESH_GLTF_GLTFREADER_H

#include "gltf/ShapeArrays.h"
#include "readers/MeshReader.h"

#include <OrvikModel/Model.h>

#include <string>
#include <string_view>

namespace OrvikMesh {

/// Reads a glTF 2.0 file, text or binary, with its side files, into a model.
///
/// Assemblies and bodies with their transforms, bodies of one mesh sharing their shapes; the base
/// colours of materials, times the vertex colours where there are any; triangles, lines and points.
/// Coordinates stay as they are in the file (metres, y up). Textures, skins, morph targets,
/// animations, cameras and lights are left out.
///
/// @param model  Receives the nodes; its path and number are left alone. Holds anything after
/// false.
/// @return false with an error in @p messages.
bool ReadGltf(const std::wstring& path, const ReadOptions& options, const ShapeMaker& make,
              OrvikModel::Model& model, ReadMessages& messages);

/// The same for a file in memory; to be called under ReadGuarded().
///
/// @param path  Of the file, for its side files; empty when it must not have any.
bool ReadGltfContent(const std::wstring& path, std::string_view content, const ReadOptions& options,
                     const ShapeMaker& make, OrvikModel::Model& model, ReadMessages& messages);

} // namespace OrvikMesh

#endif
