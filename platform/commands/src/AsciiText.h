#ifndef TAMBCOMMANDSINFRA_ASCIITEXT_H
#define TAMBCOMMANDSINFRA_ASCIITEXT_H

#include <string>
#include <string_view>

namespace TambCommandsInfra {

/// Gives @p text with the letters A to Z made small; every other byte stays.
inline std::string ToLowerAscii(std::string_view text)
{
    std::string lower(text);
    for (char& character : lower) {
        if (character >= 'A' && character <= 'Z') {
            character = static_cast<char>(character - 'A' + 'a');
        }
    }
    return lower;
}

} // namespace TambCommandsInfra

#endif
