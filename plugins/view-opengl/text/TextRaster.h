#ifndef VIEWOPENGL_TEXT_TEXTRASTER_H
#define VIEWOPENGL_TEXT_TEXTRASTER_H

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace ViewOpenGl {

/// A line of text as coverage, 0 to 255, rows from top to bottom.
struct TextImage
{
    int width = 0;
    int height = 0;
    int baseline = 0; ///< Rows above the base line.
    std::vector<std::uint8_t> coverage;
};

/// The look of letters.
struct TextFont
{
    std::wstring family; ///< Empty for the system's sans serif.
    bool bold = false;
    bool italic = false;
    int capitalPixels = 16; ///< Height of a capital letter, 1 to 512.
};

/// Draws lines of text with the fonts of the system. The fonts are looked for on first use.
/// @thread Main thread.
class TextRaster
{
public:
    TextRaster();
    ~TextRaster();

    TextRaster(const TextRaster&) = delete;
    TextRaster& operator=(const TextRaster&) = delete;

    /// Draws one line, from left to right; a line is cut off after 2000 letters and 8192 pixels.
    ///
    /// @param errorText  Receives the reason when the result is false: there is no font, or it
    ///                   cannot be read.
    bool Draw(const std::wstring& text, const TextFont& font, TextImage& image,
              std::string& errorText);

private:
    struct Fonts;
    std::unique_ptr<Fonts> m_fonts;
};

} // namespace ViewOpenGl

#endif
