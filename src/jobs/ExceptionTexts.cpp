#include "FaultTexts.h"

#include <OrvikOs/ExceptionRecord.h>

namespace OrvikCore {

namespace {

constexpr ExceptionText kExceptionTexts[] = {
    {OrvikOs::EXCEPTION_ACCESS_VIOLATION, "EXCEPTION_ACCESS_VIOLATION",
     "The thread attempted to read from or write to a virtual address that it does "
     "not have appropriate access to."},
    {OrvikOs::EXCEPTION_ARRAY_BOUNDS_EXCEEDED, "EXCEPTION_ARRAY_BOUNDS_EXCEEDED",
     "The thread attempted to access an array element that is out of bounds, and "
     "the underlying hardware supports bounds checking."},
    {OrvikOs::EXCEPTION_BREAKPOINT, "EXCEPTION_BREAKPOINT", "A breakpoint was encountered."},
    {OrvikOs::EXCEPTION_DATATYPE_MISALIGNMENT, "EXCEPTION_DATATYPE_MISALIGNMENT",
     "The thread attempted to read or write data that is misaligned on hardware "
     "that does not provide alignment. For example, 16-bit values must be aligned "
     "on 2-byte boundaries, 32-bit values on 4-byte boundaries, and so on."},
    {OrvikOs::EXCEPTION_FLT_DENORMAL_OPERAND, "EXCEPTION_FLT_DENORMAL_OPERAND",
     "An operand in a floating-point operation is too small to represent as a "
     "standard floating-point value."},
    {OrvikOs::EXCEPTION_FLT_DIVIDE_BY_ZERO, "EXCEPTION_FLT_DIVIDE_BY_ZERO",
     "The thread attempted to divide a floating-point value by a floating-point "
     "divisor of zero."},
    {OrvikOs::EXCEPTION_FLT_INEXACT_RESULT, "EXCEPTION_FLT_INEXACT_RESULT",
     "The result of a floating-point operation cannot be represented exactly as a "
     "decimal fraction."},
    {OrvikOs::EXCEPTION_FLT_INVALID_OPERATION, "EXCEPTION_FLT_INVALID_OPERATION",
     "This exception represents a floating-point exception not included in this "
     "list."},
    {OrvikOs::EXCEPTION_FLT_OVERFLOW, "EXCEPTION_FLT_OVERFLOW",
     "The exponent of a floating-point operation is greater than the magnitude "
     "allowed by the corresponding type."},
    {OrvikOs::EXCEPTION_FLT_STACK_CHECK, "EXCEPTION_FLT_STACK_CHECK",
     "The stack overflowed or underflowed as a result of a floating-point operation."},
    {OrvikOs::EXCEPTION_FLT_UNDERFLOW, "EXCEPTION_FLT_UNDERFLOW",
     "The exponent of a floating-point operation is less than the magnitude allowed "
     "by the corresponding type."},
    {OrvikOs::EXCEPTION_ILLEGAL_INSTRUCTION, "EXCEPTION_ILLEGAL_INSTRUCTION",
     "The thread tried to execute an invalid instruction."},
    {OrvikOs::EXCEPTION_IN_PAGE_ERROR, "EXCEPTION_IN_PAGE_ERROR",
     "The thread tried to access a page that was not present, and the system was "
     "unable to load the page. For example, this exception might occur if a network "
     "connection is lost while running a program over the network."},
    {OrvikOs::EXCEPTION_INT_DIVIDE_BY_ZERO, "EXCEPTION_INT_DIVIDE_BY_ZERO",
     "The thread attempted to divide an integer value by an integer divisor of zero."},
    {OrvikOs::EXCEPTION_INT_OVERFLOW, "EXCEPTION_INT_OVERFLOW",
     "The result of an integer operation caused a carry out of the most significant "
     "bit of the result."},
    {OrvikOs::EXCEPTION_INVALID_DISPOSITION, "EXCEPTION_INVALID_DISPOSITION",
     "An exception handler returned an invalid disposition to the exception "
     "dispatcher. Programmers using a high-level language such as C should never "
     "encounter this exception."},
    {OrvikOs::EXCEPTION_NONCONTINUABLE_EXCEPTION, "EXCEPTION_NONCONTINUABLE_EXCEPTION",
     "The thread attempted to continue execution after a noncontinuable exception "
     "occurred."},
    {OrvikOs::EXCEPTION_PRIV_INSTRUCTION, "EXCEPTION_PRIV_INSTRUCTION",
     "The thread attempted to execute an instruction whose operation is not allowed "
     "in the current machine mode."},
    {OrvikOs::EXCEPTION_SINGLE_STEP, "EXCEPTION_SINGLE_STEP",
     "A trace trap or other single-instruction mechanism signaled that one "
     "instruction has been run."},
    {OrvikOs::EXCEPTION_STACK_OVERFLOW, "EXCEPTION_STACK_OVERFLOW",
     "The thread used up its stack."},
    {OrvikOs::STATUS_BAD_STACK, "STATUS_BAD_STACK",
     "An invalid or unaligned stack was encountered during an unwind operation.( "
     "From app team: possibly jongjmp to corrupted jump buffer)"},
    {OrvikOs::STATUS_INVALID_UNWIND_TARGET, "STATUS_INVALID_UNWIND_TARGET",
     "An invalid unwind target was encountered during an unwind operation.( From "
     "app team: possibly jongjmp to corrupted jump buffer)"},
};

constexpr ExceptionText kUnknownCode = {0, kInvalidCode, ""};

} // namespace

const ExceptionText& exceptionText(std::uint32_t code)
{
    for (const ExceptionText& text : kExceptionTexts) {
        if (text.code == code) {
            return text;
        }
    }
    return kUnknownCode;
}

} // namespace OrvikCore
