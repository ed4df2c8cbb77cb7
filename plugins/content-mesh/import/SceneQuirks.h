#ifndef ORVIKMESH_IMPORT_SCENEQUIRKS_H
#define ORVIKMESH_IMPORT_SCENEQUIRKS_H

#include <assimp/material.h>
#include <assimp/matrix4x4.h>

#include <set>
#include <string_view>

struct aiScene;

namespace OrvikMesh {

// What the readers of Assimp put into a scene that their files do not say, or leave to others.

/// Some readers give vertices a colour where their file has none: nothing at all, or one grey.
bool IsMadeUpColor(const aiColor4D& color);

/// Bodies without a material get one that their reader makes up: without a name or with one that it
/// has for that, in one of a few greys.
bool IsMadeUpMaterial(const aiMaterial& material, const aiColor4D& diffuse);

/// @return what turns a FBX file so that x points right, y up and z to the front; the identity when
///         its axes are no right-handed system.
aiMatrix4x4 TurnOfFbx(const aiScene& scene);

/// Nodes that are called so and hold nothing only place a camera or a light.
/// @return names that live as long as the scene.
std::set<std::string_view> NamesOfCamerasAndLights(const aiScene& scene);

} // namespace OrvikMesh

#endif
