#include "Handles.h"
#include "common/Platform.h"

#include <OrvikOs/Directory.h>
#include <OrvikOs/SystemError.h>

#include <cwchar>
#include <utility>
#include <vector>

namespace OrvikOs {

const wchar_t kPathSeparator = L'\\';

std::size_t FindLastSeparator(const std::wstring& path)
{
    return path.find_last_of(L"\\/");
}

bool FailWith(DWORD error, std::wstring* text)
{
    if (text != nullptr) {
        *text = SystemErrorText(error);
    }
    return false;
}

namespace {

EntryKind kindOf(DWORD attributes)
{
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
        return EntryKind::Directory;
    }
    return (attributes & FILE_ATTRIBUTE_DEVICE) != 0 ? EntryKind::Other : EntryKind::File;
}

bool isDotEntry(const wchar_t* name)
{
    return std::wcscmp(name, L".") == 0 || std::wcscmp(name, L"..") == 0;
}

} // namespace

bool ListDirectory(const std::wstring& path, std::vector<DirectoryEntry>& entries,
                   std::wstring* errorText)
{
    entries.clear();
    const std::wstring pattern = (path.empty() ? std::wstring(L".") : path) + L"\\*";
    WIN32_FIND_DATAW data = {};
    HANDLE const search = FindFirstFileW(pattern.c_str(), &data);
    if (search == INVALID_HANDLE_VALUE) {
        return FailWith(GetLastError(), errorText);
    }
    std::vector<DirectoryEntry> found;
    do {
        if (!isDotEntry(data.cFileName)) {
            found.push_back({data.cFileName, kindOf(data.dwFileAttributes)});
        }
    } while (FindNextFileW(search, &data) != 0);
    const DWORD error = GetLastError();
    FindClose(search);
    if (error != ERROR_NO_MORE_FILES) {
        return FailWith(error, errorText);
    }
    entries = std::move(found);
    return true;
}

bool IsFile(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && kindOf(attributes) == EntryKind::File;
}

bool IsDirectory(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    return attributes != INVALID_FILE_ATTRIBUTES && kindOf(attributes) == EntryKind::Directory;
}

bool MakeDirectories(const std::wstring& path, std::wstring* errorText)
{
    DWORD lastError = path.empty() ? DWORD{ERROR_PATH_NOT_FOUND} : DWORD{ERROR_SUCCESS};
    for (std::size_t end = path.find_first_of(L"\\/", 1); !path.empty();
         end = path.find_first_of(L"\\/", end + 1)) {
        const std::wstring folder = path.substr(0, end);
        lastError =
            CreateDirectoryW(folder.c_str(), nullptr) != 0 ? DWORD{ERROR_SUCCESS} : GetLastError();
        if (end == std::wstring::npos) {
            break;
        }
    }
    return IsDirectory(path) || FailWith(lastError, errorText);
}

bool RemoveFile(const std::wstring& path)
{
    if (DeleteFileW(path.c_str()) != 0) {
        return true;
    }
    const DWORD error = GetLastError();
    return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
}

std::wstring AbsolutePath(const std::wstring& path)
{
    const bool hasDrive = path.size() >= 2 && path[1] == L':';
    const bool hasRoot = !path.empty() && (path[0] == L'\\' || path[0] == L'/');
    if (hasDrive || hasRoot) {
        return path;
    }
    const std::wstring current = CurrentDirectory();
    return path.empty() ? current : current + L"\\" + path;
}

std::wstring CurrentDirectory()
{
    std::wstring folder(GetCurrentDirectoryW(0, nullptr), L'\0');
    folder.resize(GetCurrentDirectoryW(static_cast<DWORD>(folder.size()), folder.data()));
    return folder;
}

} // namespace OrvikOs
