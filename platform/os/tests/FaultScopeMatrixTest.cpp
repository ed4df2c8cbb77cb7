#include "FaultProbe.h"
#include "FaultSubjects.h"

#include <OrvikOs/FpControl.h>

#include <gtest/gtest.h>

#include <cstdint>

// Every kind of machine fault against the code that it must be reported with.

namespace {

constexpr std::uintptr_t kNoKind = 99;
constexpr std::uintptr_t kAnyAddress = 98;
constexpr std::uintptr_t kUnknown = ~std::uintptr_t{0};

struct FaultCase
{
    const char* name;
    void (*subject)();
    std::uint32_t code;
    std::uintptr_t kind;    ///< First detail; kNoKind when there are no details.
    std::uintptr_t address; ///< Second detail; kAnyAddress when it is not known beforehand.
};

const FaultCase kCases[] = {
    {"ReadNull", &Subjects::ReadNull, 0xC0000005u, 0, 0},
    {"WriteNull", &Subjects::WriteNull, 0xC0000005u, 1, 0},
    {"ExecuteNull", &Subjects::ExecuteNull, 0xC0000005u, 8, 0},
    {"ExecuteData", &Subjects::ExecuteData, 0xC0000005u, 8, kAnyAddress},
    {"WriteReadOnly", &Subjects::WriteReadOnly, 0xC0000005u, 1, kAnyAddress},
    {"ReadNonCanonical", &Subjects::ReadNonCanonical, 0xC0000005u, 0, kUnknown},
    {"StackNonCanonical", &Subjects::StackNonCanonical, 0xC0000005u, 0, kUnknown},
    {"MisalignedVector", &Subjects::MisalignedVector, 0xC0000005u, 0, kUnknown},
    {"CopyFromNull", &Subjects::CopyFromNull, 0xC0000005u, 0, kAnyAddress},
    {"LengthOfNull", &Subjects::LengthOfNull, 0xC0000005u, 0, 0},
    {"DivideByZero", &Subjects::DivideByZero, 0xC0000094u, kNoKind, 0},
    {"DivideByZeroInMemory", &Subjects::DivideByZeroInMemory, 0xC0000094u, kNoKind, 0},
    {"DivideOverflow", &Subjects::DivideOverflow, 0xC0000095u, kNoKind, 0},
    {"DivideOverflowInMemory", &Subjects::DivideOverflowInMemory, 0xC0000095u, kNoKind, 0},
    {"DivideByteOverflow", &Subjects::DivideByteOverflow, 0xC0000095u, kNoKind, 0},
    {"IllegalInstruction", &Subjects::IllegalInstruction, 0xC000001Du, kNoKind, 0},
    {"Breakpoint", &Subjects::Breakpoint, 0x80000003u, kNoKind, 0},
    {"SingleStep", &Subjects::SingleStep, 0x80000004u, kNoKind, 0},
    {"Halt", &Subjects::Halt, 0xC0000096u, kNoKind, 0},
    {"ReadPastEndOfFile", &Subjects::ReadPastEndOfFile, 0xC0000006u, 0, kAnyAddress},
};

class FaultScopeMatrix : public testing::TestWithParam<FaultCase>
{
};

TEST_P(FaultScopeMatrix, FaultIsReportedWithItsCodeAndDetails)
{
    const FaultCase& expected = GetParam();

    const Outcome outcome = RunInScope(expected.subject);

    ASSERT_TRUE(outcome.machineFault) << outcome.text;
    EXPECT_EQ(outcome.record.ExceptionCode, expected.code);
    EXPECT_EQ(outcome.record.ExceptionFlags, 0u);
    EXPECT_EQ(outcome.record.ExceptionRecord, nullptr);
    if (expected.kind == kNoKind) {
        EXPECT_EQ(outcome.record.NumberParameters, 0u);
    } else {
        EXPECT_EQ(outcome.record.NumberParameters, expected.code == 0xC0000006u ? 3u : 2u);
        EXPECT_EQ(outcome.record.ExceptionInformation[0], expected.kind);
        if (expected.address != kAnyAddress) {
            EXPECT_EQ(outcome.record.ExceptionInformation[1], expected.address);
        }
    }
}

TEST_P(FaultScopeMatrix, TheSameFaultCanHappenManyTimes)
{
    const FaultCase& expected = GetParam();
    const OrvikOs::FaultScope scope;

    int caught = 0;
    for (int i = 0; i < 300; ++i) {
        caught += RunAsIs(expected.subject).machineFault ? 1 : 0;
    }

    EXPECT_EQ(caught, 300);
}

INSTANTIATE_TEST_SUITE_P(Faults, FaultScopeMatrix, testing::ValuesIn(kCases),
                         [](const auto& test) { return std::string(test.param.name); });

struct FpCase
{
    const char* name;
    void (*subject)();
    unsigned unmasked; ///< Control-word bits of the error that traps.
    std::uint32_t code;
};

const FpCase kFpCases[] = {
    {"Divide", &Subjects::FpDivide, OrvikOs::kEM_ZERODIVIDE, 0xC000008Eu},
    {"Overflow", &Subjects::FpOverflow, OrvikOs::kEM_OVERFLOW, 0xC0000091u},
    {"Denormal", &Subjects::FpDenormal, OrvikOs::kEM_DENORMAL, 0xC000008Du},
    {"Invalid", &Subjects::FpInvalid, OrvikOs::kEM_INVALID, 0xC0000090u},
    {"Underflow", &Subjects::FpUnderflow, OrvikOs::kEM_UNDERFLOW, 0xC0000093u},
    {"Inexact", &Subjects::FpInexact, OrvikOs::kEM_INEXACT, 0xC000008Fu},
    {"X87Divide", &Subjects::X87Divide, OrvikOs::kEM_ZERODIVIDE, 0xC000008Eu},
    {"X87Overflow", &Subjects::X87Overflow, OrvikOs::kEM_OVERFLOW, 0xC0000091u},
    {"X87Denormal", &Subjects::X87Denormal, OrvikOs::kEM_DENORMAL, 0xC000008Du},
    {"X87StackUnderflow", &Subjects::X87StackUnderflow, OrvikOs::kEM_INVALID, 0xC0000092u},
};

class FaultScopeFloatingPoint : public testing::TestWithParam<FpCase>
{
public:
    ~FaultScopeFloatingPoint() override
    {
        OrvikOs::FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);
    }
};

