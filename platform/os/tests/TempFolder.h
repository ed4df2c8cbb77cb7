#ifndef ORVIKOS_TESTS_TEMPFOLDER_H
#define ORVIKOS_TESTS_TEMPFOLDER_H

#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <string>

/// A folder that lives as long as the object, with all that is in it.
class TempFolder
{
public:
    TempFolder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "orvik-os-XXXXXX").string();
        m_path = mkdtemp(pattern.data());
    }
    ~TempFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(m_path, ignored);
    }
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Gives the path of @p name inside the folder.
    std::wstring Path(const std::wstring& name = std::wstring()) const
    {
        return std::wstring(m_path.begin(), m_path.end()) + L"/" + name;
    }
    std::string Bytes(const std::string& name) const { return m_path + "/" + name; }

    /// Writes a file.
    void Write(const std::string& name, const std::string& content) const
    {
        std::ofstream(Bytes(name), std::ios::binary) << content;
    }

    /// Reads a file; empty when it is not there.
    std::string Read(const std::string& name) const
    {
        std::ifstream file(Bytes(name), std::ios::binary);
        return std::string(std::istreambuf_iterator<char>(file), {});
    }

    /// Gives the number of entries.
    std::size_t Count() const
    {
        const std::filesystem::directory_iterator entries(m_path);
        return static_cast<std::size_t>(std::distance(begin(entries), end(entries)));
    }

private:
    std::string m_path;
};

#endif
