#ifndef APPSCOMMON_FOLDERS_H
#define APPSCOMMON_FOLDERS_H

#include <OrvikCore/APathHelper.h>

namespace Pellux {

/// The folders of the program and of its user, as the system has them. Any thread.
class Folders : public OrvikCore::APathHelper
{
public:
    std::wstring GetExecutableFolder() const override;
    std::wstring GetPluginFolder() const override;
    std::wstring GetStartupFolder() const override;
    std::wstring GetConfigurationFolder() const override;
    std::wstring GetStateFolder() const override;
    std::wstring GetTemporaryFolder() const override;
};

} // namespace Pellux

#endif
