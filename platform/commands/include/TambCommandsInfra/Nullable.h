#ifndef TAMBCOMMANDSINFRA_NULLABLE_H
#define TAMBCOMMANDSINFRA_NULLABLE_H

#include <optional>
#include <stdexcept>
#include <utility>

namespace TambCommandsInfra {

/// A value or nothing; "nothing" stands for "the default" in the setters of the service sets.
///
/// @tparam T  A copyable value type that is no reference.
/// @thread  Not shared: each thread uses its own object.
template <typename T> class Nullable
{
public:
    /// Holds nothing.
    constexpr Nullable() = default;

    /// Holds a copy of @p value. Deliberately implicit: a T stands wherever a Nullable<T> is asked
    /// for.
    constexpr Nullable(T value) : m_value(std::move(value)) {}

    /// Tells whether there is a value.
    constexpr bool HasValue() const { return m_value.has_value(); }

    /// Gives the value; valid until this object changes.
    ///
    /// @throws std::logic_error "Nullable has no value." when there is none.
    constexpr const T& Value() const
    {
        if (!m_value) {
            throw std::logic_error("Nullable has no value.");
        }
        return *m_value;
    }

    /// Gives the value, or @p fallback when there is none.
    constexpr T ValueOr(T fallback) const { return m_value ? *m_value : std::move(fallback); }

    /// Drops the value.
    constexpr void Reset() { m_value.reset(); }

    friend constexpr bool operator==(const Nullable& left, const Nullable& right)
    {
        return left.m_value == right.m_value;
    }

private:
    std::optional<T> m_value; ///< Empty for nothing.
};

} // namespace TambCommandsInfra

#endif
