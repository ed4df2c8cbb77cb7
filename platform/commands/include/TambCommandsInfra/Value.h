#ifndef TAMBCOMMANDSINFRA_VALUE_H
#define TAMBCOMMANDSINFRA_VALUE_H

#include "TambCommandsInfra/Export.h"
#include "TambCommandsInfra/ICommandObject.h"

#include <array>
#include <concepts>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace TambCommandsInfra {

/// A value that commands take and give, the same for every script engine.
///
/// Strings are wide, as everywhere in the application; engines convert from and to their own form.
/// Vectors and points are lists of three numbers. Copying copies lists and strings and shares
/// objects.
///
/// @thread  Not shared: each thread uses its own copy.
class TAMBCOMMANDSINFRA_API Value
{
public:
    /// What a value is.
    enum class Kind
    {
        Nil = 0,     ///< Nothing: the result of a command that gives none.
        Bool = 1,    ///< true or false.
        Integer = 2, ///< A whole number of 64 bits with sign.
        Real = 3,    ///< A number of double precision.
        String = 4,  ///< A wide text.
        List = 5,    ///< A list of values of any kind.
        Object = 6,  ///< A reference to something of the application; never null.
    };

    using List = std::vector<Value>;
    using Object = std::shared_ptr<const ICommandObject>;

    /// Nil.
    Value();
    ~Value();
    Value(const Value& other);
    Value(Value&& other) noexcept;
    Value& operator=(const Value& other);
    Value& operator=(Value&& other) noexcept;

    /// Make a value of the kind that fits. Pointers do not become booleans.
    template <std::same_as<bool> T> Value(T value) : m_data(value) {}
    template <std::signed_integral T>
    requires(!std::same_as<T, bool> && !std::same_as<T, char> && !std::same_as<T, wchar_t>)
        Value(T value)
        : m_data(static_cast<std::int64_t>(value))
    {
    }
    Value(double value);
    Value(std::wstring value);
    Value(const wchar_t* value);
    Value(const char* value) = delete;
    Value(List value);

    /// @throws std::invalid_argument "A value cannot hold a null object." for null.
    Value(Object value);

    /// Makes a list of three numbers.
    static Value FromVector(const std::array<double, 3>& vector);

    /// Makes a string of UTF-8; bytes that are none survive the way back (see OrvikOs/Utf8.h).
    static Value FromUtf8(std::string_view text);

    Kind GetKind() const;
    bool IsNil() const;

    /// Give what the value holds; references are valid until the value changes.
    ///
    /// AsReal() takes whole numbers too. AsUtf8() gives the string in UTF-8.
    ///
    /// @throws std::logic_error "The value is <what it is>, not <what was asked for>." otherwise.
    bool AsBool() const;
    std::int64_t AsInteger() const;
    double AsReal() const;
    const std::wstring& AsString() const;
    std::string AsUtf8() const;
    const List& AsList() const;
    const Object& AsObject() const;

    /// Gives the three numbers of a list of three numbers.
    ///
    /// @throws std::logic_error as above for anything else.
    std::array<double, 3> AsVector() const;

    /// Compares kinds and contents; objects by ICommandObject::IsSameAs(). The whole number 1 and
    /// the real number 1 differ.
    friend TAMBCOMMANDSINFRA_API bool operator==(const Value& left, const Value& right);

private:
    std::variant<std::monostate, bool, std::int64_t, double, std::wstring, List, Object>
        m_data; ///< In the order of Kind.
};

/// Says what @p value is, for messages, in UTF-8: "nothing", "true", "the integer 3", "the
/// number 2.5", "the string \"abc\"", "a list of 2 elements", "an object of type entity". Long
/// strings are cut after 60 characters.
///
/// @thread  Any thread.
TAMBCOMMANDSINFRA_API std::string DescribeValue(const Value& value);

} // namespace TambCommandsInfra

#endif
