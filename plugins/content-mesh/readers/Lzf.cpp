#include "readers/Lzf.h"

#include <cstring>

namespace OrvikMesh {

namespace {

constexpr unsigned kPlainCodes = 32;
constexpr std::size_t kLongCode = 7;

/// @return false when the run does not fit.
bool copyPlain(LzfState& state, std::size_t count)
{
    if (static_cast<std::size_t>(state.end - state.at) < count ||
        static_cast<std::size_t>(state.limit - state.to) < count)
        return false;
    std::memcpy(state.to, state.at, count);
    state.at += count;
    state.to += count;
    return true;
}

/// @return false when the copy does not fit.
bool copyBack(LzfState& state, unsigned control)
{
    std::size_t count = control >> 5;
    if (count == kLongCode) {
        if (state.at == state.end)
            return false;
        count += std::to_integer<std::size_t>(*state.at++);
    }
    count += 2;
    if (state.at == state.end)
        return false;
    const std::size_t distance =
        (std::size_t{control & 0x1Fu} << 8) + std::to_integer<std::size_t>(*state.at++) + 1;
    if (static_cast<std::size_t>(state.to - state.begin) < distance ||
        static_cast<std::size_t>(state.limit - state.to) < count)
        return false;
    // Byte by byte: a copy may reach into what it has just written.
    const std::byte* from = state.to - distance;
    for (std::size_t i = 0; i < count; ++i)
        state.to[i] = from[i];
    state.to += count;
    return true;
}

} // namespace

LzfStop UnpackLzf(LzfState& state, std::size_t pause)
{
    const std::byte* const begin = state.to;
    while (state.at < state.end) {
        if (static_cast<std::size_t>(state.to - begin) >= pause)
            return LzfStop::Paused;
        const auto control = std::to_integer<unsigned>(*state.at++);
        const bool fits = control < kPlainCodes ? copyPlain(state, std::size_t{control} + 1)
                                                : copyBack(state, control);
        if (!fits)
            return LzfStop::Damaged;
    }
    return LzfStop::Done;
}

} // namespace OrvikMesh
