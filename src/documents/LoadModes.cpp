#include "OrvikCore/LoadModes.h"

#include <atomic>

namespace OrvikCore {

namespace {

// Written by a script on the worker, read by loaders there and by the host on the main thread.
std::atomic<bool> forceGraphical{false};
std::atomic<bool> forceProductStructure{false};

} // namespace

LoadMode LoadModes::Present()
{
    if (GetForceProductStructure()) {
        return LoadMode::ProductStructure;
    }
    return GetForceGraphical() ? LoadMode::Graphical : LoadMode::Everything;
}

bool LoadModes::GetForceGraphical()
{
    return forceGraphical.load(std::memory_order_acquire);
}

void LoadModes::SetForceGraphical(bool force)
{
    forceGraphical.store(force, std::memory_order_release);
}

bool LoadModes::GetForceProductStructure()
{
    return forceProductStructure.load(std::memory_order_acquire);
}

void LoadModes::SetForceProductStructure(bool force)
{
    forceProductStructure.store(force, std::memory_order_release);
}

} // namespace OrvikCore
