#include "FakeObjects.h"
#include "TestSupport.h"

#include <TambCommandsInfra/CommandTable.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <vector>

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandError;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

namespace {

/// Checks one argument against a parameter "x" of a type and gives what the command receives.
Value checked(ValueType type, Value value)
{
    const Command command = MakeCommand("test:one", {{"x", type, "the value"}});
    return CommandTable::CheckArguments(command, {std::move(value)})[0];
}

std::string refusal(ValueType type, Value value)
{
    return ErrorOf([&] { checked(type, std::move(value)); });
}

std::string refusal(const Command& command, std::vector<Value> values)
{
    return ErrorOf([&] { CommandTable::CheckArguments(command, std::move(values)); });
}

const std::string kExpected = "test:one: parameter \"x\": expected ";

Command boxCommand()
{
    return MakeCommand("test:box", {{"low", ValueType::Point, "one corner"},
                                    {"high", ValueType::Point, "the other corner"}});
}

Command optionalCommand()
{
    return MakeCommand(
        "test:size", {{"width", ValueType::Integer, "width", "pixels"},
                      {"height", ValueType::Integer, "height", "pixels", Presence::Optional, 480}});
}

Command variadicCommand()
{
    return MakeCommand("test:sum",
                       {{"start", ValueType::Real, "first summand"},
                        {"more", ValueType::Real, "further summands", "", Presence::Variadic}});
}

} // namespace

TEST(CommandArguments, EachTypeTakesItsOwnKind)
{
    EXPECT_EQ(checked(ValueType::Bool, true), Value(true));
    EXPECT_EQ(checked(ValueType::Integer, 3), Value(3));
    EXPECT_EQ(checked(ValueType::Real, 2.5), Value(2.5));
    EXPECT_EQ(checked(ValueType::String, L""), Value(L""));
    EXPECT_EQ(checked(ValueType::Path, L"a.stl"), Value(L"a.stl"));
    EXPECT_EQ(checked(ValueType::List, Value::List{L"a"}), Value(Value::List{L"a"}));
    EXPECT_EQ(checked(ValueType::Entity, MakeEntity(4)), Value(MakeEntity(4)));
    EXPECT_EQ(checked(ValueType::Any, Value()), Value());
}

TEST(CommandArguments, RealTakesWholeNumbers)
{
    EXPECT_EQ(checked(ValueType::Real, 3), Value(3.0));
}

TEST(CommandArguments, IntegerTakesARealWithoutFraction)
{
    EXPECT_EQ(checked(ValueType::Integer, -3.0), Value(-3));
    EXPECT_EQ(checked(ValueType::Integer, -9223372036854775808.0),
              Value(std::numeric_limits<std::int64_t>::min()));
}

TEST(CommandArguments, IntegerRefusesARealItCannotHold)
{
    EXPECT_EQ(refusal(ValueType::Integer, 2.5), kExpected + "an integer, got the number 2.5.");
    EXPECT_EQ(refusal(ValueType::Integer, 9223372036854775808.0),
              kExpected + "an integer, got the number 9223372036854775808.");
}

TEST(CommandArguments, RealRefusesInfinityAndNotANumber)
{
    EXPECT_EQ(refusal(ValueType::Real, std::numeric_limits<double>::infinity()),
              kExpected + "a number, got the number inf.");
    EXPECT_EQ(refusal(ValueType::Real, std::numeric_limits<double>::quiet_NaN()),
              kExpected + "a number, got the number nan.");
}

TEST(CommandArguments, VectorAndPointBecomeThreeReals)
{
    const Value reals = Value::List{1.0, 2.0, 0.5};

    EXPECT_EQ(checked(ValueType::Vector, Value::List{1, 2, 0.5}), reals);
    EXPECT_EQ(checked(ValueType::Point, Value::List{1, 2, 0.5}), reals);
}

TEST(CommandArguments, RefusalNamesCommandParameterExpectedAndGot)
{
    EXPECT_EQ(refusal(ValueType::Bool, 1), kExpected + "true or false, got the integer 1.");
    EXPECT_EQ(refusal(ValueType::Integer, L"a"), kExpected + "an integer, got the string \"a\".");
    EXPECT_EQ(refusal(ValueType::Real, true), kExpected + "a number, got true.");
    EXPECT_EQ(refusal(ValueType::String, 1), kExpected + "a string, got the integer 1.");
    EXPECT_EQ(refusal(ValueType::Path, Value()), kExpected + "a path, got nothing.");
    EXPECT_EQ(refusal(ValueType::List, L"a"), kExpected + "a list, got the string \"a\".");
    EXPECT_EQ(refusal(ValueType::Entity, 7), kExpected + "an entity, got the integer 7.");
}

TEST(CommandArguments, EmptyPathIsRefused)
{
    EXPECT_EQ(refusal(ValueType::Path, L""), kExpected + "a path, got the string \"\".");
}

TEST(CommandArguments, ObjectOfAnotherTypeIsNoEntity)
{
    EXPECT_EQ(refusal(ValueType::Entity, Value::Object(std::make_shared<PlainObject>())),
              kExpected + "an entity, got an object of type plain.");
}

TEST(CommandArguments, VectorOfAnotherLengthIsRefused)
{
    EXPECT_EQ(refusal(ValueType::Vector, Value::List{1, 2}),
              kExpected + "a vector (three numbers), got a list of 2 elements.");
}

