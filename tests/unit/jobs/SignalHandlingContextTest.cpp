#include "OrvikCore/SignalHandlingContext.h"

#include "FaultSubjects.h"

#include "OrvikCore/StructuredException.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/FaultScope.h>
#include <OrvikOs/FpControl.h>

#include <gtest/gtest.h>

#include <cstdlib>
#include <functional>
#include <stdexcept>
#include <string>
#include <type_traits>

using OrvikCore::SignalHandlingContext;
using OrvikCore::StructuredException;
using OrvikOs::FpControl;

static_assert(std::has_virtual_destructor_v<SignalHandlingContext>);
static_assert(std::is_copy_constructible_v<SignalHandlingContext>);
static_assert(std::is_copy_assignable_v<SignalHandlingContext>);

namespace {

/// Opens up the operations for derived classes.
class OpenContext : public SignalHandlingContext
{
public:
    using SignalHandlingContext::disableFloatingPointControl;
    using SignalHandlingContext::setFloatingPointControl;
    using SignalHandlingContext::SignalHandlingContext;
    using SignalHandlingContext::unsetFloatingPointControl;
};

/// Writes the debug output down and leaves the masks as a new process has them.
class SignalHandlingContextTest : public ::testing::Test
{
protected:
    SignalHandlingContextTest()
    {
        OrvikOs::SetDebugSink([this](const char* text) { debugOutput += text; });
    }

    ~SignalHandlingContextTest() override
    {
        OrvikOs::SetDebugSink(nullptr);
        FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);
    }

    std::string debugOutput;
};

using FloatingPointControl = SignalHandlingContextTest;

/// @return the text of what a subject throws under a context.
template <typename Exception> std::string thrownText(void (*subject)(), bool floatingPoint = false)
{
    try {
        const SignalHandlingContext context(floatingPoint);
        runSubject(subject);
    } catch (const Exception& exception) {
        return exception.what();
    }
    return "nothing was thrown";
}

/// @return the name of the code of the machine fault that a subject throws.
std::string faultName(void (*subject)())
{
    const std::string text = thrownText<StructuredException>(subject, /*floatingPoint=*/true);
    const std::string::size_type begin = text.find("  ");
    const std::string::size_type name = text.find("EXCEPTION_", begin);
    return name == std::string::npos ? text : text.substr(name, text.find('\n', name) - name);
}

bool contains(const std::string& text, const std::string& part)
{
    return text.find(part) != std::string::npos;
}

void ownTerminate()
{
    std::_Exit(3);
}

struct OwnFault
{
};

[[noreturn]] void ownTranslator(const OrvikOs::EXCEPTION_RECORD&)
{
    throw OwnFault();
}
[[noreturn]] void ownPureCall()
{
    throw OwnFault();
}
[[noreturn]] void ownAbort()
{
    throw OwnFault();
}
[[noreturn]] void ownInvalidParameter(const wchar_t*, const wchar_t*, const wchar_t*, unsigned)
{
    throw OwnFault();
}

} // namespace

// --- What becomes of faults ----------------------------------------------------------------------

TEST_F(SignalHandlingContextTest, MachineFaultBecomesAStructuredException)
{
    const std::string text = thrownText<StructuredException>(writeToNull);

    EXPECT_TRUE(text.starts_with("Unhandled Exception\n   Code:    0xC0000005  "
                                 "EXCEPTION_ACCESS_VIOLATION\n"))
        << text;
    EXPECT_TRUE(text.ends_with(" Writing to address: 0x0.")) << text;
}

TEST_F(SignalHandlingContextTest, PureVirtualCallBecomesALogicError)
{
    EXPECT_EQ(thrownText<std::logic_error>(callPureVirtual), "Pure virtual call");
}

TEST_F(SignalHandlingContextTest, AbortBecomesARuntimeError)
{
    EXPECT_EQ(thrownText<std::runtime_error>(callAbort), "Abnormal abort.");
}

TEST_F(SignalHandlingContextTest, AbortIsCaughtEveryTime)
{
    for (int i = 0; i < 100; ++i) {
        ASSERT_EQ(thrownText<std::runtime_error>(callAbort), "Abnormal abort.");
    }
}

TEST_F(SignalHandlingContextTest, InvalidParameterTellsItsDetails)
{
    EXPECT_EQ(thrownText<std::invalid_argument>(reportInvalidParameter),
              "Invalid parameter detected\n"
              "   Function: copy\n"
              "   File:     copy.cpp\n"
              "   Line:     12\n"
              "   Expression: text != 0");
}

TEST_F(SignalHandlingContextTest, InvalidParameterWithoutDetailsSaysSo)
{
    EXPECT_EQ(thrownText<std::invalid_argument>(reportInvalidParameterWithoutDetails),
              "Invalid parameter detected, but the details are not available");
}

