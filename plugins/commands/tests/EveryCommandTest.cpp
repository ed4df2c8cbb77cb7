#include "ModelFixture.h"
#include "ScopedTempDir.h"

#include <TambCommandsInfra/CommandError.h>

#include <filesystem>
#include <limits>
#include <memory>
#include <random>
#include <set>
#include <string>
#include <vector>

// Each command of the table, with what a script may give it by mistake or in bad faith.
namespace {

using TambCommandsInfra::Command;
using TambCommandsInfra::Parameter;
using TambCommandsInfra::Presence;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNoNumber = std::numeric_limits<double>::quiet_NaN();

std::string familyOf(const std::string& name)
{
    return name.substr(0, name.find_first_of(":."));
}

std::set<std::string> allFamilies()
{
    TambCommandsInfra::CommandTable table;
    OrvikCommands::RegisterAllCommands(table);
    std::set<std::string> families;
    for (const std::string& name : table.Names())
        families.insert(familyOf(name));
    return families;
}

bool isNumber(ValueType type)
{
    return type == ValueType::Integer || type == ValueType::Real;
}

bool isTriple(ValueType type)
{
    return type == ValueType::Point || type == ValueType::Vector;
}

/// In a folder of its own, so that nobody's files are written over.
class EveryCommand : public ModelFixture, public testing::WithParamInterface<std::string>
{
protected:
    EveryCommand()
    {
        std::filesystem::current_path(m_folder.Path());
        for (const std::string& name : m_table.Names())
            if (familyOf(name) == GetParam())
                m_commands.push_back(m_table.Find(name));
    }
    ~EveryCommand() override { std::filesystem::current_path("/"); }

    /// A value that the table lets pass.
    Value fitting(const Parameter& parameter) const
    {
        switch (parameter.type) {
        case ValueType::Bool:
            return Value(true);
        case ValueType::Integer:
            return Value(static_cast<int>(parameter.minimum.value_or(1.0)));
        case ValueType::Real:
            return Value(parameter.minimum.value_or(1.0));
        case ValueType::Vector:
        case ValueType::Point:
            return Value(List{1.0, 2.0, 3.0});
        case ValueType::List:
            return Value(List{});
        case ValueType::Entity:
            return entity(m_face);
        default:
            return Value(L"text");
        }
    }

    /// Values of another type, or out of range.
    std::vector<Value> unfitting(const Parameter& parameter) const
    {
        const ValueType type = parameter.type;
        std::vector<Value> values;
        if (type == ValueType::Any)
            return values;
        if (type != ValueType::String && type != ValueType::Path)
            values.emplace_back(L"text");
        if (type != ValueType::Bool)
            values.emplace_back(false);
        if (type != ValueType::Entity)
            values.push_back(entity(m_face));
        if (!isTriple(type) && type != ValueType::List)
            values.emplace_back(List{1.0, 2.0, 3.0});
        if (!isNumber(type))
            values.emplace_back(7);
        if (isNumber(type) && parameter.minimum)
            values.emplace_back(*parameter.minimum - 1.0);
        if (isNumber(type) && parameter.maximum)
            values.emplace_back(*parameter.maximum + 1.0);
        if (isNumber(type))
            values.insert(values.end(), {Value(kNoNumber), Value(kInfinity)});
        if (type == ValueType::Integer)
            values.insert(values.end(), {Value(1.5), Value(1e300)});
        if (isTriple(type))
            values.insert(values.end(), {Value(List{1.0, 2.0}), Value(List{1.0, 2.0, L"x"}),
                                         Value(List{1.0, 2.0, kNoNumber})});
        if (type == ValueType::Path)
            values.emplace_back(L"");
        return values;
    }

    /// Arguments up to a position, which the table lets pass.
    std::vector<Value> argumentsBefore(const Command& command, std::size_t position) const
    {
        std::vector<Value> arguments;
        for (std::size_t i = 0; i < position; ++i)
            arguments.push_back(fitting(command.parameters[i]));
        return arguments;
    }

    /// @return how a call ends badly that a script may make; empty for one that ends well or with
    ///         the error of a script.
    std::string accident(const Command& command, const std::vector<Value>& arguments)
    {
        try {
            run(command.name, arguments);
        } catch (const std::exception& error) {
            return std::string(error.what()).empty() ? "an error without a text" : "";
        } catch (...) {
            return "an exception that is no std::exception";
        }
        return {};
    }

