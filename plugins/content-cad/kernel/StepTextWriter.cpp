#include "kernel/StepTextWriter.h"

#include <cstdint>

namespace OrvikCad {

namespace {

bool isAscii(char byte)
{
    return static_cast<unsigned char>(byte) < 0x80;
}

/// Reads one character of UTF-8 and moves behind it. A byte that begins none stands for itself.
char32_t nextCharacter(std::string_view text, std::size_t& position)
{
    const auto byte = [&](std::size_t at) -> char32_t {
        return at < text.size() ? static_cast<unsigned char>(text[at]) : 0;
    };
    const char32_t lead = byte(position);
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : lead >= 0xC0 ? 2 : 1;
    char32_t character = length == 1 ? lead : lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const char32_t next = byte(position + i);
        if ((next & 0xC0) != 0x80) {
            ++position;
            return lead;
        }
        character = character << 6 | (next & 0x3F);
    }
    position += length;
    return character;
}

void appendHex(std::string& text, char32_t value, int digits)
{
    constexpr char kDigits[] = "0123456789ABCDEF";
    for (int shift = 4 * (digits - 1); shift >= 0; shift -= 4)
        text += kDigits[value >> shift & 0xF];
}

/// Appends characters of one width as one escape and moves behind them.
void appendEscape(std::string& escaped, const std::string& string, std::size_t& position)
{
    std::size_t at = position;
    const bool isWide = nextCharacter(string, at) > 0xFFFF;
    escaped += isWide ? "\\X4\\" : "\\X2\\";
    while (position < string.size() && !isAscii(string[position])) {
        at = position;
        const char32_t character = nextCharacter(string, at);
        if ((character > 0xFFFF) != isWide)
            break;
        appendHex(escaped, character, isWide ? 8 : 4);
        position = at;
    }
    escaped += "\\X0\\";
}

void appendString(std::string& escaped, const std::string& string)
{
    for (std::size_t i = 0; i < string.size();) {
        if (isAscii(string[i]))
            escaped += string[i++];
        else
            appendEscape(escaped, string, i);
    }
}

} // namespace

std::string EscapeStepText(std::string_view text)
{
    std::string escaped;
    escaped.reserve(text.size() + text.size() / 16);
    std::string string; ///< What stands between two apostrophes, without line breaks.
    bool isInside = false;
    for (const char byte : text) {
        if (byte == '\'') {
            appendString(escaped, string);
            string.clear();
            isInside = !isInside;
            escaped += byte;
        } else if (!isInside) {
            escaped += byte;
        } else if (byte != '\n' && byte != '\r') {
            string += byte;
        }
    }
    appendString(escaped, string);
    return escaped;
}

} // namespace OrvikCad
