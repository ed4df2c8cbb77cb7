#ifndef ORVIKMESH_IMPORT_SCENEHANDOVER_H
#define ORVIKMESH_IMPORT_SCENEHANDOVER_H

#include "import/MeshImport.h"

#include <string>
#include <string_view>

struct aiScene;

namespace OrvikMesh {

/// Hands the meshes and then the nodes of a scene to the sink.
///
/// Left out is what the reader of the format made up: normals of 3D Studio files, which have none;
/// colours of DXF files, whose numbers it takes for other colours than they are; plain materials of
/// bodies without one. FBX files are turned to have y up. Cameras and lights are no nodes.
///
/// @param format  The extension in lower case, without the dot.
/// @return false when the sink wants no more, or with a reason when the scene is not sound.
/// @throws std::bad_alloc
bool HandOver(const aiScene& scene, std::string_view format, const ImportSink& sink,
              std::string& reason);

} // namespace OrvikMesh

#endif
