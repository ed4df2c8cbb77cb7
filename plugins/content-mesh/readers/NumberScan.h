#ifndef ORVIKMESH_READERS_NUMBERSCAN_H
#define ORVIKMESH_READERS_NUMBERSCAN_H

#include <fast_float/fast_float.h>

#include <bit>
#include <cstdint>
#include <cstring>

namespace OrvikMesh {

inline bool IsBlank(char letter)
{
    return letter == ' ' || letter == '\t';
}

inline bool IsLineEnd(char letter)
{
    return letter == '\n' || letter == '\r';
}

inline const char* SkipBlanks(const char* at, const char* end)
{
    while (at < end && IsBlank(*at))
        ++at;
    return at;
}

/// Reads a number, also "+1", "nan" and "inf"; no locale is involved.
///
/// @return the first letter after it; null when there is no number at @p at.
inline const char* ScanFloat(const char* at, const char* end, float& value)
{
    if (at < end && *at == '+')
        ++at;
    const auto result = fast_float::from_chars(at, end, value);
    return result.ec == std::errc() ? result.ptr : nullptr;
}

/// Reads decimal digits; stops counting, but not reading, once the value exceeds @p limit.
///
/// @return the first letter after them; @p at itself when there is none.
inline const char* ScanDigits(const char* at, const char* end, std::int64_t limit,
                              std::int64_t& value)
{
    static_assert(std::endian::native == std::endian::little);
    value = 0;
    if (end - at >= 8) {
        // Eight letters at once: digits become 0 to 9, and the lowest byte above 9 ends them.
        std::uint64_t letters;
        std::memcpy(&letters, at, sizeof letters);
        letters ^= 0x3030303030303030u;
        const std::uint64_t others =
            ((letters + 0x7676767676767676u) | letters) & 0x8080808080808080u;
        const int count = std::countr_zero(others) / 8;
        if (count == 0)
            return at;
        if (count < 8) {
            // The digits move to the end of eight, zeros before them, and are summed in pairs.
            letters <<= 64 - count * 8;
            letters = (letters & 0x0F0F0F0F0F0F0F0Fu) * 2561 >> 8;
            letters = (letters & 0x00FF00FF00FF00FFu) * 6553601 >> 16;
            letters = (letters & 0x0000FFFF0000FFFFu) * 42949672960001u >> 32;
            value = static_cast<std::int64_t>(letters);
            return at + count;
        }
    }
    for (; at < end && *at >= '0' && *at <= '9'; ++at)
        value = value > limit ? value : value * 10 + (*at - '0');
    return at;
}

} // namespace OrvikMesh

#endif
