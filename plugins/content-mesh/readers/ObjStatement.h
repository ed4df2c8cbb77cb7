#ifndef ORVIKMESH_READERS_OBJSTATEMENT_H
#define ORVIKMESH_READERS_OBJSTATEMENT_H

#include "readers/LineScan.h"

#include <cstddef>
#include <cstring>

namespace OrvikMesh {

// Statements of OBJ files: a line, and those that continue it. All texts end before `end`.

/// Whether the line before @p next, the start of another, goes on there.
inline bool IsContinued(const char* begin, const char* next)
{
    const char* last = next;
    if (last > begin && last[-1] == '\n')
        --last;
    if (last > begin && last[-1] == '\r')
        --last;
    return last > begin && last[-1] == '\\';
}

/// As NextLine(), past lines that continue it.
inline const char* NextStatement(const char* at, const char* end)
{
    const char* begin = at;
    do {
        at = NextLine(at, end);
    } while (at < end && IsContinued(begin, at));
    return at;
}

/// A backslash that ends its line.
inline bool AtContinuation(const char* at, const char* end)
{
    return at < end && *at == '\\' && (at + 1 == end || IsLineEnd(at[1]));
}

/// Whether a blank follows @p word at @p at.
inline bool StartsWithWord(const char* at, const char* end, const char* word, std::size_t length)
{
    return static_cast<std::size_t>(end - at) > length && std::memcmp(at, word, length) == 0 &&
           IsBlank(at[length]);
}

/// o, g, usemtl, mtllib: lines that name something. "g" alone names the group without a name.
bool IsObjNameLine(const char* at, const char* end);

/// Smoothing groups and the like, which change nothing that is drawn here.
bool IsObjSilent(const char* at, const char* end);

bool IsObjCurveOrSurface(const char* at, const char* end);

/// The words that belong to free-form curves and surfaces.
bool IsObjFreeForm(const char* at, const char* end);

} // namespace OrvikMesh

#endif
