#ifndef APPSCOMMON_CONFIGURATIONFILE_H
#define APPSCOMMON_CONFIGURATIONFILE_H

#include <OrvikCore/IConfigInitializer.h>

#include <map>
#include <string>
#include <utility>
#include <vector>

namespace Pellux {

// The interface has no virtual destructor; the host owns the object by its own type.
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

/// The settings of a run: built-in defaults, overlaid by configuration files in TOML.
///
/// A table of a file is a section, its keys are the section's keys. Values are strings, numbers or
/// booleans, or arrays of them (one pair per element). A key in a later file replaces all values
/// that the key had. The core's keys are exact: [View3D] File, Name, Controller; [SceneBuilder] and
/// [View3DAdapter] File, Name; [ScriptEngine] File.
///
/// @thread Main thread.
class ConfigurationFile final : public OrvikCore::IConfigInitializer
{
public:
    /// Starts with the defaults: [ScriptEngine] File = "OrvikSchemeEngine.dll".
    ConfigurationFile();

    /// Overlays the settings with those of a file.
    ///
    /// @param path      Path of the file.
    /// @param mustExist true when a missing file is an error.
    /// @return false when the file could not be used; nothing of it is taken then, and
    ///         GetErrorText() has a line "<path>:<line>:<column>: <reason>".
    bool AddFile(const std::wstring& path, bool mustExist);

    std::wstring GetSourceName() const override;
    std::wstring GetErrorText() const override;
    void ListSections(std::vector<std::wstring>& names, int reserved1, int reserved2) override;
    void FillSection(const std::wstring& section,
                     std::vector<std::pair<std::wstring, std::wstring>>* pairs) override;

    /// @return where the values of a key stand: "<path>:<line>:<column>"; empty for a default.
    std::wstring GetPlace(const std::wstring& section, const std::wstring& key) const;

private:
    using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;
    using Sections = std::vector<std::pair<std::wstring, Pairs>>;

    /// Gives a key these values and no others.
    static void replace(Pairs& pairs, const std::wstring& key,
                        const std::vector<std::wstring>& values);
    Pairs& section(const std::wstring& name);

    Sections m_sections; ///< In the order of their first appearance.
    std::map<std::pair<std::wstring, std::wstring>, std::wstring> m_places; ///< Of section and key.
    std::wstring m_sourceName = L"defaults";
    std::wstring m_errors;
};

#pragma GCC diagnostic pop

} // namespace Pellux

#endif
