#ifndef ORVIKMESH_READERS_LINESCAN_H
#define ORVIKMESH_READERS_LINESCAN_H

#include "readers/NumberScan.h"

#include <cstddef>
#include <cstring>
#include <string_view>

namespace OrvikMesh {

/// @return the start of the next line, or @p end.
inline const char* NextLine(const char* at, const char* end)
{
    if (at < end && *at == '\n')
        return at + 1;
    const void* found =
        at < end ? std::memchr(at, '\n', static_cast<std::size_t>(end - at)) : nullptr;
    return found ? static_cast<const char*>(found) + 1 : end;
}

inline bool AtLineEnd(const char* at, const char* end)
{
    return at == end || IsLineEnd(*at);
}

/// Skips blanks, line ends and comments, which begin with @p comment and end with their line.
///
/// @param comment  0 where the format has none.
/// @return the first letter of the next line that holds something, or @p end.
inline const char* SkipToRow(const char* at, const char* end, char comment)
{
    for (;;) {
        while (at < end && (IsBlank(*at) || IsLineEnd(*at)))
            ++at;
        if (at == end || comment == 0 || *at != comment)
            return at;
        at = NextLine(at, end);
    }
}

/// @return the text without the blanks and line ends around it.
inline std::string_view Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos)
        return {};
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

} // namespace OrvikMesh

#endif
