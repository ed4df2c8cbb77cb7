#include "FakeObjects.h"
#include "TestSupport.h"

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

std::string refusal(const Command& command)
{
    CommandTable table;
    const std::string text = ErrorOf([&] { table.Register(command); });
    EXPECT_EQ(table.Names().empty(), text != "no exception");
    return text;
}

std::string refusalOf(Parameter parameter)
{
    return refusal(MakeCommand("test:it", {std::move(parameter)}));
}

Parameter makeParameter(const std::string& name, Presence presence = Presence::Required)
{
    return {name, ValueType::Integer, "a number", "", presence};
}

} // namespace

TEST(CommandRules, ProperNamesAreTaken)
{
    for (const char* name :
         {"view:iso", "view:set-camera!", "doc:empty?", "a1:b-2", "WEND.getMode"}) {
        EXPECT_EQ(refusal(MakeCommand(name)), "no exception") << name;
    }
}

TEST(CommandRules, ImproperNamesAreRefused)
{
    for (const char* name :
         {"",         "iso",          ":iso",       "view:",         "View:iso",
          "view:Iso", "view:is o",    "view:iso!?", "view:?",        "view:i?so",
          "view:1st", "-view:iso",    "view!:iso",  "view:a:b",      "WEND.",
          ".getMode", "Wend.getMode", "WEND.Mode",  "WEND.get-mode", "WEND.get.mode",
          "WEND.get!"}) {
        EXPECT_EQ(refusal(MakeCommand(name)),
                  "The command \"" + std::string(name) +
                      "\" needs a name of the form \"family:name\" in small letters, digits and "
                      "\"-\", with \"?\" or \"!\" at most at the end, or of the form "
                      "\"GROUP.name\" in letters.");
    }
}

TEST(CommandRules, TakenNameIsRefusedAndTheFirstCommandStays)
{
    CommandTable table;
    Command first = MakeCommand("view:iso");
    first.summary = "The first.";
    table.Register(first);

    EXPECT_EQ(ErrorOf([&] { table.Register(MakeCommand("view:iso")); }),
              "The command \"view:iso\" is registered already.");

    EXPECT_EQ(table.Find("view:iso")->summary, "The first.");
}

TEST(CommandRules, SummaryIsOneSentenceOnOneLine)
{
    Command command = MakeCommand("test:it");
    const std::string text =
        "The command \"test:it\" needs a summary of one line that ends with a full stop.";

    command.summary = "";
    EXPECT_EQ(refusal(command), text);
    command.summary = "No full stop";
    EXPECT_EQ(refusal(command), text);
    command.summary = "Two\nlines.";
    EXPECT_EQ(refusal(command), text);
}

TEST(CommandRules, ExampleHoldsTheName)
{
    Command command = MakeCommand("test:it");

    command.example = "(test:that)";

    EXPECT_EQ(refusal(command), "The command \"test:it\" needs an example that holds its name.");
}

TEST(CommandRules, HandlerIsNeeded)
{
    Command command = MakeCommand("test:it");

    command.handler = nullptr;

    EXPECT_EQ(refusal(command), "The command \"test:it\" has no handler.");
}

TEST(CommandRules, ResultAndItsMeaningGoTogether)
{
    Command silent = MakeCommand("test:it");
    silent.result = ValueType::Integer;
    Command talkative = MakeCommand("test:it");
    talkative.resultHelp = "a number";

    EXPECT_EQ(refusal(silent), "The command \"test:it\" does not say what its result means.");
    EXPECT_EQ(refusal(talkative), "The command \"test:it\" describes a result but gives none.");
}

TEST(CommandRules, PredicateGivesABooleanAndChangesNothing)
{
    Command number = MakeCommand("test:it?");
    number.result = ValueType::Integer;
    Command changing = MakeCommand("test:it?");
    changing.effect = CommandEffect::Changes;

    EXPECT_EQ(refusal(number), "The command \"test:it?\" is a predicate and must give a boolean.");
    EXPECT_EQ(refusal(changing),
              "The command \"test:it?\" is a predicate and must not change anything.");
}

