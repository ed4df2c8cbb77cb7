#ifndef ORVIKCORE_IAUTOCOMPLETE_H
#define ORVIKCORE_IAUTOCOMPLETE_H

#include "OrvikCore/Export.h"

#include <string>
#include <vector>

namespace OrvikCore {

/// The store of descriptions of script extensions, from which the console completes commands.
///
/// The host implements and owns it; SessionMgr keeps its address. Nothing deletes one through this
/// class, so its table holds four operations and no destructor.
class ORVIKCORE_API IAutoComplete
{
public:
    // Virtual operations in slot order; append only.

    /// Takes the descriptions of several extensions.
    ///
    /// @param names         Names of the extensions.
    /// @param descriptions  One description per name.
    /// @param group         Name of the group that they belong to.
    /// @return true when they were taken.
    virtual bool AddExtensionInfo(std::vector<std::wstring> names,
                                  std::vector<std::wstring> descriptions,
                                  const std::wstring& group) = 0;

    /// Takes the names that belong to one object of the script language.
    ///
    /// @param names   Names of the object's members.
    /// @param object  Name of the object.
    /// @return true when they were taken.
    virtual bool AddExtensionObject(std::vector<std::wstring> names,
                                    const std::wstring& object) = 0;

    /// Looks for the names that begin with @p prefix.
    ///
    /// @param found  Receives them.
    /// @return true when there is at least one.
    virtual bool FindExtensions(const std::wstring& prefix, std::vector<std::wstring>& found) = 0;

    /// Looks for the description of @p name.
    ///
    /// @param help  Receives it; unchanged on false.
    /// @return true when there is one.
    virtual bool FindExtensionHelp(const std::wstring& name, std::wstring& help) = 0;

protected:
    ~IAutoComplete() = default;
};

} // namespace OrvikCore

#endif
