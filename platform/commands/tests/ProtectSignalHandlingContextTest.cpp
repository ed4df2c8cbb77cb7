#include "TestSupport.h"

#include <OrvikOs/FaultScope.h>
#include <TambCommandsInfra/ProtectSignalHandlingContext.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using TambCommandsInfra::ProtectSignalHandlingContext;

namespace {

/// Foreign code behind a virtual call, so that the catch stands in another frame.
struct ForeignCode
{
    virtual ~ForeignCode() = default;
    virtual int Run() = 0;
};

struct FaultyCode final : ForeignCode
{
    int Run() override { return ReadBadMemory(); }
};

std::string runProtected(ForeignCode& code)
{
    return ErrorOf([&] {
        const ProtectSignalHandlingContext protection;
        code.Run();
    });
}

[[noreturn]] void throwOwn(const OrvikOs::EXCEPTION_RECORD&)
{
    throw std::domain_error("made by the factory");
}

} // namespace

TEST(ProtectSignalHandlingContext, FaultBecomesARuntimeErrorWithoutAFactory)
{
    FaultyCode code;

    EXPECT_THAT(runProtected(code), testing::StartsWith("Machine fault 0xC0000005"));
    EXPECT_THROW(
        {
            const ProtectSignalHandlingContext protection;
            static_cast<ForeignCode&>(code).Run();
        },
        std::runtime_error);
}

TEST(ProtectSignalHandlingContext, RegisteredFactoryMakesTheException)
{
    OrvikOs::FaultHandlers handlers;
    handlers.translator = &throwOwn;
    OrvikOs::SetProcessFaultHandlers(handlers);
    FaultyCode code;

    EXPECT_EQ(runProtected(code), "made by the factory");
}

TEST(ProtectSignalHandlingContext, ScopesNestAndEnd)
{
    {
        const ProtectSignalHandlingContext outer;
        {
            const ProtectSignalHandlingContext inner;
            EXPECT_EQ(OrvikOs::FaultScope::Depth(), 2u);
        }
        EXPECT_EQ(OrvikOs::FaultScope::Depth(), 1u);
    }

    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
}

TEST(ProtectSignalHandlingContext, ScopeEndsWhenAFaultLeavesIt)
{
    FaultyCode code;

    runProtected(code);

    EXPECT_EQ(OrvikOs::FaultScope::Depth(), 0u);
}
