#include "Faults.h"
#include "common/ExceptionTable.h"

#include <windows.h>

#include <cstdint>
#include <cstring>

extern "C" {

/// The C++ personality routine of this process; only its address is used.
void __gxx_personality_seh0();
}

namespace OrvikOs {

namespace {

constexpr unsigned kMostFrames = 1u << 20; ///< Past this the stack is taken for broken.

/// Follows the jump that stands in for a function of another library.
std::uint64_t behindImport(std::uint64_t address)
{
    const auto* const code = reinterpret_cast<const unsigned char*>(address);
    if (code[0] != 0xFF || code[1] != 0x25) {
        return address;
    }
    std::int32_t distance = 0;
    std::memcpy(&distance, code + 2, sizeof distance);
    std::uint64_t target = 0;
    std::memcpy(&target, code + 6 + distance, sizeof target);
    return target;
}

/// Takes one step outward. @return false at the end of the stack.
///
/// @param answer  Receives what the frame stepped out of does with the exception.
bool stepOut(CONTEXT& context, bool isFaultingFrame, const std::type_info* type, void* object,
             FrameAnswer& answer)
{
    answer = FrameAnswer::Passes;
    // Behind a call the code may already belong to the next function.
    const std::uint64_t address = isFaultingFrame ? context.Rip : context.Rip - 1;
    DWORD64 imageBase = 0;
    RUNTIME_FUNCTION* const function = RtlLookupFunctionEntry(address, &imageBase, nullptr);
    if (function == nullptr) { // A leaf: the return address is on top of the stack.
        if (!isFaultingFrame) {
            return false;
        }
        std::memcpy(&context.Rip, reinterpret_cast<const void*>(context.Rsp), sizeof context.Rip);
        context.Rsp += sizeof context.Rip;
        return context.Rip != 0;
    }
    void* handlerData = nullptr;
    DWORD64 establisher = 0;
    const auto handler = RtlVirtualUnwind(UNW_FLAG_EHANDLER, imageBase, address, function, &context,
                                          &handlerData, &establisher, nullptr);
    const bool isCpp = handler != nullptr &&
                       behindImport(reinterpret_cast<std::uint64_t>(handler)) ==
                           behindImport(reinterpret_cast<std::uint64_t>(&__gxx_personality_seh0));
    if (isCpp && handlerData != nullptr) {
        answer = ExceptionTable(static_cast<const unsigned char*>(handlerData),
                                imageBase + function->BeginAddress)
                     .AnswerAt(address, type, object);
    }
    return context.Rip != 0;
}

} // namespace

bool SkipTerminatingFrames(CONTEXT& context, const std::type_info* type, void* object)
{
    CONTEXT walk = context;
    CONTEXT target = context;
    for (unsigned frame = 0; frame < kMostFrames; ++frame) {
        FrameAnswer answer = FrameAnswer::Passes;
        const bool goesOn = stepOut(walk, frame == 0, type, object, answer);
        if (answer == FrameAnswer::Catches) {
            context = target;
            return true;
        }
        if (!goesOn) {
            return false;
        }
        if (answer == FrameAnswer::Terminates) {
            target = walk;
            target.Rip -= 1; // Within the call, not behind it.
        }
    }
    return false;
}

} // namespace OrvikOs
