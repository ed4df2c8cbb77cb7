#ifndef TESTS_SCOPEDTEMPDIR_H
#define TESTS_SCOPEDTEMPDIR_H

#include <OrvikOs/Utf8.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

/// A folder of its own that goes with the object, whatever was put into it.
class ScopedTempDir
{
public:
    ScopedTempDir()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "orvik-XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    ~ScopedTempDir()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    ScopedTempDir(const ScopedTempDir&) = delete;
    ScopedTempDir& operator=(const ScopedTempDir&) = delete;

    /// @return the folder, without a separator at its end.
    std::filesystem::path Path() const { return m_path; }
    std::wstring WidePath() const { return OrvikOs::Utf8ToWide(m_path.string()); }

    /// @return the wide path of an entry below the folder.
    std::wstring WidePath(std::wstring_view name) const
    {
        return WidePath() + L"/" + std::wstring(name);
    }

    /// Writes a file below the folder and makes the folders above it.
    /// @return its wide path.
    std::wstring Write(const std::string& name, std::string_view text) const
    {
        const std::filesystem::path file = m_path / name;
        std::filesystem::create_directories(file.parent_path());
        std::ofstream(file, std::ios::binary) << text;
        return OrvikOs::Utf8ToWide(file.string());
    }

private:
    std::filesystem::path m_path;
};

#endif
