#ifndef TESTS_MEMORYORDER_H
#define TESTS_MEMORYORDER_H

#include <algorithm>
#include <cstdint>
#include <vector>

/// Tells whether the fields of one object, given by address, lie in this order.
template <typename... Field> bool LieInThisOrder(const Field*... fields)
{
    const std::vector<std::uintptr_t> addresses = {reinterpret_cast<std::uintptr_t>(fields)...};
    return std::is_sorted(addresses.begin(), addresses.end());
}

#endif
