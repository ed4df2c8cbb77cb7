#ifndef APPSCOMMON_COMPLETIONSTORE_H
#define APPSCOMMON_COMPLETIONSTORE_H

#include <OrvikCore/IAutoComplete.h>

#include <map>
#include <string>
#include <vector>

namespace Pellux {

/// What the console knows of script extensions: their names, descriptions and objects.
///
/// Found are the extensions that scripts described and the commands of the command table.
/// @thread Main thread.
class CompletionStore final : public OrvikCore::IAutoComplete
{
public:
    /// Keeps a description for each name; a known name gets the new one.
    /// @return false, with nothing taken, when there are not as many descriptions as names.
    bool AddExtensionInfo(std::vector<std::wstring> names, std::vector<std::wstring> descriptions,
                          const std::wstring& group) override;

    /// Keeps the members of an object; each is found as "<object>.<name>" and described so.
    bool AddExtensionObject(std::vector<std::wstring> names, const std::wstring& object) override;

    /// Replaces @p found by the names that begin with @p prefix, in alphabetical order.
    bool FindExtensions(const std::wstring& prefix, std::vector<std::wstring>& found) override;

    bool FindExtensionHelp(const std::wstring& name, std::wstring& help) override;

private:
    std::map<std::wstring, std::wstring> m_descriptions; ///< By name.
};

} // namespace Pellux

#endif
