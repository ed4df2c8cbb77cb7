#include "common/Platform.h"

#include <OrvikOs/Clipboard.h>

#include <windows.h>

#include <cstring>

namespace OrvikOs {

namespace {

/// Holds the system's clipboard open.
class OpenClipboardScope
{
public:
    OpenClipboardScope() : m_open(OpenClipboard(nullptr) != 0) {}
    ~OpenClipboardScope()
    {
        if (m_open) {
            CloseClipboard();
        }
    }
    OpenClipboardScope(const OpenClipboardScope&) = delete;
    OpenClipboardScope& operator=(const OpenClipboardScope&) = delete;

    bool IsOpen() const { return m_open; }

private:
    bool m_open;
};

/// Copies @p text into memory of the kind that the clipboard takes; null when there is none.
HGLOBAL toClipboardMemory(const std::wstring& text)
{
    const std::size_t bytes = (text.size() + 1) * sizeof(wchar_t);
    HGLOBAL const memory = GlobalAlloc(GMEM_MOVEABLE, bytes);
    if (memory == nullptr) {
        return nullptr;
    }
    if (void* const target = GlobalLock(memory)) {
        std::memcpy(target, text.c_str(), bytes);
        GlobalUnlock(memory);
        return memory;
    }
    GlobalFree(memory);
    return nullptr;
}

class WindowsClipboard : public IClipboard
{
public:
    bool SetText(const std::wstring& text) override
    {
        HGLOBAL const memory = toClipboardMemory(text);
        if (memory == nullptr) {
            return false;
        }
        const OpenClipboardScope clipboard;
        if (clipboard.IsOpen() && EmptyClipboard() != 0 &&
            SetClipboardData(CF_UNICODETEXT, memory) != nullptr) {
            return true; // The system owns the memory now.
        }
        GlobalFree(memory);
        return false;
    }

    std::wstring GetText() override
    {
        std::wstring text;
        const OpenClipboardScope clipboard;
        if (!clipboard.IsOpen()) {
            return text;
        }
        HANDLE const memory = GetClipboardData(CF_UNICODETEXT);
        if (memory == nullptr) {
            return text;
        }
        if (const void* const source = GlobalLock(memory)) {
            text = static_cast<const wchar_t*>(source);
            GlobalUnlock(memory);
        }
        return text;
    }
};

} // namespace

IClipboard* SystemClipboard()
{
    static WindowsClipboard clipboard;
    return &clipboard;
}

} // namespace OrvikOs
