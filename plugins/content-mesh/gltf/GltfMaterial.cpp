#include "gltf/GltfMaterial.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace OrvikMesh {

namespace {

constexpr std::size_t kSteps = 4095;

/// Indexed by the square root of the linear value: the curve is nearly straight over it, so that
/// few steps are enough.
std::array<std::uint8_t, kSteps + 1> makeCurve()
{
    std::array<std::uint8_t, kSteps + 1> curve{};
    for (std::size_t i = 0; i <= kSteps; ++i) {
        const double root = static_cast<double>(i) / static_cast<double>(kSteps);
        const double linear = root * root;
        const double shown =
            linear <= 0.0031308 ? 12.92 * linear : 1.055 * std::pow(linear, 1.0 / 2.4) - 0.055;
        curve[i] = static_cast<std::uint8_t>(std::lround(shown * 255.0));
    }
    return curve;
}

/// @return @p share from 0 to 1.
float clipped(float share)
{
    return share > 0.0f ? std::min(share, 1.0f) : 0.0f;
}

} // namespace

std::uint8_t ToShownByte(float linear)
{
    static const std::array<std::uint8_t, kSteps + 1> curve = makeCurve();
    const float step = std::sqrt(clipped(linear)) * static_cast<float>(kSteps) + 0.5f;
    return curve[static_cast<std::size_t>(step)];
}

std::uint8_t ToShareByte(float share)
{
    return static_cast<std::uint8_t>(clipped(share) * 255.0f + 0.5f);
}

GltfMaterial ReadMaterial(const GltfFile& file, std::optional<std::uint64_t> index)
{
    GltfMaterial material;
    const JsonValue* element = index ? file.Element(GltfList::Materials, *index) : nullptr;
    if (!element)
        return material;
    double color[4];
    const JsonValue* extensions = FindMember(*element, "extensions");
    const JsonValue* glossiness =
        extensions ? FindMember(*extensions, "KHR_materials_pbrSpecularGlossiness") : nullptr;
    const JsonValue* roughness = FindMember(*element, "pbrMetallicRoughness");
    if ((roughness && ReadNumbers(*roughness, "baseColorFactor", color, 4)) ||
        (glossiness && ReadNumbers(*glossiness, "diffuseFactor", color, 4)))
        for (std::size_t i = 0; i < 4; ++i)
            material.color[i] = clipped(static_cast<float>(color[i]));
    material.isOpaque = TextOf(FindMember(*element, "alphaMode")) != "BLEND";
    return material;
}

TambVizCore::RGBAColor ToShownColor(const GltfMaterial& material)
{
    return {ToShownByte(material.color[0]), ToShownByte(material.color[1]),
            ToShownByte(material.color[2]),
            material.isOpaque ? std::uint8_t{255} : ToShareByte(material.color[3])};
}

} // namespace OrvikMesh
