#include "readers/TextEncoding.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace OrvikMesh {

namespace {

constexpr std::uint32_t kReplacement = 0xFFFD;
/// Where the line ends are looked for.
constexpr std::size_t kProbeBytes = 1u << 16;
/// Bytes of numbers that are looked at.
constexpr std::size_t kNumberProbeBytes = 256;
/// Fewer may be binary data that happen to look like text.
constexpr std::size_t kFewestNumberBytes = 24;
/// Where a byte that no text has is looked for.
constexpr std::size_t kBinaryProbeBytes = 4096;

void appendUtf8(std::uint32_t value, std::string& text)
{
    const auto byte = [&text](std::uint32_t bits) { text += static_cast<char>(bits); };
    if (value < 0x80) {
        byte(value);
    } else if (value < 0x800) {
        byte(0xC0 | (value >> 6));
        byte(0x80 | (value & 0x3F));
    } else if (value < 0x10000) {
        byte(0xE0 | (value >> 12));
        byte(0x80 | ((value >> 6) & 0x3F));
        byte(0x80 | (value & 0x3F));
    } else {
        byte(0xF0 | (value >> 18));
        byte(0x80 | ((value >> 12) & 0x3F));
        byte(0x80 | ((value >> 6) & 0x3F));
        byte(0x80 | (value & 0x3F));
    }
}

/// @param high  Index of the more significant byte in each pair: 0 or 1.
void convertUtf16(std::string_view pairs, std::size_t high, std::string& text)
{
    const auto unitAt = [&](std::size_t at) {
        const auto first = static_cast<unsigned char>(pairs[at + high]);
        const auto second = static_cast<unsigned char>(pairs[at + 1 - high]);
        return static_cast<std::uint32_t>(first) << 8 | second;
    };
    text.reserve(pairs.size() / 2);
    for (std::size_t at = 0; at + 1 < pairs.size(); at += 2) {
        const std::uint32_t unit = unitAt(at);
        if (unit < 0xD800 || unit > 0xDFFF) {
            appendUtf8(unit, text);
            continue;
        }
        const std::uint32_t next = at + 3 < pairs.size() ? unitAt(at + 2) : 0;
        if (unit < 0xDC00 && next >= 0xDC00 && next <= 0xDFFF) {
            appendUtf8(0x10000 + ((unit - 0xD800) << 10) + (next - 0xDC00), text);
            at += 2;
        } else {
            appendUtf8(kReplacement, text);
        }
    }
}

} // namespace

std::string_view ToUtf8Text(std::string_view content, std::string& storage)
{
    if (content.substr(0, 3) == "\xEF\xBB\xBF")
        return content.substr(3);
    const bool littleEndian = content.substr(0, 2) == "\xFF\xFE";
    if (!littleEndian && content.substr(0, 2) != "\xFE\xFF")
        return content;
    storage.clear();
    convertUtf16(content.substr(2), littleEndian ? 1 : 0, storage);
    return storage;
}

std::string_view WithLineFeeds(std::string_view text, std::string& storage)
{
    const std::string_view probe = text.substr(0, kProbeBytes);
    if (probe.find('\n') != probe.npos || probe.find('\r') == probe.npos)
        return text;
    std::string converted(text);
    std::replace(converted.begin(), converted.end(), '\r', '\n');
    storage = std::move(converted);
    return storage;
}

bool LooksLikeNumbers(std::string_view data)
{
    constexpr std::string_view kLetters = "0123456789.+-eE \t\r\n";
    data = data.substr(0, kNumberProbeBytes);
    return data.size() >= kFewestNumberBytes &&
           data.find_first_not_of(kLetters) == std::string_view::npos;
}

std::size_t FindBinaryByte(std::string_view data)
{
    return data.substr(0, kBinaryProbeBytes).find('\0');
}

} // namespace OrvikMesh
