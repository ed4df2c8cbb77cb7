#ifndef ORVIKMESH_READERS_NUMBERSCAN_H
#define ORVIKMESH_READERS_NUMBERSCAN_H

#include <fast_float/fast_float.h>

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

} // namespace OrvikMesh

#endif
