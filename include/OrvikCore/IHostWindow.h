#ifndef ORVIKCORE_IHOSTWINDOW_H
#define ORVIKCORE_IHOSTWINDOW_H

#include "OrvikCore/Export.h"

#include <string>
#include <vector>

namespace OrvikCore {

/// What scripts may ask of a window. Main thread.
class ORVIKCORE_API IHostWindow
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IHostWindow();

    /// @return the names of what the window can show beside the view, in a fixed order.
    virtual std::vector<std::wstring> ListPanels() const = 0;

    /// @return true while a panel is shown; false also for a name that no panel has.
    virtual bool IsPanelShown(const std::wstring& name) const = 0;

    /// Shows a panel and gives it the keyboard, or hides it.
    /// @return false when no panel has the name.
    virtual bool ShowPanel(const std::wstring& name, bool show) = 0;

    /// Puts a picture of the view into the clipboard.
    ///
    /// @param width, height  Pixels; 0 for those of the view.
    /// @param errorText      Receives the reason on false; may be null.
    virtual bool CopyImage(int width, int height, std::wstring* errorText) = 0;

    /// @return whether what is loaded is read again when its files change.
    virtual bool IsWatching() const = 0;

    /// Chooses whether what is loaded is read again when its files change.
    virtual void SetWatching(bool watch) = 0;

    /// Puts panels where they were at the very first start.
    virtual void ResetLayout() = 0;
};

/// An application that may have a window; scripts find it by a dynamic_cast of
/// SessionMgr::GetApplication().
class ORVIKCORE_API IHostWindowProvider
{
public:
    // Virtual operations in slot order; append only.

    virtual ~IHostWindowProvider();

    /// @return the window; not owned, null while there is none.
    virtual IHostWindow* GetHostWindow() const = 0;
};

} // namespace OrvikCore

#endif
