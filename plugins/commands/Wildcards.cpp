#include "Wildcards.h"

#include <cstddef>

namespace OrvikCommands {

bool MatchesPattern(std::wstring_view text, std::wstring_view pattern)
{
    std::size_t t = 0;
    std::size_t p = 0;
    // Where to go on when what follows the last "*" does not fit: it then takes one character more.
    std::size_t afterStar = std::wstring_view::npos;
    std::size_t takenUpTo = 0;
    while (t < text.size()) {
        if (p < pattern.size() && pattern[p] == L'*') {
            afterStar = ++p;
            takenUpTo = t;
        } else if (p < pattern.size() && (pattern[p] == L'?' || pattern[p] == text[t])) {
            ++p;
            ++t;
        } else if (afterStar != std::wstring_view::npos) {
            p = afterStar;
            t = ++takenUpTo;
        } else {
            return false;
        }
    }
    while (p < pattern.size() && pattern[p] == L'*')
        ++p;
    return p == pattern.size();
}

} // namespace OrvikCommands
