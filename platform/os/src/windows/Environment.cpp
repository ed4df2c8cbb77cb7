#include <OrvikOs/Environment.h>

#include <windows.h>

namespace OrvikOs {

namespace {

std::wstring withoutEndSeparator(std::wstring folder)
{
    while (folder.size() > 1 && (folder.back() == L'\\' || folder.back() == L'/')) {
        folder.pop_back();
    }
    return folder;
}

std::wstring applicationFolder(const char* variable, const std::wstring& application)
{
    const auto folder = EnvironmentVariable(variable);
    if (!folder || folder->empty()) {
        return std::wstring();
    }
    return withoutEndSeparator(*folder) + L"\\" + application;
}

} // namespace

std::optional<std::wstring> EnvironmentVariable(const char* name)
{
    const std::string narrow(name);
    const std::wstring wide(narrow.begin(), narrow.end());
    SetLastError(ERROR_SUCCESS);
    std::wstring value(GetEnvironmentVariableW(wide.c_str(), nullptr, 0), L'\0');
    if (value.empty()) {
        return GetLastError() == ERROR_ENVVAR_NOT_FOUND ? std::nullopt
                                                        : std::make_optional(std::wstring());
    }
    value.resize(
        GetEnvironmentVariableW(wide.c_str(), value.data(), static_cast<DWORD>(value.size())));
    return value;
}

std::wstring HomeFolder()
{
    return withoutEndSeparator(EnvironmentVariable("USERPROFILE").value_or(std::wstring()));
}

std::wstring ConfigurationFolder(const std::wstring& application)
{
    return applicationFolder("APPDATA", application);
}

std::wstring StateFolder(const std::wstring& application)
{
    return applicationFolder("LOCALAPPDATA", application);
}

std::wstring TemporaryFolder()
{
    wchar_t folder[MAX_PATH + 1] = {};
    const DWORD length = GetTempPathW(MAX_PATH + 1, folder);
    return withoutEndSeparator(std::wstring(folder, length));
}

} // namespace OrvikOs
