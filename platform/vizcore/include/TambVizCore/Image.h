#ifndef TAMBVIZCORE_IMAGE_H
#define TAMBVIZCORE_IMAGE_H

#include <cstdint>
#include <vector>

namespace TambVizCore {

/// A picture: four bytes r, g, b, a per pixel, rows from top to bottom without padding.
struct Image
{
    int width = 0;
    int height = 0;
    std::vector<std::uint8_t> rgba; ///< width * height * 4 bytes.
};

} // namespace TambVizCore

#endif
