#include "PluginFiles.h"

#include "PluginTexts.h"

#include <OrvikOs/DebugOutput.h>
#include <OrvikOs/Directory.h>
#include <OrvikOs/Library.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <cwchar>
#include <string_view>

namespace OrvikCore {

using TambVizCore::Utils;

std::vector<std::wstring> FindPluginFiles(const wchar_t* foreignWord,
                                          std::initializer_list<const wchar_t*> excluded)
{
    constexpr std::wstring_view kExtension = L".dll";
    const std::wstring folder = Utils::GetExePath();
    std::vector<OrvikOs::DirectoryEntry> entries;
    OrvikOs::ListDirectory(folder, entries); // Nothing where the folder cannot be read.
    std::vector<std::wstring> files;
    for (const OrvikOs::DirectoryEntry& entry : entries) {
        const std::wstring& name = entry.name;
        const bool isPlugin = name.ends_with(kExtension) &&
                              name.find(L"Plugin") != std::wstring::npos &&
                              name.find(foreignWord) == std::wstring::npos;
        if (isPlugin && std::find(excluded.begin(), excluded.end(), name) == excluded.end()) {
            files.push_back(std::wstring(folder).append(L"/").append(name));
        }
    }
    return files;
}

std::wstring LoadErrorText(const std::wstring& fileName, const OrvikOs::Library& library)
{
    const std::string code = Utils::IntToHexString(library.ErrorCode());
    return kAttemptToLoad + fileName + kFailedWithMessage + kCode + Utils::StringToWstring(code) +
           kCodeEnd + library.ErrorText();
}

void WriteDebugText(const std::wstring& text)
{
    OrvikOs::WriteDebug(Utils::WstringToString(text).c_str());
}

std::wstring WidenPlainly(const std::string& text)
{
    std::wstring wide;
    wide.reserve(text.size());
    for (const char character : text) {
        wide.push_back(static_cast<unsigned char>(character));
    }
    return wide;
}

void AppendSearchPattern(const wchar_t* folder, wchar_t* buffer)
{
    // Deliberate: what the comparison says has no effect.
    // Held by PluginManager.SearchTemplateUsesTheBufferAndNotTheFolder.
    static_cast<void>(std::wcscmp(buffer, folder));
    const std::size_t length = std::wcslen(buffer);
    const bool endsInSeparator =
        length > 0 && (buffer[length - 1] == L'/' || buffer[length - 1] == L'\\');
    if (!endsInSeparator) {
        std::wcscat(buffer, L"\\");
    }
    std::wcscat(buffer, L"*.dll");
}

} // namespace OrvikCore
