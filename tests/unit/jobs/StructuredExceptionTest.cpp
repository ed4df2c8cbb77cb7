#include "OrvikCore/StructuredException.h"

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <type_traits>

using OrvikCore::StructuredException;
using OrvikOs::EXCEPTION_RECORD;

static_assert(std::is_base_of_v<std::exception, StructuredException>);

namespace {

EXCEPTION_RECORD recordOf(std::uint32_t code)
{
    EXCEPTION_RECORD record;
    record.ExceptionCode = code;
    record.ExceptionAddress = reinterpret_cast<void*>(0x1234);
    return record;
}

EXCEPTION_RECORD accessRecord(std::uint32_t code, std::uintptr_t kind, std::uintptr_t address)
{
    EXCEPTION_RECORD record = recordOf(code);
    record.NumberParameters = 2;
    record.ExceptionInformation[0] = kind;
    record.ExceptionInformation[1] = address;
    return record;
}

std::string textOf(EXCEPTION_RECORD record)
{
    return StructuredException(&record).what();
}

struct CodeCase
{
    std::uint32_t code;
    const char* digits;
    const char* name;
    const char* description;
};

/// Keeps the names of the tests readable.
void PrintTo(const CodeCase& testCase, std::ostream* stream)
{
    *stream << testCase.name;
}

// The codes have their standard values; the two kinds of access fault are told in tests of their
// own.
const CodeCase kCases[] = {
    {0xC000008Cu, "0xC000008C", "EXCEPTION_ARRAY_BOUNDS_EXCEEDED",
     "The thread attempted to access an array element that is out of bounds, and the underlying "
     "hardware supports bounds checking."},
    {0x80000003u, "0x80000003", "EXCEPTION_BREAKPOINT", "A breakpoint was encountered."},
    {0x80000002u, "0x80000002", "EXCEPTION_DATATYPE_MISALIGNMENT",
     "The thread attempted to read or write data that is misaligned on hardware that does not "
     "provide alignment. For example, 16-bit values must be aligned on 2-byte boundaries, 32-bit "
     "values on 4-byte boundaries, and so on."},
    {0xC000008Du, "0xC000008D", "EXCEPTION_FLT_DENORMAL_OPERAND",
     "An operand in a floating-point operation is too small to represent as a standard "
     "floating-point value."},
    {0xC000008Eu, "0xC000008E", "EXCEPTION_FLT_DIVIDE_BY_ZERO",
     "The thread attempted to divide a floating-point value by a floating-point divisor of zero."},
    {0xC000008Fu, "0xC000008F", "EXCEPTION_FLT_INEXACT_RESULT",
     "The result of a floating-point operation cannot be represented exactly as a decimal "
     "fraction."},
    {0xC0000090u, "0xC0000090", "EXCEPTION_FLT_INVALID_OPERATION",
     "This exception represents a floating-point exception not included in this list."},
    {0xC0000091u, "0xC0000091", "EXCEPTION_FLT_OVERFLOW",
     "The exponent of a floating-point operation is greater than the magnitude allowed by the "
     "corresponding type."},
    {0xC0000092u, "0xC0000092", "EXCEPTION_FLT_STACK_CHECK",
     "The stack overflowed or underflowed as a result of a floating-point operation."},
    {0xC0000093u, "0xC0000093", "EXCEPTION_FLT_UNDERFLOW",
     "The exponent of a floating-point operation is less than the magnitude allowed by the "
     "corresponding type."},
    {0xC000001Du, "0xC000001D", "EXCEPTION_ILLEGAL_INSTRUCTION",
     "The thread tried to execute an invalid instruction."},
    {0xC0000094u, "0xC0000094", "EXCEPTION_INT_DIVIDE_BY_ZERO",
     "The thread attempted to divide an integer value by an integer divisor of zero."},
    {0xC0000095u, "0xC0000095", "EXCEPTION_INT_OVERFLOW",
     "The result of an integer operation caused a carry out of the most significant bit of the "
     "result."},
    {0xC0000026u, "0xC0000026", "EXCEPTION_INVALID_DISPOSITION",
     "An exception handler returned an invalid disposition to the exception dispatcher. "
     "Programmers using a high-level language such as C should never encounter this exception."},
    {0xC0000025u, "0xC0000025", "EXCEPTION_NONCONTINUABLE_EXCEPTION",
     "The thread attempted to continue execution after a noncontinuable exception occurred."},
    {0xC0000096u, "0xC0000096", "EXCEPTION_PRIV_INSTRUCTION",
     "The thread attempted to execute an instruction whose operation is not allowed in the "
     "current machine mode."},
    {0x80000004u, "0x80000004", "EXCEPTION_SINGLE_STEP",
     "A trace trap or other single-instruction mechanism signaled that one instruction has been "
     "run."},
    {0xC00000FDu, "0xC00000FD", "EXCEPTION_STACK_OVERFLOW", "The thread used up its stack."},
    {0xC0000028u, "0xC0000028", "STATUS_BAD_STACK",
     "An invalid or unaligned stack was encountered during an unwind operation.( From app team: "
     "possibly jongjmp to corrupted jump buffer)"},
    {0xC0000029u, "0xC0000029", "STATUS_INVALID_UNWIND_TARGET",
     "An invalid unwind target was encountered during an unwind operation.( From app team: "
     "possibly jongjmp to corrupted jump buffer)"},
};

class StructuredExceptionCode : public ::testing::TestWithParam<CodeCase>
{
};

constexpr char kAccessText[] = "Unhandled Exception\n"
                               "   Code:    0xC0000005  EXCEPTION_ACCESS_VIOLATION\n"
                               "   Flags:   0\n"
                               "   Address: 0x00001234\n"
                               "   Message: The thread attempted to read from or write to a "
                               "virtual address that it does not have appropriate access to.";
constexpr char kInPageText[] =
    "Unhandled Exception\n"
    "   Code:    0xC0000006  EXCEPTION_IN_PAGE_ERROR\n"
    "   Flags:   0\n"
    "   Address: 0x00001234\n"
    "   Message: The thread tried to access a page that was not present, and the system was unable "
    "to load the page. For example, this exception might occur if a network connection is lost "
    "while running a program over the network.";

} // namespace

