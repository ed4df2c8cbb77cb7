#include "OrvikCore/CommandLineOptions.h"

#include <utility>

namespace OrvikCore {

std::wstring CommandLineOptions::Get(std::wstring key) const
{
    const auto option = m_options.find(key);
    return option == m_options.end() ? std::wstring() : option->second;
}

void CommandLineOptions::Set(std::wstring key, std::wstring value)
{
    m_options.insert_or_assign(std::move(key), std::move(value));
}

} // namespace OrvikCore
