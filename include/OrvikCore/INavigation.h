#ifndef ORVIKCORE_INAVIGATION_H
#define ORVIKCORE_INAVIGATION_H

#include "OrvikCore/Export.h"

#include <string>
#include <utility>
#include <vector>

namespace OrvikCore {

/// What the mouse does in the views of a host: one of several tables, each with a name.
///
/// @thread  Main thread; the worker comes through the call gate.
class ORVIKCORE_API INavigation
{
public:
    // Virtual operations in slot order; append only.

    virtual ~INavigation();

    /// @return the names of the tables, the one that holds at the start of a fresh program first.
    virtual std::vector<std::wstring> ListNavigations() const = 0;

    /// @return the name of the table in use.
    virtual std::wstring GetNavigation() const = 0;

    /// Uses another table from the next event on.
    /// @return false, with nothing changed, for an unknown name.
    virtual bool SetNavigation(const std::wstring& name) = 0;

    /// Lays rows over a preset and uses that from the next event on, under the name "custom". Over
    /// the default, which is no table, they stand alone. Without rows there is no "custom" any more
    /// and the preset is used.
    ///
    /// @param rows       Buttons and modifier keys as MouseGesture reads them, and the action.
    /// @param preset     "default" or one of the presets.
    /// @param errorText  Receives what is wrong with the first bad row or the preset on false;
    ///                   nothing is changed then.
    virtual bool SetRows(const std::vector<std::pair<std::wstring, std::wstring>>& rows,
                         const std::wstring& preset, std::wstring& errorText) = 0;
};

} // namespace OrvikCore

#endif
