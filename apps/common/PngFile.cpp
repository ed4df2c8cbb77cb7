#include "PngFile.h"

#include <OrvikOs/FileWriting.h>
#include <TambVizCore/Utils.h>

#include <png.h>

#include <csetjmp>
#include <cstdint>
#include <cstring>
#include <new>

namespace Pellux {
namespace {

/// Fastest of zlib's levels; with the Sub filter four times as fast as the default and a third
/// larger.
constexpr int kCompressionLevel = 1;

struct Encoder
{
    std::vector<std::uint8_t> bytes;
    char reason[256] = {};
};

void appendBytes(png_structp png, png_bytep data, png_size_t length)
{
    auto* const encoder = static_cast<Encoder*>(png_get_io_ptr(png));
    bool kept = true;
    try {
        encoder->bytes.insert(encoder->bytes.end(), data, data + length);
    } catch (const std::bad_alloc&) {
        kept = false; // No C++ exception crosses the library.
    }
    if (!kept)
        png_error(png, "out of memory");
}

void keepReason(png_structp png, png_const_charp message)
{
    auto* const encoder = static_cast<Encoder*>(png_get_error_ptr(png));
    std::strncpy(encoder->reason, message, sizeof encoder->reason - 1);
    longjmp(png_jmpbuf(png), 1);
}

void ignoreWarning(png_structp, png_const_charp) {}

bool isOpaque(const TambVizCore::Image& image)
{
    for (std::size_t i = 3; i < image.rgba.size(); i += 4) {
        if (image.rgba[i] != 255)
            return false;
    }
    return true;
}

/// Writes header, texts and rows; an opaque picture without its alpha, a quarter less to compress.
/// Leaves by a long jump on errors, so it holds no C++ object.
void encode(png_structp png, png_infop info, const TambVizCore::Image& image,
            const std::vector<png_text>& texts)
{
    const bool opaque = isOpaque(image);
    png_set_compression_level(png, kCompressionLevel);
    png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_SUB);
    png_set_IHDR(png, info, static_cast<png_uint_32>(image.width),
                 static_cast<png_uint_32>(image.height), 8,
                 opaque ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_RGBA, PNG_INTERLACE_NONE,
                 PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
    if (!texts.empty())
        png_set_text(png, info, texts.data(), static_cast<int>(texts.size()));
    png_write_info(png, info);
    if (opaque)
        png_set_filler(png, 0, PNG_FILLER_AFTER);
    const std::size_t stride = static_cast<std::size_t>(image.width) * 4;
    for (int row = 0; row < image.height; ++row)
        png_write_row(png, image.rgba.data() + static_cast<std::size_t>(row) * stride);
    png_write_end(png, info);
}

std::vector<png_text> textChunks(PngTexts& texts)
{
    std::vector<png_text> chunks;
    for (auto& [keyword, text] : texts) {
        png_text chunk = {};
        chunk.compression = PNG_ITXT_COMPRESSION_NONE;
        chunk.key = keyword.data();
        chunk.text = text.data();
        chunks.push_back(chunk);
    }
    return chunks;
}

bool encodeTo(Encoder& encoder, const TambVizCore::Image& image, PngTexts texts)
{
    const std::vector<png_text> chunks = textChunks(texts);
    png_structp png =
        png_create_write_struct(PNG_LIBPNG_VER_STRING, &encoder, keepReason, ignoreWarning);
    png_infop info = png == nullptr ? nullptr : png_create_info_struct(png);
    volatile bool written = false; // Survives the long jump of an error.
    if (info != nullptr && setjmp(png_jmpbuf(png)) == 0) {
        png_set_write_fn(png, &encoder, appendBytes, nullptr);
        encode(png, info, image, chunks);
        written = true;
    }
    png_destroy_write_struct(&png, &info);
    return written;
}

} // namespace

bool WritePng(const std::wstring& path, const TambVizCore::Image& image, const PngTexts& texts,
              std::wstring& errorText)
{
    Encoder encoder;
    if (!encodeTo(encoder, image, texts)) {
        errorText = path + L": the picture cannot be encoded: " +
                    TambVizCore::Utils::StringToWstring(encoder.reason);
        return false;
    }
    std::wstring reason;
    if (OrvikOs::WriteFileAtomically(path, encoder.bytes.data(), encoder.bytes.size(), &reason))
        return true;
    errorText = path + L": " + reason;
    return false;
}

} // namespace Pellux