TEST_P(StructuredExceptionCode, TellsNameAndDescription)
{
    const CodeCase& expected = GetParam();

    EXPECT_EQ(textOf(recordOf(expected.code)),
              std::string("Unhandled Exception\n   Code:    ") + expected.digits + "  " +
                  expected.name +
                  "\n   Flags:   0\n   Address: 0x00001234\n   Message: " + expected.description);
}

INSTANTIATE_TEST_SUITE_P(AllCodes, StructuredExceptionCode, ::testing::ValuesIn(kCases),
                         [](const auto& testCase) { return std::string(testCase.param.name); });

TEST(StructuredException, WithoutARecordSaysSo)
{
    EXPECT_STREQ(StructuredException(nullptr).what(), "Invalid ExceptionRecord");
}

TEST(StructuredException, UnknownCodeHasNoDescription)
{
    EXPECT_EQ(textOf(recordOf(0x12345u)),
              "Unhandled Exception\n   Code:    0x00012345  Invalid ExceptionCode\n"
              "   Flags:   0\n   Address: 0x00001234\n   Message: ");
}

TEST(StructuredException, ReadingTellsTheAddress)
{
    EXPECT_EQ(textOf(accessRecord(0xC0000005u, 0, 0x10)),
              std::string(kAccessText) + " Reading from address: 0x10.");
}

TEST(StructuredException, WritingTellsTheAddress)
{
    EXPECT_EQ(textOf(accessRecord(0xC0000005u, 1, 0)),
              std::string(kAccessText) + " Writing to address: 0x0.");
}

