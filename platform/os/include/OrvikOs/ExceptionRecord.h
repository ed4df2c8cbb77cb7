#ifndef ORVIKOS_EXCEPTIONRECORD_H
#define ORVIKOS_EXCEPTIONRECORD_H

#include <cstdint>

namespace OrvikOs {

// Names and values are those of Windows on every system, so that messages and tests read the same.
// NOLINTBEGIN(readability-identifier-naming)

/// Number of details that a record has room for.
inline constexpr std::uint32_t EXCEPTION_MAXIMUM_PARAMETERS = 15;

/// The only flag: the program cannot go on at the place of the fault.
inline constexpr std::uint32_t EXCEPTION_NONCONTINUABLE = 1;

/// What is known about one machine fault; laid out as on Windows.
struct EXCEPTION_RECORD
{
    std::uint32_t ExceptionCode = 0;  ///< One of the codes below.
    std::uint32_t ExceptionFlags = 0; ///< 0 or EXCEPTION_NONCONTINUABLE.
    EXCEPTION_RECORD* ExceptionRecord =
        nullptr; ///< A fault met while handling this one; not owned, mostly null.
    void* ExceptionAddress = nullptr;   ///< Address of the faulting instruction.
    std::uint32_t NumberParameters = 0; ///< How many of the details are used.
    /// Details. EXCEPTION_ACCESS_VIOLATION has two: the kind (0 read, 1 write, 8 execute) and the
    /// address asked for. EXCEPTION_IN_PAGE_ERROR has these two and the system's status. The others
    /// have none.
    std::uintptr_t ExceptionInformation[EXCEPTION_MAXIMUM_PARAMETERS] = {};
};

inline constexpr std::uint32_t EXCEPTION_DATATYPE_MISALIGNMENT = 0x80000002u;
inline constexpr std::uint32_t EXCEPTION_BREAKPOINT = 0x80000003u;
inline constexpr std::uint32_t EXCEPTION_SINGLE_STEP = 0x80000004u;
inline constexpr std::uint32_t EXCEPTION_ACCESS_VIOLATION = 0xC0000005u;
inline constexpr std::uint32_t EXCEPTION_IN_PAGE_ERROR = 0xC0000006u;
inline constexpr std::uint32_t EXCEPTION_ILLEGAL_INSTRUCTION = 0xC000001Du;
inline constexpr std::uint32_t EXCEPTION_NONCONTINUABLE_EXCEPTION = 0xC0000025u;
inline constexpr std::uint32_t EXCEPTION_INVALID_DISPOSITION = 0xC0000026u;
inline constexpr std::uint32_t STATUS_BAD_STACK = 0xC0000028u;
inline constexpr std::uint32_t STATUS_INVALID_UNWIND_TARGET = 0xC0000029u;
inline constexpr std::uint32_t EXCEPTION_ARRAY_BOUNDS_EXCEEDED = 0xC000008Cu;
inline constexpr std::uint32_t EXCEPTION_FLT_DENORMAL_OPERAND = 0xC000008Du;
inline constexpr std::uint32_t EXCEPTION_FLT_DIVIDE_BY_ZERO = 0xC000008Eu;
inline constexpr std::uint32_t EXCEPTION_FLT_INEXACT_RESULT = 0xC000008Fu;
inline constexpr std::uint32_t EXCEPTION_FLT_INVALID_OPERATION = 0xC0000090u;
inline constexpr std::uint32_t EXCEPTION_FLT_OVERFLOW = 0xC0000091u;
inline constexpr std::uint32_t EXCEPTION_FLT_STACK_CHECK = 0xC0000092u;
inline constexpr std::uint32_t EXCEPTION_FLT_UNDERFLOW = 0xC0000093u;
inline constexpr std::uint32_t EXCEPTION_INT_DIVIDE_BY_ZERO = 0xC0000094u;
inline constexpr std::uint32_t EXCEPTION_INT_OVERFLOW = 0xC0000095u;
inline constexpr std::uint32_t EXCEPTION_PRIV_INSTRUCTION = 0xC0000096u;
inline constexpr std::uint32_t EXCEPTION_STACK_OVERFLOW = 0xC00000FDu;

/// Third detail of an EXCEPTION_IN_PAGE_ERROR where the system gives no status: reading past the
/// end of a mapped file.
inline constexpr std::uint32_t STATUS_END_OF_FILE = 0xC0000011u;

// NOLINTEND(readability-identifier-naming)

} // namespace OrvikOs

#endif