TEST(CommandArguments, WrongElementOfAPointIsNamed)
{
    EXPECT_EQ(refusal(ValueType::Point, Value::List{1, L"b", 3}),
              kExpected +
                  "a point (three numbers), got a list whose element 2 is the string \"b\".");
}

TEST(CommandArguments, LimitsAndUnitAreNamed)
{
    Parameter both{"alpha", ValueType::Integer, "opacity"};
    both.minimum = 0;
    both.maximum = 255;
    Parameter large{"x", ValueType::Integer, "column", "pixels"};
    large.minimum = -1000000;
    large.maximum = 1e20;
    Parameter low{"width", ValueType::Integer, "width", "pixels"};
    low.minimum = 1;
    Parameter high{"angle", ValueType::Real, "angle", "degrees"};
    high.maximum = 0.5;

    EXPECT_EQ(
        refusal(MakeCommand("test:a", {both}), {256}),
        "test:a: parameter \"alpha\": expected an integer from 0 to 255, got the integer 256.");
    EXPECT_EQ(refusal(MakeCommand("test:a", {large}), {-1000001}),
              "test:a: parameter \"x\": expected an integer from -1000000 to 1e+20 in pixels, got "
              "the integer -1000001.");
    EXPECT_EQ(refusal(MakeCommand("test:a", {low}), {0}),
              "test:a: parameter \"width\": expected an integer of at least 1 in pixels, got the "
              "integer 0.");
    EXPECT_EQ(refusal(MakeCommand("test:a", {high}), {1}),
              "test:a: parameter \"angle\": expected a number of at most 0.5 in degrees, got the "
              "integer 1.");
}

TEST(CommandArguments, LimitsBelongToTheRange)
{
    Parameter alpha{"alpha", ValueType::Integer, "opacity"};
    alpha.minimum = 0;
    alpha.maximum = 255;

    EXPECT_EQ(refusal(MakeCommand("test:a", {alpha}), {0}), "no exception");
    EXPECT_EQ(refusal(MakeCommand("test:a", {alpha}), {255}), "no exception");
}

TEST(CommandArguments, TooManyAreCounted)
{
    EXPECT_EQ(refusal(MakeCommand("test:none"), {1}), "test:none: expected no arguments, got 1.");
    EXPECT_EQ(refusal(MakeCommand("test:one", {{"x", ValueType::Any, "value"}}), {1, 2}),
              "test:one: expected 1 argument, got 2.");
    EXPECT_EQ(refusal(boxCommand(), {1, 2, 3}), "test:box: expected 2 arguments, got 3.");
}

TEST(CommandArguments, MissingOneIsNamedWithItsType)
{
    EXPECT_EQ(refusal(boxCommand(), {Value::List{1, 2, 3}}),
              "test:box: expected 2 arguments, got 1. Missing: \"high\" (point).");
    EXPECT_EQ(refusal(optionalCommand(), {}),
              "test:size: expected 1 to 2 arguments, got 0. Missing: \"width\" (integer).");
    EXPECT_EQ(refusal(variadicCommand(), {}),
              "test:sum: expected at least 1 argument, got 0. Missing: \"start\" (number).");
}

TEST(CommandArguments, RefusedArgumentsAreACommandError)
{
    EXPECT_THROW(CommandTable::CheckArguments(boxCommand(), {}), CommandError);
}

TEST(CommandArguments, DefaultTakesThePlaceOfWhatIsLeftOut)
{
    const Command command = optionalCommand();

    const Arguments arguments = CommandTable::CheckArguments(command, {640});

    EXPECT_EQ(arguments.Size(), 2u);
    EXPECT_EQ(arguments["height"], Value(480));
    EXPECT_TRUE(arguments.IsGiven("width"));
    EXPECT_FALSE(arguments.IsGiven("height"));
}

TEST(CommandArguments, GivenOptionalArgumentWinsOverTheDefault)
{
    const Command command = optionalCommand();

    const Arguments arguments = CommandTable::CheckArguments(command, {640, 360});

    EXPECT_EQ(arguments["height"], Value(360));
    EXPECT_TRUE(arguments.IsGiven("height"));
}

TEST(CommandArguments, VariadicParameterTakesTheRest)
{
    const Command command = variadicCommand();

    const Arguments arguments = CommandTable::CheckArguments(command, {1, 2, 3});

    EXPECT_THAT(arguments.Rest(), testing::ElementsAre(Value(2.0), Value(3.0)));
    EXPECT_EQ(arguments.Size(), 3u);
}

TEST(CommandArguments, VariadicParameterMayTakeNothing)
{
    const Command command = variadicCommand();

    EXPECT_TRUE(CommandTable::CheckArguments(command, {1}).Rest().empty());
}

TEST(CommandArguments, EachVariadicArgumentIsChecked)
{
    EXPECT_EQ(refusal(variadicCommand(), {1, 2, L"x"}),
              "test:sum: parameter \"more\": expected a number, got the string \"x\".");
}

TEST(CommandArguments, UnknownNameAndPositionAreErrorsOfTheHandler)
{
    const Command command = variadicCommand();
    const Arguments arguments = CommandTable::CheckArguments(command, {1});

    EXPECT_EQ(ErrorOf([&] { arguments["stop"]; }), "There is no parameter \"stop\".");
    EXPECT_EQ(ErrorOf([&] { arguments["more"]; }), "There is no parameter \"more\".");
    EXPECT_EQ(ErrorOf([&] { arguments[1]; }), "There is no argument at position 1.");
}
