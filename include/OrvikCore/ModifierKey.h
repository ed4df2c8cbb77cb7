#ifndef ORVIKCORE_MODIFIERKEY_H
#define ORVIKCORE_MODIFIERKEY_H

#include <cstdint>

namespace OrvikCore {

/// Modifier keys held during an event, as bit flags that combine.
enum class ModifierKey : std::int32_t
{
    None = 0,
    Alt = 1,
    Ctrl = 4,
    Shift = 16
};

/// @return the keys held in @p left or in @p right.
constexpr ModifierKey operator|(ModifierKey left, ModifierKey right)
{
    return static_cast<ModifierKey>(static_cast<std::int32_t>(left) |
                                    static_cast<std::int32_t>(right));
}

/// @return the keys held in both @p left and @p right.
constexpr ModifierKey operator&(ModifierKey left, ModifierKey right)
{
    return static_cast<ModifierKey>(static_cast<std::int32_t>(left) &
                                    static_cast<std::int32_t>(right));
}

} // namespace OrvikCore

#endif
