#include "Folders.h"

#include <OrvikOs/Environment.h>
#include <OrvikOs/ExecutablePath.h>

namespace Pellux {

std::wstring Folders::GetExecutableFolder() const
{
    return OrvikOs::ExecutableFolder();
}

std::wstring Folders::GetPluginFolder() const
{
    return OrvikOs::ExecutableFolder();
}

std::wstring Folders::GetStartupFolder() const
{
    return OrvikOs::ExecutableFolder() + L"/startup";
}

std::wstring Folders::GetConfigurationFolder() const
{
    return OrvikOs::ConfigurationFolder(L"pellux");
}

std::wstring Folders::GetStateFolder() const
{
    return OrvikOs::StateFolder(L"pellux");
}

std::wstring Folders::GetTemporaryFolder() const
{
    return OrvikOs::TemporaryFolder();
}

} // namespace Pellux
