#ifndef TESTS_VIRTUALSLOT_H
#define TESTS_VIRTUALSLOT_H

#include <cstddef>
#include <cstdint>
#include <cstring>

/// Tells the position of a virtual operation in its class's table, counted from 0.
///
/// A virtual destructor takes two positions. Reads the representation that the common C++ ABI of
/// gcc and clang on x86-64 gives to pointers to members: 1 plus the offset in the table.
///
/// @return -1 when the operation is not virtual.
template <typename Member> int VirtualSlot(Member member)
{
    struct
    {
        std::uintptr_t pointer;
        std::ptrdiff_t adjustment;
    } representation;
    static_assert(sizeof(representation) == sizeof(member));
    std::memcpy(&representation, &member, sizeof(member));
    if ((representation.pointer & 1u) == 0) {
        return -1;
    }
    return static_cast<int>((representation.pointer - 1) / sizeof(void*));
}

#endif