    ScopedTempDir m_folder;
    std::vector<std::shared_ptr<const Command>> m_commands; ///< Of the family.
};

TEST_P(EveryCommand, RefusesMoreArgumentsThanItTakes)
{
    for (const auto& command : m_commands) {
        const std::vector<Parameter>& parameters = command->parameters;
        if (!parameters.empty() && parameters.back().presence == Presence::Variadic)
            continue;
        std::vector<Value> arguments = argumentsBefore(*command, parameters.size());
        arguments.emplace_back(1);

        const std::string error = errorOf(command->name, arguments);
        EXPECT_TRUE(error.starts_with(command->name + ": expected ")) << error;
    }
}

TEST_P(EveryCommand, RefusesFewerArgumentsThanItNeeds)
{
    for (const auto& command : m_commands) {
        const std::vector<Parameter>& parameters = command->parameters;
        if (parameters.empty() || parameters.front().presence != Presence::Required)
            continue;
        const std::string error = errorOf(command->name);
        EXPECT_NE(error.find("Missing: \"" + parameters.front().name + "\""), std::string::npos)
            << error;
    }
}

TEST_P(EveryCommand, RefusesWhatIsOfAnotherTypeOrOutOfRange)
{
    for (const auto& command : m_commands)
        for (std::size_t i = 0; i < command->parameters.size(); ++i)
            for (const Value& value : unfitting(command->parameters[i])) {
                std::vector<Value> arguments = argumentsBefore(*command, i);
                arguments.push_back(value);
                for (std::size_t k = i + 1; k < command->parameters.size(); ++k)
                    if (command->parameters[k].presence == Presence::Required)
                        arguments.push_back(fitting(command->parameters[k]));
                const std::string error = errorOf(command->name, arguments);
                EXPECT_TRUE(error.starts_with(command->name + ": parameter \"" +
                                              command->parameters[i].name + "\": expected "))
                    << error;
            }
}

/// Values of every type, few of which make sense.
std::vector<Value> hostileValues(const Value& entity, const Value& unknown)
{
    using List = Value::List;
    List deep;
    for (int i = 0; i < 50; ++i)
        deep = List{Value(deep)};
    return {Value(),
            Value(true),
            Value(false),
            Value(0),
            Value(-1),
            Value(1),
            Value(3),
            Value(std::numeric_limits<std::int64_t>::max()),
            Value(std::numeric_limits<std::int64_t>::min()),
            Value(0.5),
            Value(1e300),
            Value(-1e-300),
            Value(1e38),
            Value(kNoNumber),
            Value(-kInfinity),
            Value(L""),
            Value(L"text"),
            Value(L"parallel"),
            Value(L"face"),
            Value(std::wstring(L"a\0b", 3)),
            Value(L"\u4E2D\uD7FF\"'()\\\n"),
            Value(std::wstring(10000, L'x')),
            Value(L"%s%n"),
            Value(L"absent/folder/x.stl"),
            Value(List{}),
            Value(List{0.0, 0.0, 0.0}),
            Value(List{1, 2, 3}),
            Value(List{1e300, -1e300, 1e300}),
            Value(List{255, 0, 300}),
            Value(List{List{0, 0, 0}, List{1, 0, 0}, List{0, 1, 0}}),
            Value(List{0, 1, 2, 99999999}),
            Value(List{Value(L"left"), Value(5)}),
            Value(std::move(deep)),
            entity,
            unknown,
            Value(List{entity, unknown, Value(false)})};
}

TEST_P(EveryCommand, EndsWithAnswerOrErrorWhateverItIsGiven)
{
    const std::vector<Value> values =
        hostileValues(entity(m_face), entity(node(77, EntityType::Body, 99)));
    std::mt19937 random(4711);
    for (const auto& command : m_commands) {
        const std::size_t count = command->parameters.size();
        for (int i = 0; i < 150; ++i) {
            std::vector<Value> arguments;
            for (std::size_t k = 0; k < count + (i % 10 == 9 ? 3 : 0); ++k)
                arguments.push_back(k < count && random() % 3 == 0
                                        ? fitting(command->parameters[k])
                                        : values[random() % values.size()]);
            ASSERT_EQ(accident(*command, arguments), "") << command->name << ", call " << i;
        }
    }
}

TEST_P(EveryCommand, EndsWithAnswerOrErrorWhereNothingIsLoadedOrShown)
{
    m_session.Document().ClearContents();
    m_session.m_fakeView = nullptr;
    for (const auto& command : m_commands) {
        std::vector<Value> arguments;
        for (const Parameter& parameter : command->parameters)
            if (parameter.presence == Presence::Required)
                arguments.push_back(fitting(parameter));

        EXPECT_EQ(accident(*command, arguments), "") << command->name;
    }
}

INSTANTIATE_TEST_SUITE_P(Table, EveryCommand, testing::ValuesIn(allFamilies()),
                         [](const auto& tested) { return tested.param; });

} // namespace
