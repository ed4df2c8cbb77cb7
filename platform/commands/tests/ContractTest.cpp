#include "TestSupport.h"

#include <TambCommandsInfra/Contract.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

using TambCommandsInfra::AssertContract;
using TambCommandsInfra::RaiseContractAssertion;
using TambCommandsInfra::SetContractHandler;

namespace {

std::string g_seen;

void record(const char* condition, const char* source)
{
    g_seen += std::string(condition) + "|" + source + ";";
}

void throwIt(const char* condition, const char*)
{
    throw std::logic_error(condition);
}

/// Puts the handler and the flag back after each test.
class Contract : public testing::Test
{
protected:
    Contract() { g_seen.clear(); }
    ~Contract() override
    {
        SetContractHandler(nullptr);
        TambContractChecksOn = true;
    }
};

} // namespace

TEST_F(Contract, ChecksAreOnAtTheStart)
{
    EXPECT_TRUE(TambContractChecksOn);
}

TEST_F(Contract, FirstHandlerWritesToTheDebugOutput)
{
    const CapturedDebugOutput debug;

    RaiseContractAssertion("a camera is there", "View");

    EXPECT_EQ(debug.Text(), "Contract violated: a camera is there (View)\n");
}

TEST_F(Contract, HandlerGetsTheLiteralTexts)
{
    SetContractHandler(&record);

    AssertContract(false, "count > 0", "Counter");

    EXPECT_EQ(g_seen, "count > 0|Counter;");
}

TEST_F(Contract, ContractThatHoldsCallsNobody)
{
    SetContractHandler(&record);

    AssertContract(true, "count > 0", "Counter");

    EXPECT_EQ(g_seen, "");
}

TEST_F(Contract, NothingIsCheckedWhileChecksAreOff)
{
    SetContractHandler(&record);
    TambContractChecksOn = false;

    AssertContract(false, "count > 0", "Counter");

    EXPECT_EQ(g_seen, "");
}

TEST_F(Contract, RaisingDoesNotAskWhetherChecksAreOn)
{
    SetContractHandler(&record);
    TambContractChecksOn = false;

    RaiseContractAssertion("count > 0", "Counter");

    EXPECT_EQ(g_seen, "count > 0|Counter;");
}

TEST_F(Contract, NullTextsCountAsEmpty)
{
    SetContractHandler(&record);

    RaiseContractAssertion(nullptr, nullptr);

    EXPECT_EQ(g_seen, "|;");
}

TEST_F(Contract, WhatTheHandlerThrowsLeavesTheAssertion)
{
    SetContractHandler(&throwIt);

    EXPECT_EQ(ErrorOf([] { AssertContract(false, "thrown", ""); }), "thrown");
}

TEST_F(Contract, NullPutsTheFirstHandlerBack)
{
    const auto first = SetContractHandler(&record);
    EXPECT_NE(first, nullptr);

    EXPECT_EQ(SetContractHandler(nullptr), &record);

    EXPECT_EQ(SetContractHandler(nullptr), first);
}
