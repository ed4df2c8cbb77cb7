#ifndef ORVIKMESH_GLTF_GLTFLEFTOUT_H
#define ORVIKMESH_GLTF_GLTFLEFTOUT_H

namespace OrvikMesh {

class GltfFile;

/// Warns of what a file holds and nobody sees: skins, animations, morph targets, and pictures that
/// give surfaces their colour. Cameras and lights belong to the picture that somebody else made.
void WarnOfLeftOut(GltfFile& file);

} // namespace OrvikMesh

#endif
