#ifndef ORVIKCORE_CONFIG_H
#define ORVIKCORE_CONFIG_H

#include "OrvikCore/Export.h"

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

class IConfigInitializer;

/// The process-wide settings: named sections, each an ordered list of key and value pairs.
///
/// The host fills it once at its start; the core never reads a file itself. Section and key names
/// are compared exactly. Only Instance() is synchronised: filled before any reader runs, read from
/// any thread afterwards.
class ORVIKCORE_API Config
{
public:
    Config(const Config&) = delete;
    Config& operator=(const Config&) = delete;

    /// @return the one object of the process. Any thread may be the first to ask.
    static Config& Instance();

    /// Takes all sections from @p initializer, beside those held already.
    ///
    /// A section that is held already, or delivered twice, is replaced by the later one.
    /// @return true.
    /// @throws whatever @p initializer throws; sections taken before stay.
    bool Initialize(IConfigInitializer& initializer);

    /// Drops every section; IsValid() is false afterwards.
    void Terminate();

    /// @return true between Initialize and Terminate.
    bool IsValid() const;

    /// Replaces @p names by the names of all sections in sorted order.
    /// @return true.
    bool GetSectionNames(std::vector<std::wstring>& names) const;

    /// Replaces @p pairs by a copy of a section.
    /// @return false when there is no such section; @p pairs is then left unchanged.
    bool GetSection(const std::wstring& name,
                    std::vector<std::pair<std::wstring, std::wstring>>& pairs) const;

    /// Replaces @p values by the values of every pair of @p section whose key is @p key, in order.
    /// @return false, also when values were found: ask whether @p values is empty.
    bool GetValue(const std::wstring& section, const std::wstring& key,
                  std::vector<std::wstring>& values) const;

private:
    Config();
    ~Config();

    bool m_valid = false;
    std::wstring m_reserved; ///< Always empty.
    /// Owned vectors, ordered by section name.
    std::map<std::wstring, std::vector<std::pair<std::wstring, std::wstring>>*> m_sections;
};

} // namespace OrvikCore

#endif
