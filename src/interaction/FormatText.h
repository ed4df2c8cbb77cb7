#ifndef ORVIKCORE_INTERACTION_FORMATTEXT_H
#define ORVIKCORE_INTERACTION_FORMATTEXT_H

#include <cstddef>
#include <cstdio>
#include <string>

namespace OrvikCore {

/// Formats integers and narrow texts as printf does, into a text as long as it takes.
///
/// @param format  a constant; never text that came from outside. No conversion of it depends on
///                the locale.
template <typename... Arguments> std::string FormatText(const char* format, Arguments... arguments)
{
    const int length = std::snprintf(nullptr, 0, format, arguments...);
    if (length <= 0) {
        return std::string();
    }
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), format, arguments...);
    text.pop_back(); // The terminating zero.
    return text;
}

} // namespace OrvikCore

#endif
