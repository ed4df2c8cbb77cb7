#include "TambVizCore/AllowThrow.h"

#include <atomic>

namespace TambVizCore {

namespace {

std::atomic<bool> allowThrow{false};

} // namespace

bool GetAllowThrow()
{
    return allowThrow.load(std::memory_order_acquire);
}

void SetAllowThrow(bool allow)
{
    allowThrow.store(allow, std::memory_order_release);
}

} // namespace TambVizCore
