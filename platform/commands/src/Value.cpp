#include "TambCommandsInfra/Value.h"

#include <OrvikOs/Utf8.h>

#include <charconv>
#include <cmath>
#include <stdexcept>
#include <system_error>
#include <type_traits>
#include <utility>

namespace TambCommandsInfra {

namespace {

/// Characters of a string that a message shows; the rest is left out.
constexpr std::size_t kShownCharacters = 60;

/// Longest text of a number: sign, 17 digits, point, exponent.
constexpr std::size_t kNumberBytes = 32;

template <typename Number> std::string formatNumber(Number number)
{
    char text[kNumberBytes];
    const std::to_chars_result end = std::to_chars(text, text + sizeof text, number);
    return end.ec == std::errc() ? std::string(text, end.ptr) : std::string("?");
}

/// One line of the beginning of @p text in UTF-8: control characters become blanks.
std::string shownText(const std::wstring& text)
{
    std::wstring shown = text.substr(0, kShownCharacters);
    for (wchar_t& character : shown) {
        if (character < L' ' || character == 0x7F) {
            character = L' ';
        }
    }
    return OrvikOs::WideToUtf8(shown) + (text.size() > kShownCharacters ? "..." : "");
}

[[noreturn]] void refuse(const Value& value, const char* wanted)
{
    throw std::logic_error("The value is " + DescribeValue(value) + ", not " + wanted + ".");
}

} // namespace

ICommandObject::~ICommandObject() = default;

bool ICommandObject::IsSameAs(const ICommandObject& other) const
{
    return this == &other;
}

Value::Value() = default;
Value::~Value() = default;
Value::Value(const Value& other) = default;
Value::Value(Value&& other) noexcept = default;
Value& Value::operator=(const Value& other) = default;
Value& Value::operator=(Value&& other) noexcept = default;

Value::Value(double value) : m_data(value) {}

Value::Value(std::wstring value) : m_data(std::move(value)) {}

Value::Value(const wchar_t* value) : m_data(std::wstring(value)) {}

Value::Value(List value) : m_data(std::move(value)) {}

Value::Value(Object value) : m_data(std::move(value))
{
    if (!std::get<Object>(m_data)) {
        throw std::invalid_argument("A value cannot hold a null object.");
    }
}

Value Value::FromVector(const std::array<double, 3>& vector)
{
    return Value(List{vector[0], vector[1], vector[2]});
}

Value Value::FromUtf8(std::string_view text)
{
    return Value(OrvikOs::Utf8ToWide(text));
}

Value::Kind Value::GetKind() const
{
    return static_cast<Kind>(m_data.index());
}

bool Value::IsNil() const
{
    return GetKind() == Kind::Nil;
}

bool Value::AsBool() const
{
    const bool* value = std::get_if<bool>(&m_data);
    return value ? *value : (refuse(*this, "a boolean"), false);
}

std::int64_t Value::AsInteger() const
{
    const std::int64_t* value = std::get_if<std::int64_t>(&m_data);
    return value ? *value : (refuse(*this, "an integer"), 0);
}

double Value::AsReal() const
{
    if (const std::int64_t* integer = std::get_if<std::int64_t>(&m_data)) {
        return static_cast<double>(*integer);
    }
    const double* value = std::get_if<double>(&m_data);
    return value ? *value : (refuse(*this, "a number"), 0.0);
}

const std::wstring& Value::AsString() const
{
    const std::wstring* value = std::get_if<std::wstring>(&m_data);
    if (!value) {
        refuse(*this, "a string");
    }
    return *value;
}

std::string Value::AsUtf8() const
{
    return OrvikOs::WideToUtf8(AsString());
}

const Value::List& Value::AsList() const
{
    const List* value = std::get_if<List>(&m_data);
    if (!value) {
        refuse(*this, "a list");
    }
    return *value;
}

const Value::Object& Value::AsObject() const
{
    const Object* value = std::get_if<Object>(&m_data);
    if (!value) {
        refuse(*this, "an object");
    }
    return *value;
}

std::array<double, 3> Value::AsVector() const
{
    const List* list = std::get_if<List>(&m_data);
    if (!list || list->size() != 3) {
        refuse(*this, "a list of three numbers");
    }
    return {(*list)[0].AsReal(), (*list)[1].AsReal(), (*list)[2].AsReal()};
}

bool operator==(const Value& left, const Value& right)
{
    if (left.GetKind() == Value::Kind::Object && right.GetKind() == Value::Kind::Object) {
        return left.AsObject()->IsSameAs(*right.AsObject());
    }
    return left.m_data == right.m_data;
}

std::string DescribeValue(const Value& value)
{
    switch (value.GetKind()) {
    case Value::Kind::Nil:
        return "nothing";
    case Value::Kind::Bool:
        return value.AsBool() ? "true" : "false";
    case Value::Kind::Integer:
        return "the integer " + formatNumber(value.AsInteger());
    case Value::Kind::Real:
        return "the number " + formatNumber(value.AsReal());
    case Value::Kind::String:
        return "the string \"" + shownText(value.AsString()) + "\"";
    case Value::Kind::List: {
        const std::size_t size = value.AsList().size();
        return "a list of " + formatNumber(size) + (size == 1 ? " element" : " elements");
    }
    case Value::Kind::Object:
        return std::string("an object of type ") + value.AsObject()->TypeName();
    }
    return "nothing";
}

} // namespace TambCommandsInfra