TEST(CommandRules, MutatorChangesSomething)
{
    Command command = MakeCommand("test:it!");

    command.effect = CommandEffect::Reads;

    EXPECT_EQ(refusal(command),
              "The command \"test:it!\" is a mutator and must say that it changes something.");
}

TEST(CommandRules, ParameterNeedsAProperName)
{
    EXPECT_EQ(refusalOf(makeParameter("X")), "The command \"test:it\" needs small letters, digits "
                                             "and \"-\" in the name of the parameter \"X\".");
    EXPECT_EQ(refusalOf(makeParameter("")), "The command \"test:it\" needs small letters, digits "
                                            "and \"-\" in the name of the parameter \"\".");
}

TEST(CommandRules, ParameterNeedsATypeAndOneLineOfHelp)
{
    EXPECT_EQ(refusalOf({"x", ValueType::Nothing, "help"}),
              "The command \"test:it\" has no type for the parameter \"x\".");
    EXPECT_EQ(refusalOf({"x", ValueType::Any, ""}),
              "The command \"test:it\" needs one line of help for the parameter \"x\".");
    EXPECT_EQ(refusalOf({"x", ValueType::Any, "two\nlines"}),
              "The command \"test:it\" needs one line of help for the parameter \"x\".");
}

TEST(CommandRules, ParametersComeInOrder)
{
    EXPECT_EQ(refusal(MakeCommand("test:it",
                                  {makeParameter("a", Presence::Optional), makeParameter("b")})),
              "The command \"test:it\" has the parameter \"b\" out of order.");
    EXPECT_EQ(refusal(MakeCommand("test:it", {makeParameter("a", Presence::Variadic),
                                              makeParameter("b", Presence::Variadic)})),
              "The command \"test:it\" has the parameter \"b\" after a variadic one.");
}

TEST(CommandRules, ParameterNamesAreUnique)
{
    EXPECT_EQ(refusal(MakeCommand("test:it", {makeParameter("a"), makeParameter("a")})),
              "The command \"test:it\" has the parameter \"a\" twice.");
}

TEST(CommandRules, OnlyOptionalParametersHaveDefaults)
{
    Parameter parameter = makeParameter("a");

    parameter.defaultValue = 3;

    EXPECT_EQ(
        refusalOf(parameter),
        "The command \"test:it\" gives a default to the parameter \"a\", which is not optional.");
}

TEST(CommandRules, DefaultFitsItsParameter)
{
    Parameter parameter = makeParameter("a", Presence::Optional);
    parameter.defaultValue = L"three";
    Parameter limited = makeParameter("a", Presence::Optional);
    limited.maximum = 2;
    limited.defaultValue = 3;
    const std::string text =
        "The command \"test:it\" gives a default to the parameter \"a\" that does not fit it.";

    EXPECT_EQ(refusalOf(parameter), text);
    EXPECT_EQ(refusalOf(limited), text);
}

TEST(CommandRules, DefaultIsConvertedLikeAnArgument)
{
    CommandTable table;
    Parameter parameter{"a", ValueType::Real, "a number", "", Presence::Optional, 3};

    table.Register(MakeCommand("test:it", {parameter}));

    EXPECT_EQ(table.Find("test:it")->parameters[0].defaultValue, Value(3.0));
}

TEST(CommandRules, LimitsBelongToNumbersAndLeaveRoom)
{
    Parameter text{"a", ValueType::String, "a text"};
    text.minimum = 1;
    Parameter empty = makeParameter("a");
    empty.minimum = 2;
    empty.maximum = 1;

    EXPECT_EQ(refusalOf(text),
              "The command \"test:it\" gives limits to the parameter \"a\", which is no number.");
    EXPECT_EQ(refusalOf(empty),
              "The command \"test:it\" gives the parameter \"a\" limits that no number keeps.");
}
