#include "TambCommandsInfra/Command.h"

#include "CommandText.h"

#include <algorithm>
#include <stdexcept>
#include <utility>

namespace TambCommandsInfra {

Arguments::Arguments(const std::vector<Parameter>& parameters, std::vector<Value> values,
                     std::size_t given)
    : m_parameters(parameters), m_values(std::move(values)), m_given(given)
{
}

const Value& Arguments::operator[](std::size_t index) const
{
    if (index >= m_values.size()) {
        throw std::logic_error("There is no argument at position " + std::to_string(index) + ".");
    }
    return m_values[index];
}

const Value& Arguments::operator[](std::string_view name) const
{
    return m_values[find(name)];
}

bool Arguments::IsGiven(std::string_view name) const
{
    return find(name) < m_given;
}

std::vector<Value> Arguments::Rest() const
{
    const std::size_t fixed = CountFixedParameters(m_parameters);
    if (fixed == m_parameters.size() || m_values.size() <= fixed) {
        return {};
    }
    return {m_values.begin() + static_cast<std::ptrdiff_t>(fixed), m_values.end()};
}

std::size_t Arguments::Size() const
{
    return m_values.size();
}

std::size_t Arguments::find(std::string_view name) const
{
    const std::size_t fixed = std::min(CountFixedParameters(m_parameters), m_values.size());
    for (std::size_t index = 0; index < fixed; ++index) {
        if (m_parameters[index].name == name) {
            return index;
        }
    }
    throw std::logic_error("There is no parameter \"" + std::string(name) + "\".");
}

const char* ValueTypeName(ValueType type)
{
    switch (type) {
    case ValueType::Nothing:
        return "nothing";
    case ValueType::Bool:
        return "boolean";
    case ValueType::Integer:
        return "integer";
    case ValueType::Real:
        return "number";
    case ValueType::String:
        return "string";
    case ValueType::Path:
        return "path";
    case ValueType::Vector:
        return "vector";
    case ValueType::Point:
        return "point";
    case ValueType::List:
        return "list";
    case ValueType::Entity:
        return "entity";
    case ValueType::Any:
        return "value";
    }
    return "value";
}

} // namespace TambCommandsInfra
