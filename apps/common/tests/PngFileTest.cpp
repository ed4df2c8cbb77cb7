#include "../PngFile.h"

#include "ScopedTempDir.h"

#include <gtest/gtest.h>
#include <png.h>

#include <filesystem>

namespace {

using Pellux::WritePng;
using TambVizCore::Image;

/// A picture in which every pixel differs.
Image pattern(int width, int height)
{
    Image image;
    image.width = width;
    image.height = height;
    for (int i = 0; i < width * height * 4; ++i)
        image.rgba.push_back(static_cast<std::uint8_t>(i * 37 % 251));
    return image;
}

/// The pixels of a file, read by the library's simple reader; empty when it is no PNG.
std::vector<std::uint8_t> pixelsOf(const std::filesystem::path& file)
{
    png_image reader = {};
    reader.version = PNG_IMAGE_VERSION;
    if (png_image_begin_read_from_file(&reader, file.c_str()) == 0)
        return {};
    reader.format = PNG_FORMAT_RGBA;
    std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(reader));
    return png_image_finish_read(&reader, nullptr, pixels.data(), 0, nullptr) == 0
               ? std::vector<std::uint8_t>()
               : pixels;
}

TEST(PngFile, ThePixelsAreReadBackAsTheyWere)
{
    ScopedTempDir folder;
    const Image image = pattern(17, 5);

    std::wstring error;
    EXPECT_TRUE(WritePng(folder.WidePath(L"a.png"), image, {{"Title", "gr\xC3\xBCn"}}, error));

    const std::vector<std::uint8_t> pixels = pixelsOf(folder.Path() / "a.png");
    EXPECT_TRUE(std::equal(pixels.begin(), pixels.end(), image.rgba.begin(), image.rgba.end()));
    EXPECT_EQ(error, L"");
}

TEST(PngFile, AFileThatExistsIsReplaced)
{
    ScopedTempDir folder;
    folder.Write("a.png", "old");

    std::wstring error;
    EXPECT_TRUE(WritePng(folder.WidePath(L"a.png"), pattern(2, 2), {}, error));
    EXPECT_EQ(pixelsOf(folder.Path() / "a.png").size(), 16u);
}

TEST(PngFile, AFailureToWriteLeavesNoFileAndNamesThePath)
{
    ScopedTempDir folder;

    std::wstring error;
    EXPECT_FALSE(WritePng(folder.WidePath(L"absent/a.png"), pattern(2, 2), {}, error));
    EXPECT_TRUE(error.starts_with(folder.WidePath(L"absent/a.png") + L": "));
    EXPECT_TRUE(std::filesystem::is_empty(folder.Path()));
}

TEST(PngFile, AFailureToEncodeKeepsTheFileThatWasThere)
{
    ScopedTempDir folder;
    folder.Write("a.png", "old");

    std::wstring error;
    EXPECT_FALSE(WritePng(folder.WidePath(L"a.png"), Image(), {}, error));
    EXPECT_TRUE(
        error.starts_with(folder.WidePath(L"a.png") + L": the picture cannot be encoded: "));
    EXPECT_EQ(std::filesystem::file_size(folder.Path() / "a.png"), 3u);
}

} // namespace
