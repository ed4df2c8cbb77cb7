#ifndef TESTS_PLUGINFOLDER_H
#define TESTS_PLUGINFOLDER_H

#include "ScopedTempDir.h"

#include <OrvikOs/ExecutablePath.h>

#include <filesystem>
#include <string>

/// A folder that counts as the executable's as long as the object lives. A test puts copies of the
/// test plugins into it; programs that use it define ORVIK_TEST_PLUGIN_DIR.
class PluginFolder
{
public:
    PluginFolder() { OrvikOs::SetExecutablePath(m_folder.WidePath(L"program")); }
    ~PluginFolder() { OrvikOs::SetExecutablePath(std::wstring()); }
    PluginFolder(const PluginFolder&) = delete;
    PluginFolder& operator=(const PluginFolder&) = delete;

    const ScopedTempDir& Dir() const { return m_folder; }

    /// @return the path that a file of the folder has, as discovery gives it.
    std::wstring FileName(const std::string& name) const
    {
        return m_folder.WidePath(OrvikOs::Utf8ToWide(name));
    }

    /// Copies a test plugin into the folder.
    ///
    /// @param plugin  Name of the file in the folder of the test plugins.
    /// @param name    Name of the copy; empty for the same.
    /// @return the path of the copy.
    std::wstring Add(const std::string& plugin, const std::string& name = std::string()) const
    {
        const std::string copy = name.empty() ? plugin : name;
        std::filesystem::copy_file(std::filesystem::path(ORVIK_TEST_PLUGIN_DIR) / plugin,
                                   m_folder.Path() / copy);
        return FileName(copy);
    }

private:
    ScopedTempDir m_folder;
};

#endif
