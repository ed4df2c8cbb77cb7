#include "common/Platform.h"

#include <OrvikOs/Clipboard.h>

namespace OrvikOs {

namespace {

IClipboard* g_clipboard = nullptr; ///< Not owned; null means the system's own.

IClipboard* currentClipboard()
{
    return g_clipboard != nullptr ? g_clipboard : SystemClipboard();
}

} // namespace

IClipboard::~IClipboard() = default;

IClipboard* SetClipboard(IClipboard* clipboard)
{
    IClipboard* const previous = g_clipboard;
    g_clipboard = clipboard;
    return previous;
}

bool CopyToClipboard(const std::wstring& text)
{
    IClipboard* const clipboard = currentClipboard();
    return clipboard != nullptr && clipboard->SetText(text);
}

std::wstring PasteFromClipboard()
{
    IClipboard* const clipboard = currentClipboard();
    return clipboard != nullptr ? clipboard->GetText() : std::wstring();
}

} // namespace OrvikOs
