#include "TambVizCore/VisibilityStamp.h"

#include <atomic>

namespace TambVizCore {

namespace {

std::atomic<std::uint64_t> visibilityStamp{1};

} // namespace

std::uint64_t GetVisibilityStamp()
{
    return visibilityStamp.load(std::memory_order_acquire);
}

void AdvanceVisibilityStamp()
{
    // Subtrees are built on any thread: a plain load and store would lose a step.
    visibilityStamp.fetch_add(1, std::memory_order_release);
}

} // namespace TambVizCore
