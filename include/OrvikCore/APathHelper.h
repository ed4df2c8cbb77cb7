#ifndef ORVIKCORE_APATHHELPER_H
#define ORVIKCORE_APATHHELPER_H

#include "OrvikCore/Export.h"

#include <string>

namespace OrvikCore {

/// Names the folders that the host works with.
///
/// The host derives from it and hands one object to AppController, which owns it from then on and
/// deletes it through this class. Every path is absolute and ends without a separator; an empty
/// text means that there is no such folder. Any thread.
class ORVIKCORE_API APathHelper
{
public:
    virtual ~APathHelper();

    // Virtual operations in slot order; append only.

    /// @return the folder of the running program.
    virtual std::wstring GetExecutableFolder() const = 0;

    /// @return the folder in which plugin libraries are looked for.
    virtual std::wstring GetPluginFolder() const = 0;

    /// @return the folder of the start-up scripts.
    virtual std::wstring GetStartupFolder() const = 0;

    /// @return the folder of the user's configuration files.
    virtual std::wstring GetConfigurationFolder() const = 0;

    /// @return the folder in which the program keeps its journal and other state of the user.
    virtual std::wstring GetStateFolder() const = 0;

    /// @return a folder for files that need not outlive the program.
    virtual std::wstring GetTemporaryFolder() const = 0;
};

} // namespace OrvikCore

#endif
