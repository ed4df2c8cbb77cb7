#include <OrvikOs/Environment.h>
#include <OrvikOs/Utf8.h>

#include <pwd.h>
#include <unistd.h>

#include <cstdlib>
#include <vector>

namespace OrvikOs {

namespace {

std::wstring withoutEndSeparator(std::wstring folder)
{
    while (folder.size() > 1 && folder.back() == L'/') {
        folder.pop_back();
    }
    return folder;
}

/// Gives the home folder that the user data base knows; empty when it knows none.
std::wstring homeOfUser()
{
    std::vector<char> buffer(16384);
    passwd entry = {};
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, buffer.data(), buffer.size(), &found) != 0 ||
        found == nullptr || found->pw_dir == nullptr) {
        return std::wstring();
    }
    return Utf8ToWide(found->pw_dir);
}

/// Gives the application's folder below the one named by @p variable, or below the home folder + @p
/// fallback.
std::wstring applicationFolder(const char* variable, const wchar_t* fallback,
                               const std::wstring& application)
{
    const auto named = EnvironmentVariable(variable);
    if (named && !named->empty() && named->front() == L'/') { // Relative ones are to be ignored.
        return withoutEndSeparator(*named) + L"/" + application;
    }
    const std::wstring home = HomeFolder();
    return home.empty() ? home : home + fallback + L"/" + application;
}

} // namespace

std::optional<std::wstring> EnvironmentVariable(const char* name)
{
    const char* const value = std::getenv(name);
    return value != nullptr ? std::make_optional(Utf8ToWide(value)) : std::nullopt;
}

std::wstring HomeFolder()
{
    const auto home = EnvironmentVariable("HOME");
    return withoutEndSeparator(home && !home->empty() ? *home : homeOfUser());
}

std::wstring ConfigurationFolder(const std::wstring& application)
{
    return applicationFolder("XDG_CONFIG_HOME", L"/.config", application);
}

std::wstring StateFolder(const std::wstring& application)
{
    return applicationFolder("XDG_STATE_HOME", L"/.local/state", application);
}

std::wstring TemporaryFolder()
{
    const auto folder = EnvironmentVariable("TMPDIR");
    return withoutEndSeparator(folder && !folder->empty() ? *folder : std::wstring(L"/tmp"));
}

} // namespace OrvikOs