TEST(StructuredException, ExecutionPreventionTellsTheAddress)
{
    EXPECT_EQ(textOf(accessRecord(0xC0000005u, 8, 0xFFFFFFFFFFFFFFFFu)),
              std::string(kAccessText) +
                  "  Data execution prevention (DEP) violation at 0xffffffffffffffff.");
}

TEST(StructuredException, UnknownKindOfAccessTellsNoAddress)
{
    EXPECT_EQ(textOf(accessRecord(0xC0000005u, 2, 0x10)), kAccessText);
}

TEST(StructuredException, InPageErrorTellsTheStatusToo)
{
    EXCEPTION_RECORD record = accessRecord(0xC0000006u, 0, 0x10);
    record.NumberParameters = 3;
    record.ExceptionInformation[2] = 0xC0000011u;

    EXPECT_EQ(textOf(record),
              std::string(kInPageText) + " Reading from address: 0x10. NTSTATUS = 0xc0000011.");
}

TEST(StructuredException, LongestTextIsWhole)
{
    EXCEPTION_RECORD record = accessRecord(0xC0000006u, 8, 0xFFFFFFFFFFFFFFFFu);
    record.ExceptionFlags = 1;
    record.ExceptionAddress = reinterpret_cast<void*>(0xFFFFFFFFFFFFFFFFu);
    record.NumberParameters = 3;
    record.ExceptionInformation[2] = 0xC0000011u;
    const std::string text = textOf(record);

    EXPECT_LE(text.size(), 511u);
    EXPECT_TRUE(text.ends_with("  Data execution prevention (DEP) violation at "
                               "0xffffffffffffffff. NTSTATUS = 0xc0000011."))
        << text;
}

TEST(StructuredException, FlagsOfOneMeanNoncontinuable)
{
    EXCEPTION_RECORD record = recordOf(0x80000003u);
    record.ExceptionFlags = 1;

    EXPECT_NE(textOf(record).find("\n   Flags:   EXCEPTION_NONCONTINUABLE\n"), std::string::npos);
}

TEST(StructuredException, OtherFlagsAreDecimal)
{
    EXCEPTION_RECORD record = recordOf(0x80000003u);
    record.ExceptionFlags = 130;

    EXPECT_NE(textOf(record).find("\n   Flags:   130\n"), std::string::npos);
}

TEST(StructuredException, LongAddressIsWrittenInFull)
{
    EXCEPTION_RECORD record = recordOf(0x80000003u);
    record.ExceptionAddress = reinterpret_cast<void*>(0x7fabcdef0123u);

    EXPECT_NE(textOf(record).find("\n   Address: 0x7fabcdef0123\n"), std::string::npos);
}

TEST(StructuredException, KeepsACopyOfTheRecord)
{
    EXCEPTION_RECORD record = accessRecord(0xC0000005u, 1, 0x20);
    const StructuredException exception(&record);
    record.ExceptionInformation[0] = 0;
    record.ExceptionCode = 0x80000003u;

    EXPECT_EQ(exception.what(), std::string(kAccessText) + " Writing to address: 0x20.");
}

TEST(StructuredException, TextIsMadeOnce)
{
    const EXCEPTION_RECORD record = recordOf(0x80000003u);
    const StructuredException exception(&record);

    const char* first = exception.what();

    EXPECT_EQ(exception.what(), first);
}

TEST(StructuredException, CopyOutlivesItsSource)
{
    const EXCEPTION_RECORD record = accessRecord(0xC0000005u, 1, 0);
    auto source = std::make_unique<StructuredException>(&record);
    const StructuredException copy(*source);
    StructuredException assigned(nullptr);
    assigned = *source;
    source.reset();

    EXPECT_EQ(copy.what(), std::string(kAccessText) + " Writing to address: 0x0.");
    EXPECT_EQ(assigned.what(), std::string(kAccessText) + " Writing to address: 0x0.");
}

TEST(StructuredException, CopyWithoutARecordStaysWithout)
{
    const StructuredException source(nullptr);
    const StructuredException copy(source);

    EXPECT_STREQ(copy.what(), "Invalid ExceptionRecord");
}
