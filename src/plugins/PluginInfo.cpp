#include "OrvikCore/PluginInfo.h"

namespace OrvikCore {

PluginInfo::PluginInfo() = default;
PluginInfo::~PluginInfo() = default;

std::string PluginInfo::GetName() const
{
    return name;
}

std::wstring PluginInfo::GetDescription() const
{
    return description;
}

std::string PluginInfo::GetComponentName() const
{
    return componentName;
}

bool PluginInfo::IsComponent() const
{
    return !componentName.empty();
}

std::vector<std::wstring> PluginInfo::GetMessages() const
{
    return messages;
}

std::vector<std::wstring> PluginInfo::GetErrors() const
{
    return errors;
}

std::vector<std::string> PluginInfo::GetProducts() const
{
    return products;
}

void PluginInfo::FlushMessagesAndErrors()
{
    messages.clear();
    errors.clear();
}

void PluginInfo::setName(const std::string& newName)
{
    name = newName;
}

} // namespace OrvikCore
