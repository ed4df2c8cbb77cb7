#include <OrvikOs/Utf8.h>

#include <cstdint>

namespace OrvikOs {

namespace {

constexpr char32_t kReplacement = 0xFFFD;
constexpr char32_t kLastCharacter = 0x10FFFF;
constexpr char32_t kEscapeBase = 0xDC00; ///< An odd byte b is shown as the unit kEscapeBase + b.

unsigned char byteAt(std::string_view bytes, std::size_t position)
{
    return static_cast<unsigned char>(bytes[position]);
}

bool isContinuation(unsigned char byte)
{
    return (byte & 0xC0u) == 0x80u;
}

bool isSurrogate(char32_t character)
{
    return character >= 0xD800 && character <= 0xDFFF;
}

bool isEscapedByte(char32_t unit)
{
    return unit >= 0xDC80 && unit <= 0xDCFF;
}

/// Decodes the character at @p position.
///
/// @param character  Receives the character.
/// @return number of bytes it takes; 0 when there is no valid character.
std::size_t decode(std::string_view bytes, std::size_t position, char32_t& character)
{
    const unsigned char lead = byteAt(bytes, position);
    if (lead < 0x80) {
        character = lead;
        return 1;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    if (lead < 0xC2 || lead > 0xF4 || bytes.size() - position < length) {
        return 0;
    }
    character = lead & (0x7Fu >> length);
    for (std::size_t i = 1; i < length; ++i) {
        const unsigned char byte = byteAt(bytes, position + i);
        if (!isContinuation(byte)) {
            return 0;
        }
        character = (character << 6) | (byte & 0x3Fu);
    }
    const char32_t smallest = length == 4 ? 0x10000 : length == 3 ? 0x800 : 0x80;
    const bool valid =
        character >= smallest && character <= kLastCharacter && !isSurrogate(character);
    return valid ? length : 0;
}

void appendWide(std::wstring& text, char32_t character)
{
    if constexpr (sizeof(wchar_t) == 2) {
        if (character > 0xFFFF) {
            const char32_t offset = character - 0x10000;
            text.push_back(static_cast<wchar_t>(0xD800 + (offset >> 10)));
            text.push_back(static_cast<wchar_t>(0xDC00 + (offset & 0x3FF)));
            return;
        }
    }
    text.push_back(static_cast<wchar_t>(character));
}

void appendUtf8(std::string& bytes, char32_t character)
{
    const auto push = [&bytes](char32_t value) { bytes.push_back(static_cast<char>(value)); };
    if (character < 0x80) {
        push(character);
    } else if (character < 0x800) {
        push(0xC0 | (character >> 6));
        push(0x80 | (character & 0x3F));
    } else if (character < 0x10000) {
        push(0xE0 | (character >> 12));
        push(0x80 | ((character >> 6) & 0x3F));
        push(0x80 | (character & 0x3F));
    } else {
        push(0xF0 | (character >> 18));
        push(0x80 | ((character >> 12) & 0x3F));
        push(0x80 | ((character >> 6) & 0x3F));
        push(0x80 | (character & 0x3F));
    }
}

} // namespace

std::wstring Utf8ToWide(std::string_view bytes)
{
    std::wstring text;
    text.reserve(bytes.size());
    for (std::size_t i = 0; i < bytes.size();) {
        char32_t character = 0;
        const std::size_t length = decode(bytes, i, character);
        if (length == 0) {
            text.push_back(static_cast<wchar_t>(kEscapeBase + byteAt(bytes, i)));
            ++i;
        } else {
            appendWide(text, character);
            i += length;
        }
    }
    return text;
}

std::string WideToUtf8(std::wstring_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto unit = static_cast<char32_t>(text[i]);
        if (unit >= 0xD800 && unit <= 0xDBFF && i + 1 < text.size()) {
            const auto next = static_cast<char32_t>(text[i + 1]);
            if (next >= 0xDC00 && next <= 0xDFFF) {
                appendUtf8(bytes, 0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00));
                ++i;
                continue;
            }
        }
        if (isEscapedByte(unit)) {
            bytes.push_back(static_cast<char>(unit - kEscapeBase));
        } else {
            appendUtf8(bytes, isSurrogate(unit) || unit > kLastCharacter ? kReplacement : unit);
        }
    }
    return bytes;
}

bool IsValidUtf8(std::string_view bytes)
{
    for (std::size_t i = 0; i < bytes.size();) {
        char32_t character = 0;
        const std::size_t length = decode(bytes, i, character);
        if (length == 0) {
            return false;
        }
        i += length;
    }
    return true;
}

} // namespace OrvikOs