TEST_F(SignalHandlingContextTest, OneDetailOfAnInvalidParameterIsEnough)
{
    const auto lineOnly = [] { OrvikOs::RaiseInvalidParameter(nullptr, nullptr, 7, nullptr); };

    EXPECT_EQ(thrownText<std::invalid_argument>(lineOnly), "Invalid parameter detected\n"
                                                           "   Function: \n"
                                                           "   File:     \n"
                                                           "   Line:     7\n"
                                                           "   Expression: ");
}

TEST_F(SignalHandlingContextTest, InvalidParameterIsCutTo255Characters)
{
    const auto longOne = [] {
        const std::wstring name(400, L'\u00e4');
        OrvikOs::RaiseInvalidParameter(name.c_str(), nullptr, 0, nullptr);
    };
    const std::string head = "Invalid parameter detected\n   Function: ";
    const std::string text = thrownText<std::invalid_argument>(longOne);

    EXPECT_EQ(text.size(), head.size() + 2 * (255 - head.size()));
    EXPECT_TRUE(text.starts_with(head + "\xC3\xA4"));
}

TEST_F(SignalHandlingContextTest, ScopesOfOtherLibrariesThrowTheSameExceptions)
{
    std::string text;
    try {
        const OrvikOs::FaultScope scope;
        runSubject(writeToNull);
    } catch (const StructuredException& exception) {
        text = exception.what();
    }

    EXPECT_TRUE(contains(text, "EXCEPTION_ACCESS_VIOLATION")) << text;
}

TEST_F(SignalHandlingContextTest, TestDoesNothing)
{
    SignalHandlingContext context;
    context.Test();

    EXPECT_EQ(debugOutput, "");
}

// --- Nesting -------------------------------------------------------------------------------------

TEST_F(SignalHandlingContextTest, OuterContextStillGuardsAfterAnInnerOne)
{
    const SignalHandlingContext outer;
    EXPECT_NE(thrownText<StructuredException>(writeToNull), "nothing was thrown");

    std::string text;
    try {
        runSubject(writeToNull);
    } catch (const StructuredException& exception) {
        text = exception.what();
    }
    EXPECT_TRUE(contains(text, " Writing to address: 0x0."));
}

TEST_F(SignalHandlingContextTest, EndOfAContextPutsBackWhatItFound)
{
    std::set_terminate(ownTerminate);
    OrvikOs::SetThreadFaultHandlers({ownTranslator, ownPureCall, ownInvalidParameter, ownAbort});
    {
        const SignalHandlingContext context(true);
        EXPECT_NE(std::get_terminate(), ownTerminate);
        EXPECT_NE(OrvikOs::GetThreadFaultHandlers().translator, ownTranslator);
    }

    EXPECT_EQ(std::get_terminate(), ownTerminate);
    const OrvikOs::FaultHandlers after = OrvikOs::GetThreadFaultHandlers();
    EXPECT_EQ(after.translator, ownTranslator);
    EXPECT_EQ(after.pureCall, ownPureCall);
    EXPECT_EQ(after.invalidParameter, ownInvalidParameter);
    EXPECT_EQ(after.abort, ownAbort);
}

TEST_F(SignalHandlingContextTest, ContextReplacesAllFiveHandlers)
{
    std::set_terminate(ownTerminate);
    OrvikOs::SetThreadFaultHandlers({ownTranslator, ownPureCall, ownInvalidParameter, ownAbort});
    const SignalHandlingContext context;

    const OrvikOs::FaultHandlers inside = OrvikOs::GetThreadFaultHandlers();
    EXPECT_NE(std::get_terminate(), ownTerminate);
    EXPECT_NE(inside.translator, ownTranslator);
    EXPECT_NE(inside.pureCall, ownPureCall);
    EXPECT_NE(inside.invalidParameter, ownInvalidParameter);
    EXPECT_NE(inside.abort, ownAbort);
}

TEST_F(SignalHandlingContextTest, NestedContextsUnwindOneByOne)
{
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
    {
        const SignalHandlingContext outer;
        {
            const SignalHandlingContext inner(true);
            EXPECT_EQ(OrvikOs::FaultScope::Depth(), 2u);
        }
        EXPECT_EQ(OrvikOs::FaultScope::Depth(), 1u);
    }
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
}

TEST_F(SignalHandlingContextTest, CopyIsAContextOfItsOwn)
{
    const SignalHandlingContext outer;
    {
        const SignalHandlingContext copy(outer);
        EXPECT_EQ(OrvikOs::FaultScope::Depth(), 2u);
    }
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 1u);
}

