#ifndef ORVIKMESH_GLTF_GLTFMATERIAL_H
#define ORVIKMESH_GLTF_GLTFMATERIAL_H

#include "gltf/GltfFile.h"

#include <TambVizCore/RGBAColor.h>

#include <cstdint>
#include <optional>

namespace OrvikMesh {

/// What a material says of the colour of its surfaces; linear, each from 0 to 1.
struct GltfMaterial
{
    float color[4] = {1.0f, 1.0f, 1.0f, 1.0f};
    bool isOpaque = true; ///< Alpha counts only where the material blends.
};

/// Reads a material; one that does not exist or says nothing is white and opaque.
GltfMaterial ReadMaterial(const GltfFile& file, std::optional<std::uint64_t> index);

/// @return the colour as it is shown.
TambVizCore::RGBAColor ToShownColor(const GltfMaterial& material);

/// Turns a linear component into a byte of sRGB (IEC 61966-2-1); what lies outside 0 to 1 is cut
/// off, NaN is 0. Off by at most one.
std::uint8_t ToShownByte(float linear);

/// Turns a share from 0 to 1 into a byte; what lies outside is cut off, NaN is 0.
std::uint8_t ToShareByte(float share);

} // namespace OrvikMesh

#endif
