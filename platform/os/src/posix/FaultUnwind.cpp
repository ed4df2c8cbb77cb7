#include "common/ExceptionTable.h"
#include "posix/Faults.h"

#include <unwind.h>

#include <cstring>

// The names are the runtime's.
// NOLINTBEGIN(bugprone-reserved-identifier)
extern "C" {

/// The C++ personality routine of this process; only its address is used.
void __gxx_personality_v0();

/// What the unwinder knows about the function around an address.
struct UnwindBases
{
    void* tbase;
    void* dbase;
    void* func;
};
const void* _Unwind_Find_FDE(const void* address, UnwindBases* bases);
}
// NOLINTEND(bugprone-reserved-identifier)

namespace OrvikOs {

namespace {

constexpr unsigned kMostFrames = 1u << 20; ///< Past this the stack is taken for broken.

/// Tells whether the function around @p address leaves its exceptions to the C++ runtime: only that
/// one ends the program at a place that the table leaves out.
bool usesCppPersonality(const void* address)
{
    UnwindBases bases = {};
    const auto* const fde = static_cast<const unsigned char*>(_Unwind_Find_FDE(address, &bases));
    if (fde == nullptr) {
        return false;
    }
    // The second word is the distance back to the common entry.
    std::int32_t distance = 0;
    std::memcpy(&distance, fde + 4, sizeof distance);
    const unsigned char* const cie = fde + 4 - distance;
    const unsigned char version = cie[8];
    const char* const augmentation = reinterpret_cast<const char*>(cie + 9);
    if (augmentation[0] != 'z') {
        return false;
    }
    TableReader reader(cie + 9 + std::strlen(augmentation) + 1);
    reader.Unsigned(); // Code alignment.
    reader.Signed();   // Data alignment.
    if (version == 1) {
        reader.Byte();
    } else {
        reader.Unsigned();
    }
    reader.Unsigned(); // Length of what follows.
    for (const char* letter = augmentation + 1; *letter != '\0'; ++letter) {
        if (*letter == 'P') {
            const unsigned char encoding = reader.Byte();
            return reader.Encoded(encoding) ==
                   reinterpret_cast<std::uint64_t>(&__gxx_personality_v0);
        }
        if (*letter == 'R' || *letter == 'L') {
            reader.Byte();
        } else if (*letter != 'S' && *letter != 'B') {
            return false;
        }
    }
    return false;
}

/// The state of one walk outward.
struct Walk
{
    const std::type_info* type;
    void* object;
    std::uint64_t faultAddress; ///< Program counter of the faulting frame.
    std::uint64_t faultStack;   ///< Stack pointer of the faulting frame.
    unsigned frames = 0;
    bool reachedFault = false;    ///< The frames of this library's own handling are passed.
    bool moveToThisFrame = false; ///< The frame before would have ended the program.
    bool isMoved = false;
    bool hasCatcher = false;
    FaultFrame target = {}; ///< Where to throw from when isMoved.
};

/// Takes the registers of the frame that the walk stands at.
void takeRegisters(_Unwind_Context* context, FaultFrame& target)
{
    const auto value = [context](int number) {
        return static_cast<std::uint64_t>(_Unwind_GetGR(context, number));
    };
    target.rip = _Unwind_GetIP(context) - 1; // Within the call, not behind it.
    target.rsp = _Unwind_GetCFA(context);
    target.rbx = value(3);
    target.rbp = value(6);
    target.r12 = value(12);
    target.r13 = value(13);
    target.r14 = value(14);
    target.r15 = value(15);
}

_Unwind_Reason_Code visitFrame(_Unwind_Context* context, void* argument)
{
    Walk& walk = *static_cast<Walk*>(argument);
    int isExact = 0;
    const std::uint64_t reported = _Unwind_GetIPInfo(context, &isExact);
    if (reported == 0 || ++walk.frames > kMostFrames) {
        return _URC_END_OF_STACK;
    }
    if (!walk.reachedFault) {
        walk.reachedFault =
            reported == walk.faultAddress && _Unwind_GetCFA(context) == walk.faultStack;
        if (!walk.reachedFault) {
            return _URC_NO_REASON;
        }
    }
    if (walk.moveToThisFrame) {
        takeRegisters(context, walk.target);
        walk.isMoved = true;
        walk.moveToThisFrame = false;
    }
    const std::uint64_t address = isExact != 0 ? reported : reported - 1;
    const auto* const table =
        reinterpret_cast<const unsigned char*>(_Unwind_GetLanguageSpecificData(context));
    if (table == nullptr || !usesCppPersonality(reinterpret_cast<const void*>(address))) {
        return _URC_NO_REASON;
    }
    switch (ExceptionTable(table, _Unwind_GetRegionStart(context))
                .AnswerAt(address, walk.type, walk.object)) {
    case FrameAnswer::Passes:
        break;
    case FrameAnswer::Catches:
        walk.hasCatcher = true;
        return _URC_END_OF_STACK;
    case FrameAnswer::Terminates:
        walk.moveToThisFrame = true;
        break;
    }
    return _URC_NO_REASON;
}

} // namespace

bool SkipTerminatingFrames(FaultFrame& frame, const std::type_info* type, void* object)
{
    Walk walk = {};
    walk.type = type;
    walk.object = object;
    walk.faultAddress = frame.rip;
    walk.faultStack = frame.rsp;
    _Unwind_Backtrace(&visitFrame, &walk);
    if (!walk.isMoved || !walk.hasCatcher) {
        return walk.hasCatcher;
    }
    frame.rip = walk.target.rip;
    frame.rsp = walk.target.rsp;
    frame.rbx = walk.target.rbx;
    frame.rbp = walk.target.rbp;
    frame.r12 = walk.target.r12;
    frame.r13 = walk.target.r13;
    frame.r14 = walk.target.r14;
    frame.r15 = walk.target.r15;
    return true;
}

} // namespace OrvikOs
