#ifndef ORVIKMESH_IMPORT_SCENEHANDOVER_H
#define ORVIKMESH_IMPORT_SCENEHANDOVER_H

#include "import/MeshImport.h"

#include <string>

struct aiScene;

namespace OrvikMesh {

/// Hands the meshes and then the nodes of a scene to the sink.
///
/// @return false when the sink wants no more, or with a reason when the scene is not sound.
/// @throws std::bad_alloc
bool HandOver(const aiScene& scene, const ImportSink& sink, std::string& reason);

} // namespace OrvikMesh

#endif
