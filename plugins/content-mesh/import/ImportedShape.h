#ifndef ORVIKMESH_IMPORT_IMPORTEDSHAPE_H
#define ORVIKMESH_IMPORT_IMPORTEDSHAPE_H

#include "gltf/ShapeArrays.h"
#include "import/MeshImport.h"

#include <cstddef>

namespace OrvikMesh {

/// Copies a mesh that was handed over into arrays, without what names vertices that do not exist or
/// lie nowhere.
///
/// @param leftOut  receives how many triangles, segments or points were left out.
/// @return false when nothing is left.
/// @throws std::bad_alloc
bool CopyImportedMesh(const ImportedMesh& mesh, ShapeArrays& shape, std::size_t& leftOut);

} // namespace OrvikMesh

#endif
