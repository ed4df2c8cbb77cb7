#ifndef ORVIKCORE_CONTENTMESSAGES_H
#define ORVIKCORE_CONTENTMESSAGES_H

#include <string>

namespace OrvikCore {

/// Adds an error to the ones before it: the second and every later one begins a new line.
inline void AppendErrorLine(std::wstring& errors, const std::wstring& text)
{
    if (!errors.empty()) {
        errors += L"\n";
    }
    errors += text;
}

} // namespace OrvikCore

#endif
