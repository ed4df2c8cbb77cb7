#include "../CompletionStore.h"

#include <TambCommandsInfra/CommandTable.h>

#include <gtest/gtest.h>

namespace {

using Pellux::CompletionStore;
using Texts = std::vector<std::wstring>;

void registerCommand(const std::string& name)
{
    TambCommandsInfra::Command command;
    command.name = name;
    command.summary = "Does something.";
    command.example = "(" + name + ")";
    command.handler = [](const TambCommandsInfra::Arguments&) {
        return TambCommandsInfra::Value();
    };
    TambCommandsInfra::CommandTable::Instance().Register(command);
}

TEST(CompletionStore, NamesAreFoundByTheirBeginningInAlphabeticalOrder)
{
    CompletionStore store;
    store.AddExtensionInfo({L"zoom", L"fit", L"fill"}, {L"a", L"b", L"c"}, L"");

    Texts found = {L"stale"};
    EXPECT_TRUE(store.FindExtensions(L"fi", found));
    EXPECT_EQ(found, (Texts{L"fill", L"fit"}));
}

TEST(CompletionStore, NothingFoundIsSaidAndEmptiesTheList)
{
    CompletionStore store;

    Texts found = {L"stale"};
    EXPECT_FALSE(store.FindExtensions(L"fi", found));
    EXPECT_EQ(found, Texts{});
}

TEST(CompletionStore, CommandsOfTheTableAreFoundToo)
{
    registerCommand("view:fit");
    CompletionStore store;
    store.AddExtensionInfo({L"view:fill"}, {L"a"}, L"");

    Texts found;
    EXPECT_TRUE(store.FindExtensions(L"view:", found));
    EXPECT_EQ(found, (Texts{L"view:fill", L"view:fit"}));
}

TEST(CompletionStore, ADescriptionNamesItsGroup)
{
    CompletionStore store;
    store.AddExtensionInfo({L"fit", L"fill"}, {L"Shows all.", L"Fills."}, L"short names");

    std::wstring help;
    EXPECT_TRUE(store.FindExtensionHelp(L"fit", help));
    EXPECT_EQ(help, L"Shows all. (short names)");
}

TEST(CompletionStore, ALaterDescriptionReplacesAnEarlierOne)
{
    CompletionStore store;
    store.AddExtensionInfo({L"fit"}, {L"old"}, L"");
    store.AddExtensionInfo({L"fit"}, {L"new"}, L"");

    std::wstring help;
    store.FindExtensionHelp(L"fit", help);
    EXPECT_EQ(help, L"new");
}

TEST(CompletionStore, NamesWithoutDescriptionsAreNotTaken)
{
    CompletionStore store;

    EXPECT_FALSE(store.AddExtensionInfo({L"fit", L"fill"}, {L"one"}, L""));
    Texts found;
    EXPECT_FALSE(store.FindExtensions(L"fi", found));
}

TEST(CompletionStore, MembersAreFoundBehindTheirObject)
{
    CompletionStore store;
    store.AddExtensionObject({L"width", L"height"}, L"part");

    Texts found;
    EXPECT_TRUE(store.FindExtensions(L"part.", found));
    EXPECT_EQ(found, (Texts{L"part.height", L"part.width"}));
    std::wstring help;
    EXPECT_TRUE(store.FindExtensionHelp(L"part.width", help));
    EXPECT_EQ(help, L"member of part");
}

TEST(CompletionStore, HelpOnACommandComesFromTheTable)
{
    registerCommand("view:fit");
    CompletionStore store;

    std::wstring help;
    EXPECT_TRUE(store.FindExtensionHelp(L"view:fit", help));
    EXPECT_NE(help.find(L"Does something."), std::wstring::npos);
}

TEST(CompletionStore, UnknownNamesLeaveTheHelpAlone)
{
    CompletionStore store;

    std::wstring help = L"kept";
    EXPECT_FALSE(store.FindExtensionHelp(L"nothing", help));
    EXPECT_EQ(help, L"kept");
}

} // namespace
