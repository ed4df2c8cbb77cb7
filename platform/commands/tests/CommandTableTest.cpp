#include "FakeObjects.h"
#include "TestSupport.h"

#include <TambCommandsInfra/CommandTable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandError;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// A table with five commands, registered in no order.
class SmallTable : public testing::Test
{
protected:
    SmallTable()
    {
        for (const char* name :
             {"view:zoom-all", "doc:load", "view:iso", "view:zoom-to-box", "app:print"}) {
            Command command = MakeCommand(name);
            if (command.name == "doc:load") {
                command.summary = "Reads a Model and zooms to it.";
            }
            if (command.name == "app:print") {
                command.help = "Nothing to do with ZOOM.";
            }
            m_table.Register(command);
        }
    }

    CommandTable m_table;
};

} // namespace

TEST_F(SmallTable, NamesComeInAlphabeticalOrder)
{
    EXPECT_THAT(m_table.Names(), ElementsAre("app:print", "doc:load", "view:iso", "view:zoom-all",
                                             "view:zoom-to-box"));
}

TEST_F(SmallTable, FindGivesTheCommandOrNull)
{
    ASSERT_TRUE(m_table.Find("view:iso"));
    EXPECT_EQ(m_table.Find("view:iso")->name, "view:iso");
    EXPECT_FALSE(m_table.Find("view:is"));
}

TEST_F(SmallTable, CompleteGivesTheNamesWithThePrefix)
{
    EXPECT_THAT(m_table.Complete("view:z"), ElementsAre("view:zoom-all", "view:zoom-to-box"));
    EXPECT_THAT(m_table.Complete("view:iso"), ElementsAre("view:iso"));
    EXPECT_THAT(m_table.Complete("z"), IsEmpty());
    EXPECT_EQ(m_table.Complete(""), m_table.Names());
}

TEST_F(SmallTable, AproposGivesNamesFirstThenTexts)
{
    EXPECT_THAT(m_table.Apropos("Zoom"),
                ElementsAre("view:zoom-all", "view:zoom-to-box", "app:print", "doc:load"));
}

TEST_F(SmallTable, AproposSearchesSummariesWhateverTheirCase)
{
    EXPECT_THAT(m_table.Apropos("mODEL"), ElementsAre("doc:load"));
}

TEST_F(SmallTable, AproposSearchesNamesWhateverTheirCase)
{
    m_table.Register(MakeCommand("WEND.getForcedMode"));

    EXPECT_THAT(m_table.Apropos("forcedmode"), ElementsAre("WEND.getForcedMode"));
}

TEST_F(SmallTable, AproposOfTheEmptyTextFindsNothing)
{
    EXPECT_THAT(m_table.Apropos(""), IsEmpty());
}

TEST_F(SmallTable, SuggestGivesTheNearestName)
{
    EXPECT_EQ(m_table.Suggest("view:izo"), "view:iso");
    EXPECT_EQ(m_table.Suggest("quit"), "");
}

TEST_F(SmallTable, UnknownCommandNamesTheNearestOne)
{
    EXPECT_EQ(ErrorOf([&] { m_table.Run("view:izo", {}); }),
              "Unknown command \"view:izo\"; did you mean \"view:iso\"?");
    EXPECT_EQ(ErrorOf([&] { m_table.Run("quit", {}); }), "Unknown command \"quit\".");
    EXPECT_THROW(m_table.Run("quit", {}), CommandError);
}

TEST(CommandTable, RunHandsCheckedArgumentsToTheHandlerAndGivesItsResult)
{
    CommandTable table;
    Command command = MakeCommand("test:twice", {{"number", ValueType::Real, "a number"}});
    command.result = ValueType::Real;
    command.resultHelp = "twice the number";
    command.handler = [](const Arguments& arguments) {
        return Value(2.0 * arguments["number"].AsReal());
    };
    table.Register(command);

    EXPECT_EQ(table.Run("test:twice", {4}), Value(8.0));
}

TEST(CommandTable, RunRefusesWrongArgumentsBeforeTheHandler)
{
    CommandTable table;
    bool ran = false;
    Command command = MakeCommand("test:it");
    command.handler = [&](const Arguments&) {
        ran = true;
        return Value();
    };
    table.Register(command);

    EXPECT_EQ(ErrorOf([&] { table.Run("test:it", {1}); }),
              "test:it: expected no arguments, got 1.");
    EXPECT_FALSE(ran);
}

TEST(CommandTable, WhatTheHandlerThrowsComesThrough)
{
    CommandTable table;
    Command command = MakeCommand("test:it");
    command.handler = [](const Arguments&) -> Value { throw std::out_of_range("too far"); };
    table.Register(command);

    EXPECT_THROW(table.Run("test:it", {}), std::out_of_range);
}

TEST(CommandTable, HandlerMayUseTheTable)
{
    CommandTable table;
    Command outer = MakeCommand("test:outer");
    outer.handler = [&](const Arguments&) { return table.Run("test:inner", {}); };
    Command inner = MakeCommand("test:inner");
    inner.handler = [](const Arguments&) { return Value(5); };
    table.Register(outer);
    table.Register(inner);

    EXPECT_EQ(table.Run("test:outer", {}), Value(5));
}

TEST(CommandTable, LookUpsRunBesideRegistrations)
{
    CommandTable table;
    std::thread registering([&] {
        for (int number = 0; number < 200; ++number) {
            table.Register(MakeCommand("test:c" + std::to_string(number)));
        }
    });
    while (table.Names().size() < 200) {
        table.Apropos("c1");
        table.Suggest("test:c1");
    }
    registering.join();

    EXPECT_TRUE(table.Find("test:c199"));
}

TEST(CommandTable, ProcessHasOneTable)
{
    EXPECT_EQ(&CommandTable::Instance(), &CommandTable::Instance());
}
