#include "CommandText.h"
#include "TambCommandsInfra/CommandTable.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <utility>

namespace TambCommandsInfra {

namespace {

/// The end of the range of 64-bit integers as real numbers: -2^63 is inside, 2^63 is not.
constexpr double kIntegerEnd = 9223372036854775808.0;

/// Longest text of a number: sign, 17 digits, point, exponent.
constexpr std::size_t kNumberBytes = 32;

bool isNumber(const Value& value)
{
    return value.GetKind() == Value::Kind::Integer || value.GetKind() == Value::Kind::Real;
}

bool isFiniteNumber(const Value& value)
{
    return isNumber(value) && std::isfinite(value.AsReal());
}

bool isWithin(const Parameter& parameter, double number)
{
    return (!parameter.minimum || number >= *parameter.minimum) &&
           (!parameter.maximum || number <= *parameter.maximum);
}

bool convertInteger(Value& value)
{
    if (value.GetKind() == Value::Kind::Integer) {
        return true;
    }
    if (!isFiniteNumber(value)) {
        return false;
    }
    const double number = value.AsReal();
    if (number != std::trunc(number) || number < -kIntegerEnd || number >= kIntegerEnd) {
        return false;
    }
    value = Value(static_cast<std::int64_t>(number));
    return true;
}

bool convertReal(Value& value)
{
    if (!isFiniteNumber(value)) {
        return false;
    }
    value = Value(value.AsReal());
    return true;
}

bool convertVector(Value& value)
{
    if (value.GetKind() != Value::Kind::List || value.AsList().size() != 3) {
        return false;
    }
    for (const Value& element : value.AsList()) {
        if (!isFiniteNumber(element)) {
            return false;
        }
    }
    value = Value::FromVector(value.AsVector());
    return true;
}

/// Leaves @p value untouched when it does not fit.
bool convertType(ValueType type, Value& value)
{
    switch (type) {
    case ValueType::Nothing:
        return value.IsNil();
    case ValueType::Bool:
        return value.GetKind() == Value::Kind::Bool;
    case ValueType::Integer:
        return convertInteger(value);
    case ValueType::Real:
        return convertReal(value);
    case ValueType::String:
        return value.GetKind() == Value::Kind::String;
    case ValueType::Path:
        return value.GetKind() == Value::Kind::String && !value.AsString().empty();
    case ValueType::Vector:
    case ValueType::Point:
        return convertVector(value);
    case ValueType::List:
        return value.GetKind() == Value::Kind::List;
    case ValueType::Entity:
        return value.GetKind() == Value::Kind::Object &&
               std::string_view(value.AsObject()->TypeName()) == "entity";
    case ValueType::Any:
        return true;
    }
    return false;
}

const char* expectedText(ValueType type)
{
    switch (type) {
    case ValueType::Nothing:
        return "nothing";
    case ValueType::Bool:
        return "true or false";
    case ValueType::Integer:
        return "an integer";
    case ValueType::Real:
        return "a number";
    case ValueType::String:
        return "a string";
    case ValueType::Path:
        return "a path";
    case ValueType::Vector:
        return "a vector (three numbers)";
    case ValueType::Point:
        return "a point (three numbers)";
    case ValueType::List:
        return "a list";
    case ValueType::Entity:
        return "an entity";
    case ValueType::Any:
        return "a value";
    }
    return "a value";
}

/// Says what was given in the place of @p type; for a list of three names the element that is
/// wrong.
std::string gotText(ValueType type, const Value& value)
{
    const bool isTriple = (type == ValueType::Vector || type == ValueType::Point) &&
                          value.GetKind() == Value::Kind::List && value.AsList().size() == 3;
    if (isTriple) {
        for (std::size_t index = 0; index < 3; ++index) {
            const Value& element = value.AsList()[index];
            if (!isFiniteNumber(element)) {
                return "a list whose element " + std::to_string(index + 1) + " is " +
                       DescribeValue(element);
            }
        }
    }
    return DescribeValue(value);
}

std::string countedArguments(std::size_t count)
{
    if (count == 0) {
        return "no arguments";
    }
    return std::to_string(count) + (count == 1 ? " argument" : " arguments");
}

[[noreturn]] void refuseCount(const Command& command, std::size_t got)
{
    const std::size_t required = CountRequiredParameters(command.parameters);
    const std::size_t fixed = CountFixedParameters(command.parameters);
    std::string text = command.name + ": expected ";
    if (fixed < command.parameters.size()) {
        text += "at least " + countedArguments(required);
    } else if (required < fixed) {
        text += std::to_string(required) + " to " + countedArguments(fixed);
    } else {
        text += countedArguments(fixed);
    }
    text += ", got " + std::to_string(got) + ".";
    if (got < required) {
        const Parameter& missing = command.parameters[got];
        text += " Missing: \"" + missing.name + "\" (" + ValueTypeName(missing.type) + ").";
    }
    throw CommandError(text);
}

[[noreturn]] void refuseValue(const Command& command, const Parameter& parameter,
                              const Value& value)
{
    throw CommandError(command.name + ": parameter \"" + parameter.name + "\": expected " +
                       expectedText(parameter.type) + FormatLimits(parameter) +
                       (parameter.unit.empty() ? "" : " in " + parameter.unit) + ", got " +
                       gotText(parameter.type, value) + ".");
}

} // namespace

CommandError::CommandError(const std::string& text) : std::invalid_argument(text) {}

CommandError::~CommandError() = default;

std::size_t CountFixedParameters(const std::vector<Parameter>& parameters)
{
    const bool hasVariadic =
        !parameters.empty() && parameters.back().presence == Presence::Variadic;
    return hasVariadic ? parameters.size() - 1 : parameters.size();
}

std::size_t CountRequiredParameters(const std::vector<Parameter>& parameters)
{
    std::size_t count = 0;
    while (count < parameters.size() && parameters[count].presence == Presence::Required) {
        ++count;
    }
    return count;
}

std::string FormatNumber(double number)
{
    char text[kNumberBytes];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
    return std::string(text, end.ptr);
}

namespace {

/// Integers are written as such: "1000000", not "1e+06".
std::string formatLimit(const Parameter& parameter, double limit)
{
    constexpr double kExact = 9007199254740992.0; // 2 to the 53rd
    if (parameter.type != ValueType::Integer || !(std::fabs(limit) <= kExact)) {
        return FormatNumber(limit);
    }
    char text[kNumberBytes];
    const std::to_chars_result end =
        std::to_chars(text, text + sizeof text, static_cast<std::int64_t>(limit));
    return std::string(text, end.ptr);
}

} // namespace

std::string FormatLimits(const Parameter& parameter)
{
    if (parameter.minimum && parameter.maximum) {
        return " from " + formatLimit(parameter, *parameter.minimum) + " to " +
               formatLimit(parameter, *parameter.maximum);
    }
    if (parameter.minimum) {
        return " of at least " + formatLimit(parameter, *parameter.minimum);
    }
    return parameter.maximum ? " of at most " + formatLimit(parameter, *parameter.maximum) : "";
}

bool ConvertValue(const Parameter& parameter, Value& value)
{
    if (!isNumber(value)) {
        return convertType(parameter.type, value);
    }
    Value converted = value;
    if (!convertType(parameter.type, converted) || !isWithin(parameter, converted.AsReal())) {
        return false;
    }
    value = std::move(converted);
    return true;
}

Arguments CommandTable::CheckArguments(const Command& command, std::vector<Value> arguments)
{
    const std::vector<Parameter>& parameters = command.parameters;
    const std::size_t given = arguments.size();
    const std::size_t fixed = CountFixedParameters(parameters);
    const bool isVariadic = fixed < parameters.size();
    if (given < CountRequiredParameters(parameters) || (given > fixed && !isVariadic)) {
        refuseCount(command, given);
    }
    for (std::size_t index = 0; index < given; ++index) {
        const Parameter& parameter = parameters[std::min(index, parameters.size() - 1)];
        if (!ConvertValue(parameter, arguments[index])) {
            refuseValue(command, parameter, arguments[index]);
        }
    }
    for (std::size_t index = given; index < fixed; ++index) {
        arguments.push_back(parameters[index].defaultValue);
    }
    return Arguments(parameters, std::move(arguments), given);
}

} // namespace TambCommandsInfra