TEST_F(SignalHandlingContextTest, CopyWishesForTheSameFloatingPointControl)
{
    const SignalHandlingContext outer(true);
    FpControl::SetControlWord(OrvikOs::kMCW_EM, OrvikOs::kMCW_EM);
    {
        const SignalHandlingContext copy(outer);
        EXPECT_EQ(FpControl::ControlWord(), 0x13u);
    }
    EXPECT_EQ(FpControl::ControlWord(), 0x8001Fu);
}

TEST_F(SignalHandlingContextTest, AssignmentLeavesBothContextsAsTheyAre)
{
    {
        SignalHandlingContext outer(false);
        SignalHandlingContext inner(true);
        outer = inner;
        EXPECT_EQ(OrvikOs::FaultScope::Depth(), 2u);
    }
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
    EXPECT_EQ(FpControl::ControlWord(), 0x8001Fu);
}

TEST_F(SignalHandlingContextTest, FaultsAreCaughtThousandsOfTimes)
{
    for (int i = 0; i < 10000; ++i) {
        ASSERT_NE(thrownText<StructuredException>(writeToNull), "nothing was thrown");
    }
    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
}

// --- Floating point ------------------------------------------------------------------------------

TEST_F(FloatingPointControl, DivisionByZeroTraps)
{
    EXPECT_EQ(faultName(divideByZero), "EXCEPTION_FLT_DIVIDE_BY_ZERO");
}

TEST_F(FloatingPointControl, OverflowTraps)
{
    EXPECT_EQ(faultName(overflow), "EXCEPTION_FLT_OVERFLOW");
}

TEST_F(FloatingPointControl, DenormalOperandTraps)
{
    EXPECT_EQ(faultName(useDenormal), "EXCEPTION_FLT_DENORMAL_OPERAND");
}

TEST_F(FloatingPointControl, UnderflowInexactAndInvalidDoNotTrap)
{
    EXPECT_EQ(faultName(underflow), "nothing was thrown");
    EXPECT_EQ(faultName(roundInexactly), "nothing was thrown");
    EXPECT_EQ(faultName(divideZeroByZero), "nothing was thrown");
}

TEST_F(FloatingPointControl, NothingTrapsInAContextWithoutTheFlag)
{
    EXPECT_EQ(thrownText<StructuredException>(divideByZero), "nothing was thrown");
    EXPECT_EQ(thrownText<StructuredException>(overflow), "nothing was thrown");
    EXPECT_EQ(thrownText<StructuredException>(useDenormal), "nothing was thrown");
}

TEST_F(FloatingPointControl, MasksAreRestoredAtTheEnd)
{
    FpControl::SetControlWord(0x8001Bu, OrvikOs::kMCW_EM);
    {
        const SignalHandlingContext context(true);
        EXPECT_EQ(FpControl::ControlWord(), 0x13u);
    }

    EXPECT_EQ(FpControl::ControlWord(), 0x8001Bu);
}

TEST_F(FloatingPointControl, MasksAreRestoredAfterATrap)
{
    faultName(divideByZero);

    EXPECT_EQ(FpControl::ControlWord(), 0x8001Fu);
}

TEST_F(FloatingPointControl, TrapsStayOnAfterACaughtTrap)
{
    const SignalHandlingContext context(true);
    for (int i = 0; i < 3; ++i) {
        EXPECT_THROW(runSubject(divideByZero), StructuredException);
    }

    EXPECT_EQ(FpControl::ControlWord(), 0x13u);
}

TEST_F(FloatingPointControl, ContextIsTraced)
{
    {
        const SignalHandlingContext context(true);
        EXPECT_EQ(debugOutput, "Original  _controlfp_s value: 0x8001f\n"
                               "New       _controlfp_s value: 0x0013\n");
        debugOutput.clear();
    }

    EXPECT_EQ(debugOutput, "Restoring _controlfp_s value: 0x8001f\n");
}

TEST_F(FloatingPointControl, ContextWithoutTheFlagTracesNothing)
{
    {
        const SignalHandlingContext context(false);
    }

    EXPECT_EQ(debugOutput, "");
}

TEST_F(FloatingPointControl, SetUnmasksInvalidInsteadOfDenormal)
{
    OpenContext context;
    context.setFloatingPointControl();
    EXPECT_EQ(FpControl::ControlWord(), 0x80003u);
    EXPECT_EQ(debugOutput, "Original  _controlfp_s value: 0x8001f\n"
                           "New       _controlfp_s value: 0x80003\n");
    EXPECT_THROW(runSubject(divideZeroByZero), StructuredException);

    context.unsetFloatingPointControl();
    EXPECT_EQ(FpControl::ControlWord(), 0x8001Fu);
}

TEST_F(FloatingPointControl, OldErrorsDoNotTrapWhenTheTrapsAreUnmasked)
{
    runSubject(divideByZero);
    OpenContext context;
    context.disableFloatingPointControl();
    EXPECT_NO_THROW(runSubject(roundInexactly));
    context.unsetFloatingPointControl();
}
