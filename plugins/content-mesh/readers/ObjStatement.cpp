#include "readers/ObjStatement.h"

namespace OrvikMesh {

bool IsObjNameLine(const char* at, const char* end)
{
    if (*at == 'o' || *at == 'g')
        return at + 1 == end || IsBlank(at[1]) || IsLineEnd(at[1]);
    return StartsWithWord(at, end, "usemtl", 6) || StartsWithWord(at, end, "mtllib", 6);
}

bool IsObjSilent(const char* at, const char* end)
{
    return StartsWithWord(at, end, "s", 1) || StartsWithWord(at, end, "mg", 2) ||
           StartsWithWord(at, end, "usemap", 6) || StartsWithWord(at, end, "maplib", 6) ||
           StartsWithWord(at, end, "bevel", 5) || StartsWithWord(at, end, "lod", 3) ||
           StartsWithWord(at, end, "c_interp", 8) || StartsWithWord(at, end, "d_interp", 8);
}

bool IsObjCurveOrSurface(const char* at, const char* end)
{
    return StartsWithWord(at, end, "curv", 4) || StartsWithWord(at, end, "curv2", 5) ||
           StartsWithWord(at, end, "surf", 4);
}

bool IsObjFreeForm(const char* at, const char* end)
{
    static constexpr const char* kWords[] = {"vp",   "deg",  "bmat", "step", "cstype", "parm",
                                             "trim", "hole", "scrv", "sp",   "con"};
    for (const char* word : kWords)
        if (StartsWithWord(at, end, word, std::strlen(word)))
            return true;
    return static_cast<std::size_t>(end - at) >= 3 && std::memcmp(at, "end", 3) == 0;
}

} // namespace OrvikMesh