TEST_P(FaultScopeFloatingPoint, UnmaskedErrorIsReportedWithItsCode)
{
    const FpCase& expected = GetParam();
    OrvikOs::FpControl::SetControlWord(0, expected.unmasked);

    const Outcome outcome = RunInScope(expected.subject);
    OrvikOs::FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);

    ASSERT_TRUE(outcome.machineFault) << outcome.text;
    EXPECT_EQ(outcome.record.ExceptionCode, expected.code);
    EXPECT_EQ(outcome.record.NumberParameters, 0u);
}

TEST_P(FaultScopeFloatingPoint, MaskedErrorDoesNotTrap)
{
    EXPECT_TRUE(RunInScope(GetParam().subject).returned);
}

TEST_P(FaultScopeFloatingPoint, MasksAreTheSameWhereTheFaultIsCaught)
{
    const FpCase& expected = GetParam();
    OrvikOs::FpControl::SetControlWord(0, expected.unmasked);
    const OrvikOs::FpState before = OrvikOs::FpControl::Save();

    bool caught = true;
    OrvikOs::FpState after;
    for (int i = 0; i < 100; ++i) {
        caught = caught && RunInScope(expected.subject).machineFault;
        after = OrvikOs::FpControl::Save();
    }
    OrvikOs::FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);

    EXPECT_TRUE(caught);
    EXPECT_EQ(after.mxcsr, before.mxcsr);
    EXPECT_EQ(after.x87ControlWord, before.x87ControlWord);
}

INSTANTIATE_TEST_SUITE_P(Errors, FaultScopeFloatingPoint, testing::ValuesIn(kFpCases),
                         [](const auto& test) { return std::string(test.param.name); });

} // namespace
