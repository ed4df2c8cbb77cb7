#ifndef ORVIKRAY_PRIMITIVEBOXES_H
#define ORVIKRAY_PRIMITIVEBOXES_H

#include "BoxTree.h"

#include <TambVizCore/Geometry.h>

#include <cstdint>
#include <span>
#include <vector>

namespace OrvikRay {

/// Boxes of primitives of @p corners vertices each, in the order of @p indices.
std::vector<Box> PrimitiveBoxes(const TambVizCore::Geometry& geometry,
                                std::span<const std::uint32_t> indices, std::size_t corners);

} // namespace OrvikRay

#endif
