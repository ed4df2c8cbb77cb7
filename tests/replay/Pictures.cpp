#include "Pictures.h"

#include <png.h>

#include <cstdint>
#include <cstring>
#include <set>
#include <vector>

namespace {

struct Pixels
{
    unsigned width = 0;
    unsigned height = 0;
    std::vector<std::uint32_t> colors; ///< Red, green, blue, alpha as they lie in memory.
};

Pixels read(const std::filesystem::path& file)
{
    png_image reader = {};
    reader.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&reader, file.c_str()) == 0)
        return {};
    reader.format = PNG_FORMAT_RGBA;
    Pixels pixels;
    pixels.colors.resize(PNG_IMAGE_SIZE(reader) / sizeof(std::uint32_t));
    if (png_image_finish_read(&reader, nullptr, pixels.colors.data(), 0, nullptr) == 0)
        return {};
    pixels.width = reader.width;
    pixels.height = reader.height;
    return pixels;
}

} // namespace

PictureDifference ComparePictures(const std::filesystem::path& a, const std::filesystem::path& b)
{
    const Pixels first = read(a);
    const Pixels second = read(b);
    PictureDifference difference;
    if (first.width != second.width || first.height != second.height)
        return difference;
    difference.pixels = static_cast<int>(first.colors.size());
    std::set<std::uint32_t> colors;
    for (std::size_t i = 0; i < first.colors.size(); ++i) {
        difference.off += first.colors[i] != second.colors[i] ? 1 : 0;
        if (colors.size() < 1000)
            colors.insert(first.colors[i]);
    }
    difference.colors = static_cast<int>(colors.size());
    return difference;
}
