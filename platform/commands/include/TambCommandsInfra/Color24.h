#ifndef TAMBCOMMANDSINFRA_COLOR24_H
#define TAMBCOMMANDSINFRA_COLOR24_H

#include <cstdint>

namespace TambCommandsInfra {

/// A colour of three components of eight bits each; black when default-constructed.
struct Color24
{
    std::uint8_t red = 0;   ///< 0 to 255.
    std::uint8_t green = 0; ///< 0 to 255.
    std::uint8_t blue = 0;  ///< 0 to 255.

    friend constexpr bool operator==(const Color24&, const Color24&) = default;
};

} // namespace TambCommandsInfra

#endif
