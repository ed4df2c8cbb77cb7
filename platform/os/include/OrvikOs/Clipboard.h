#ifndef ORVIKOS_CLIPBOARD_H
#define ORVIKOS_CLIPBOARD_H

#include "OrvikOs/Export.h"

#include <string>

namespace OrvikOs {

/// The clipboard as the host supplies it. On Windows the system's clipboard is in place from the
/// start; on Linux there is none until a host sets one.
///
/// @thread  Main thread.
class ORVIKOS_API IClipboard
{
public:
    virtual ~IClipboard();

    /// Replaces the clipboard's content by @p text.
    ///
    /// @return false when the clipboard could not be had; its content is then as before.
    virtual bool SetText(const std::wstring& text) = 0;

    /// Gives the clipboard's text; empty when it holds none.
    virtual std::wstring GetText() = 0;
};

/// Sets the clipboard that the functions below use.
///
/// @param clipboard  Not owned; must live until it is replaced. Null puts the system's own back.
/// @return the one set before, null for the system's own.
/// @thread  Main thread.
ORVIKOS_API IClipboard* SetClipboard(IClipboard* clipboard);

/// Copies @p text to the clipboard.
///
/// @return false when there is no clipboard or it refuses.
/// @thread  Main thread.
ORVIKOS_API bool CopyToClipboard(const std::wstring& text);

/// Gives the clipboard's text; empty when there is no clipboard or it holds none.
///
/// @thread  Main thread.
ORVIKOS_API std::wstring PasteFromClipboard();

} // namespace OrvikOs

#endif
