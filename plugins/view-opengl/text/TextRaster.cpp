#include "text/TextRaster.h"

#include <TambVizCore/Utils.h>

#include <fontconfig/fontconfig.h>
#include <ft2build.h>
#include FT_FREETYPE_H

#include <algorithm>
#include <map>
#include <tuple>

namespace ViewOpenGl {
namespace {

constexpr int kMostPixels = 8192;
constexpr std::size_t kMostLetters = 2000;
constexpr int kMargin = 1; ///< Empty pixels around the text, for smooth borders.

struct PatternDeleter
{
    void operator()(FcPattern* pattern) const { FcPatternDestroy(pattern); }
};

/// @return the file of the font that comes nearest; empty when the system has none.
std::string findFontFile(const TextFont& font)
{
    const std::unique_ptr<FcPattern, PatternDeleter> wanted(FcPatternCreate());
    const std::string family =
        font.family.empty() ? "sans-serif" : TambVizCore::Utils::WstringToString(font.family);
    FcPatternAddString(wanted.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>(family.c_str()));
    FcPatternAddInteger(wanted.get(), FC_WEIGHT, font.bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
    FcPatternAddInteger(wanted.get(), FC_SLANT, font.italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
    FcPatternAddBool(wanted.get(), FC_SCALABLE, FcTrue);
    FcConfigSubstitute(nullptr, wanted.get(), FcMatchPattern);
    FcDefaultSubstitute(wanted.get());
    FcResult result = FcResultNoMatch;
    const std::unique_ptr<FcPattern, PatternDeleter> found(
        FcFontMatch(nullptr, wanted.get(), &result));
    FcChar8* file = nullptr;
    if (found == nullptr || FcPatternGetString(found.get(), FC_FILE, 0, &file) != FcResultMatch)
        return {};
    return reinterpret_cast<const char*>(file);
}

/// Sets the size at which a capital letter has the height asked for.
bool setSize(FT_Face face, int capitalPixels)
{
    const FT_UInt first = static_cast<FT_UInt>(capitalPixels);
    if (FT_Set_Pixel_Sizes(face, 0, first) != 0 || FT_Load_Char(face, 'H', FT_LOAD_DEFAULT) != 0)
        return false;
    const FT_Pos height = face->glyph->metrics.height; // 26.6 fixed point.
    if (height <= 0)
        return true;
    const double scale = 64.0 * capitalPixels / static_cast<double>(height);
    return FT_Set_Pixel_Sizes(face, 0, static_cast<FT_UInt>(std::max(1.0, first * scale + 0.5))) ==
           0;
}

/// Writes the darker of what is there and a glyph's coverage.
void blend(const FT_Bitmap& glyph, int left, int top, TextImage& image)
{
    for (int row = 0; row < static_cast<int>(glyph.rows); ++row) {
        const int y = top + row;
        if (y < 0 || y >= image.height)
            continue;
        for (int column = 0; column < static_cast<int>(glyph.width); ++column) {
            const int x = left + column;
            if (x < 0 || x >= image.width)
                continue;
            std::uint8_t& pixel = image.coverage[static_cast<std::size_t>(y * image.width + x)];
            pixel = std::max(pixel, glyph.buffer[row * glyph.pitch + column]);
        }
    }
}

int toPixels(FT_Pos fixed)
{
    return static_cast<int>((fixed + 32) / 64);
}

} // namespace

/// FreeType and the faces that were opened.
struct TextRaster::Fonts
{
    using Key = std::tuple<std::wstring, bool, bool>;

    ~Fonts()
    {
        for (const auto& [key, face] : faces)
            FT_Done_Face(face);
        if (library != nullptr)
            FT_Done_FreeType(library);
    }

    /// @return not owned; null with a reason when there is none.
    FT_Face Find(const TextFont& font, std::string& errorText)
    {
        if (library == nullptr && FT_Init_FreeType(&library) != 0) {
            errorText = "the font renderer cannot start";
            return nullptr;
        }
        const Key key(font.family, font.bold, font.italic);
        if (const auto known = faces.find(key); known != faces.end())
            return known->second;
        const std::string file = findFontFile(font);
        FT_Face face = nullptr;
        if (file.empty() || FT_New_Face(library, file.c_str(), 0, &face) != 0) {
            errorText = file.empty() ? "the system has no font" : file + ": cannot be read as font";
            return nullptr;
        }
        faces.emplace(key, face);
        return face;
    }

    FT_Library library = nullptr; ///< Owned.
    std::map<Key, FT_Face> faces; ///< Owned.
};

TextRaster::TextRaster() : m_fonts(std::make_unique<Fonts>()) {}

TextRaster::~TextRaster() = default;

bool TextRaster::Draw(const std::wstring& text, const TextFont& font, TextImage& image,
                      std::string& errorText)
{
    const FT_Face face = m_fonts->Find(font, errorText);
    if (face == nullptr)
        return false;
    if (!setSize(face, std::clamp(font.capitalPixels, 1, 512))) {
        errorText = "the font has no such size";
        return false;
    }
    const std::wstring line = text.substr(0, kMostLetters);
    FT_Pos length = 0;
    for (const wchar_t letter : line)
        if (FT_Load_Char(face, static_cast<FT_ULong>(letter), FT_LOAD_DEFAULT) == 0)
            length += face->glyph->advance.x;
    const int ascent = toPixels(face->size->metrics.ascender);
    const int descent = -toPixels(face->size->metrics.descender);
    image.width = std::min(toPixels(length) + 2 * kMargin, kMostPixels);
    image.height = std::max(ascent + descent, 1) + 2 * kMargin;
    image.baseline = ascent + kMargin;
    image.coverage.assign(
        static_cast<std::size_t>(image.width) * static_cast<std::size_t>(image.height), 0);
    FT_Pos pen = 0;
    for (const wchar_t letter : line) {
        if (FT_Load_Char(face, static_cast<FT_ULong>(letter), FT_LOAD_RENDER) != 0)
            continue;
        blend(face->glyph->bitmap, kMargin + toPixels(pen) + face->glyph->bitmap_left,
              image.baseline - face->glyph->bitmap_top, image);
        pen += face->glyph->advance.x;
    }
    return true;
}

} // namespace ViewOpenGl
