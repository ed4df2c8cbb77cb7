#ifndef TAMBVIZCORE_PARTSTATE_H
#define TAMBVIZCORE_PARTSTATE_H

#include "TambVizCore/RGBAColor.h"

#include <cstdint>

namespace TambVizCore {

/// The state of one part in one node: eight bytes, laid out so that a view can upload a run of
/// records as it stands.
struct PartState
{
    static constexpr std::uint32_t kShown = 1u;
    static constexpr std::uint32_t kHighlighted = 2u;
    static constexpr std::uint32_t kSelected = 4u;
    /// The colour field counts; otherwise the node's colour or the default holds.
    static constexpr std::uint32_t kColored = 8u;
    /// Picked last; drawn as what is highlighted.
    static constexpr std::uint32_t kPicked = 16u;

    bool Has(std::uint32_t flag) const { return (flags & flag) != 0; }
    bool operator==(const PartState& other) const = default;

    RGBAColor color;
    std::uint32_t flags = kShown;
};

static_assert(sizeof(PartState) == 8);

} // namespace TambVizCore

#endif
