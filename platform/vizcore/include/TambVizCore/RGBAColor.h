#ifndef TAMBVIZCORE_RGBACOLOR_H
#define TAMBVIZCORE_RGBACOLOR_H

#include <cstdint>

namespace TambVizCore {

/// A colour of four bytes, sRGB, 0 to 255 each; alpha 255 is opaque. A plain value.
struct RGBAColor
{
    constexpr RGBAColor() = default;

    constexpr RGBAColor(std::uint8_t red, std::uint8_t green, std::uint8_t blue,
                        std::uint8_t alpha = 255)
        : r(red), g(green), b(blue), a(alpha)
    {
    }

    constexpr bool operator==(const RGBAColor& other) const = default;

    std::uint8_t r = 0;
    std::uint8_t g = 0;
    std::uint8_t b = 0;
    std::uint8_t a = 255;
};

static_assert(sizeof(RGBAColor) == 4);

} // namespace TambVizCore

#endif
