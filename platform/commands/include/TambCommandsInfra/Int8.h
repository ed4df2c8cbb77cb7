#ifndef TAMBCOMMANDSINFRA_INT8_H
#define TAMBCOMMANDSINFRA_INT8_H

#include <cstdint>

namespace TambCommandsInfra {

/// An eight-bit value without sign, 0 to 255; carries the alpha component of a colour.
///
/// Made explicitly, so that a wider number is never cut without a visible cast.
class Int8
{
public:
    /// Holds 0.
    constexpr Int8() = default;

    /// Holds @p value.
    constexpr explicit Int8(std::uint8_t value) : m_value(value) {}

    /// Gives the value, 0 to 255.
    constexpr std::uint8_t Value() const { return m_value; }

    friend constexpr bool operator==(const Int8&, const Int8&) = default;

private:
    std::uint8_t m_value = 0; ///< 0 to 255.
};

} // namespace TambCommandsInfra

#endif
