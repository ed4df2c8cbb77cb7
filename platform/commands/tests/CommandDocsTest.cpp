#include "FakeObjects.h"

#include <TambCommandsInfra/CommandTable.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

using TambCommandsInfra::Command;
using TambCommandsInfra::CommandEffect;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

namespace {

Command fullCommand()
{
    Parameter alpha{"alpha", ValueType::Integer, "how | opaque", "", Presence::Optional, 255};
    alpha.minimum = 0;
    alpha.maximum = 255;
    Command command = MakeCommand(
        "view:mark!", {{"at", ValueType::Point, "where", "world units"},
                       alpha,
                       {"label", ValueType::String, "what it says", "", Presence::Optional},
                       {"more", ValueType::Any, "anything else", "", Presence::Variadic}});
    command.summary = "Marks a point.";
    command.help = "The mark stays.";
    command.result = ValueType::Integer;
    command.resultHelp = "the number of the mark";
    command.example = "(view:mark! '(1 2 3))";
    return command;
}

std::string defaultText(Value value)
{
    const Command command = MakeCommand(
        "test:it", {{"x", ValueType::Any, "value", "", Presence::Optional, std::move(value)}});
    const std::string help = CommandTable::HelpText(command);
    const std::size_t begin = help.find("(value, optional, else ") + 23;
    return help.substr(begin, help.find(")\nGives") - begin);
}

const char* const kHead =
    "# Commands\n"
    "\n"
    "This page is generated from the command table; changes made here are "
    "lost. Optional parameters stand\n"
    "in brackets, \"...\" follows a parameter that may be given any number of "
    "times.\n";

} // namespace

TEST(CommandDocs, SignatureMarksOptionalAndVariadicParameters)
{
    EXPECT_EQ(CommandTable::Signature(fullCommand()), "view:mark! at [alpha] [label] more...");
    EXPECT_EQ(CommandTable::Signature(MakeCommand("view:iso")), "view:iso");
}

TEST(CommandDocs, HelpTextTellsEverything)
{
    EXPECT_EQ(CommandTable::HelpText(fullCommand()),
              "view:mark! at [alpha] [label] more...\n"
              "Marks a point.\n"
              "The mark stays.\n"
              "  at     where (point in world units, required)\n"
              "  alpha  how | opaque (integer from 0 to 255, optional, else 255)\n"
              "  label  what it says (string, optional)\n"
              "  more   anything else (value, any number of times)\n"
              "Gives integer: the number of the mark.\n"
              "Example: (view:mark! '(1 2 3))\n");
}

TEST(CommandDocs, HelpTextOfAPlainCommandIsShort)
{
    EXPECT_EQ(CommandTable::HelpText(MakeCommand("view:iso")), "view:iso\n"
                                                               "Does something.\n"
                                                               "Gives nothing.\n"
                                                               "Example: (view:iso)\n");
}

TEST(CommandDocs, DefaultsAreWrittenAsAScriptWritesThem)
{
    EXPECT_EQ(defaultText(true), "true");
    EXPECT_EQ(defaultText(-2), "-2");
    EXPECT_EQ(defaultText(0.25), "0.25");
    EXPECT_EQ(defaultText(L"a\"b\\"), "\"a\\\"b\\\\\"");
    EXPECT_EQ(defaultText(Value::List{1, 2.5, Value::List{}}), "(1 2.5 ())");
    EXPECT_EQ(defaultText(Value::List{Value()}), "(nothing)");
    EXPECT_EQ(defaultText(MakeEntity(3)), "entity 3");
}

TEST(CommandDocs, TypesHaveNamesForPeople)
{
    const std::vector<ValueType> types{ValueType::Nothing, ValueType::Bool,   ValueType::Integer,
                                       ValueType::Real,    ValueType::String, ValueType::Path,
                                       ValueType::Vector,  ValueType::Point,  ValueType::List,
                                       ValueType::Entity,  ValueType::Any};
    std::vector<std::string> names;

    for (const ValueType type : types) {
        names.push_back(TambCommandsInfra::ValueTypeName(type));
    }

    EXPECT_EQ(names,
              (std::vector<std::string>{"nothing", "boolean", "integer", "number", "string", "path",
                                        "vector", "point", "list", "entity", "value"}));
}

TEST(CommandDocs, EmptyTableGivesTheHeadOnly)
{
    EXPECT_EQ(CommandTable().MarkdownReference(), kHead);
}

TEST(CommandDocs, ReferenceDescribesEachCommandUnderItsFamily)
{
    CommandTable table;
    table.Register(fullCommand());
    table.Register(MakeCommand("doc:empty?"));
    table.DescribeFamily("view", "View and camera");

    EXPECT_EQ(table.MarkdownReference(),
              std::string(kHead) + "\n"
                                   "## doc:\n"
                                   "\n"
                                   "### doc:empty?\n"
                                   "\n"
                                   "`doc:empty?`\n"
                                   "\n"
                                   "Does something.\n"
                                   "\n"
                                   "Gives boolean: whether it is so.\n"
                                   "\n"
                                   "```\n(doc:empty?)\n```\n"
                                   "\n"
                                   "## view: View and camera\n"
                                   "\n"
                                   "### view:mark!\n"
                                   "\n"
                                   "`view:mark! at [alpha] [label] more...`\n"
                                   "\n"
                                   "Marks a point.\n"
                                   "\n"
                                   "The mark stays.\n"
                                   "\n"
                                   "| Parameter | Type | Given | Meaning |\n"
                                   "|---|---|---|---|\n"
                                   "| `at` | point in world units | required | where |\n"
                                   "| `alpha` | integer from 0 to 255 | optional, else 255 | "
                                   "how \\| opaque |\n"
                                   "| `label` | string | optional | what it says |\n"
                                   "| `more` | value | any number of times | anything else |\n"
                                   "\n"
                                   "Gives integer: the number of the mark.\n"
                                   "\n"
                                   "```\n(view:mark! '(1 2 3))\n```\n");
}

TEST(CommandDocs, ADottedNameStandsUnderItsGroup)
{
    CommandTable table;
    table.Register(MakeCommand("WEND.getMode"));
    table.DescribeFamily("WEND", "Modes");

    EXPECT_NE(table.MarkdownReference().find("\n## WEND. Modes\n\n### WEND.getMode\n"),
              std::string::npos);
}

TEST(CommandDocs, ReferenceDoesNotDependOnTheOrderOfRegistration)
{
    CommandTable first;
    CommandTable second;
    for (const char* name : {"view:iso", "doc:load", "app:print"}) {
        first.Register(MakeCommand(name));
    }
    for (const char* name : {"app:print", "view:iso", "doc:load"}) {
        second.Register(MakeCommand(name));
    }

    EXPECT_EQ(first.MarkdownReference(), second.MarkdownReference());
}

TEST(CommandDocs, LaterFamilyTitleReplacesAnEarlierOne)
{
    CommandTable table;
    table.Register(MakeCommand("view:iso"));
    table.DescribeFamily("view", "First");
    table.DescribeFamily("view", "Second");

    EXPECT_NE(table.MarkdownReference().find("## view: Second\n"), std::string::npos);
    EXPECT_EQ(table.MarkdownReference().find("First"), std::string::npos);
}
