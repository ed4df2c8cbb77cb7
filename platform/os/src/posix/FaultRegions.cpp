#include "posix/Faults.h"

#include <dlfcn.h>
#include <link.h>
#include <ucontext.h>
#include <unwind.h>

#include <algorithm>
#include <array>
#include <cstddef>

namespace OrvikOs {

namespace {

/// The code of one loaded library.
struct Region
{
    std::uintptr_t begin = 0;
    std::uintptr_t end = 0;

    bool Contains(std::uintptr_t address) const { return address >= begin && address < end; }
};

/// Entry points of the memory allocator; its inner functions are always called through one of them.
constexpr const char* kAllocatorNames[] = {"__libc_malloc",  "__libc_free",     "__libc_calloc",
                                           "__libc_realloc", "__libc_memalign", "__libc_valloc",
                                           "__libc_pvalloc", "posix_memalign",  "aligned_alloc",
                                           "malloc_trim",    "mallopt",         "malloc_info"};

constexpr unsigned kMostAllocatorFrames = 16;

struct Regions
{
    Region libc;
    Region loader;
    Region unwinder;
    std::array<std::uintptr_t, std::size(kAllocatorNames)> allocator = {};
    bool isLearnt = false;
};

Regions g_regions; ///< Written before the handlers are installed, read in them.

/// Gives the code of the library that holds @p function; empty when it is not known.
Region regionAround(const void* function)
{
    Region region;
    dl_find_object found = {};
    if (function != nullptr && _dl_find_object(const_cast<void*>(function), &found) == 0) {
        region.begin = reinterpret_cast<std::uintptr_t>(found.dlfo_map_start);
        region.end = reinterpret_cast<std::uintptr_t>(found.dlfo_map_end);
    }
    return region;
}

struct AllocatorSearch
{
    unsigned frames = 0;
    bool reachedCode = false; ///< The handler's own frames are passed.
    bool isInside = false;
    std::uintptr_t address = 0; ///< Interrupted program counter.
};

_Unwind_Reason_Code visitAllocatorFrame(_Unwind_Context* context, void* argument)
{
    auto& search = *static_cast<AllocatorSearch*>(argument);
    int isExact = 0;
    const std::uintptr_t address = _Unwind_GetIPInfo(context, &isExact);
    if (!search.reachedCode) {
        search.reachedCode = address == search.address && isExact != 0;
        if (!search.reachedCode) {
            return _URC_NO_REASON;
        }
    }
    if (!g_regions.libc.Contains(address) || ++search.frames > kMostAllocatorFrames) {
        return _URC_END_OF_STACK;
    }
    const std::uintptr_t start = _Unwind_GetRegionStart(context);
    const auto& entries = g_regions.allocator;
    search.isInside = std::find(entries.begin(), entries.end(), start) != entries.end();
    return search.isInside ? _URC_END_OF_STACK : _URC_NO_REASON;
}

bool isInAllocatorAt(std::uintptr_t address)
{
    if (!g_regions.libc.Contains(address)) {
        return false;
    }
    AllocatorSearch search;
    search.address = address;
    _Unwind_Backtrace(&visitAllocatorFrame, &search);
    return search.isInside;
}

_Unwind_Reason_Code visitNothing(_Unwind_Context*, void*)
{
    return _URC_NO_REASON;
}

std::uintptr_t programCounterOf(const ucontext_t& context)
{
    return static_cast<std::uintptr_t>(context.uc_mcontext.gregs[REG_RIP]);
}

} // namespace

void LearnFaultRegions()
{
    if (g_regions.isLearnt) {
        return;
    }
    for (std::size_t i = 0; i < std::size(kAllocatorNames); ++i) {
        const void* const entry = dlsym(RTLD_DEFAULT, kAllocatorNames[i]);
        g_regions.allocator[i] = reinterpret_cast<std::uintptr_t>(entry);
    }
    g_regions.libc = regionAround(dlsym(RTLD_DEFAULT, "__libc_malloc"));
    g_regions.loader = regionAround(reinterpret_cast<const void*>(_r_debug.r_ldbase));
    const Region ownCode = regionAround(reinterpret_cast<const void*>(&LearnFaultRegions));
    // Not one of the functions that sanitizers put their own in the place of.
    const Region unwinder = regionAround(reinterpret_cast<const void*>(&_Unwind_GetCFA));
    if (unwinder.begin !=
        ownCode.begin) { // An unwinder linked into this library cannot be told apart.
        g_regions.unwinder = unwinder;
    }
    // What the unwinder sets up on first use must not happen inside a handler.
    _Unwind_Backtrace(&visitNothing, nullptr);
    g_regions.isLearnt = true;
}

bool MustNotThrowFrom(const ucontext_t& context)
{
    const std::uintptr_t address = programCounterOf(context);
    return g_regions.unwinder.Contains(address) || g_regions.loader.Contains(address) ||
           isInAllocatorAt(address);
}

bool IsInsideAllocator(const void* context)
{
    LearnFaultRegions();
    const std::uintptr_t address = programCounterOf(*static_cast<const ucontext_t*>(context));
    return g_regions.loader.Contains(address) || isInAllocatorAt(address);
}

} // namespace OrvikOs
