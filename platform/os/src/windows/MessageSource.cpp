#include "common/Platform.h"

#include <OrvikOs/MsgWait.h>

#include <windows.h>

namespace OrvikOs {

namespace {

static_assert(kInputMouseMove == QS_MOUSEMOVE && kInputMouseButton == QS_MOUSEBUTTON &&
              kInputTimer == QS_TIMER && kInputPaint == QS_PAINT && kMessageQuit == WM_QUIT);
static_assert(kWaitSignalled == WAIT_OBJECT_0 && kWaitTimeout == WAIT_TIMEOUT &&
              kWaitAbandoned == WAIT_ABANDONED && kWaitFailed == WAIT_FAILED);

MSG toSystem(const Message& message)
{
    MSG systemMessage = {};
    systemMessage.hwnd = static_cast<HWND>(message.window);
    systemMessage.message = message.id;
    systemMessage.wParam = static_cast<WPARAM>(message.wParam);
    systemMessage.lParam = static_cast<LPARAM>(message.lParam);
    return systemMessage;
}

/// The queue of the calling thread.
class ThreadQueue : public IMessageSource
{
public:
    /// The system's own wait looks at the queue; asking here too would make input count as seen.
    bool HasInput(unsigned) override { return false; }

    bool Peek(Message& message, bool remove) override
    {
        MSG systemMessage = {};
        if (PeekMessageW(&systemMessage, nullptr, 0, 0, remove ? PM_REMOVE : PM_NOREMOVE) == 0) {
            return false;
        }
        message.id = systemMessage.message;
        message.window = systemMessage.hwnd;
        message.wParam = systemMessage.wParam;
        message.lParam = systemMessage.lParam;
        return true;
    }

    void Translate(const Message& message) override
    {
        const MSG systemMessage = toSystem(message);
        TranslateMessage(&systemMessage);
    }

    void Dispatch(const Message& message) override
    {
        const MSG systemMessage = toSystem(message);
        DispatchMessageW(&systemMessage);
    }
};

} // namespace

IMessageSource* SystemMessageSource()
{
    static ThreadQueue queue;
    return &queue;
}

HandleWait WaitForHandles(const std::vector<std::intptr_t>& handles, int timeoutMs,
                          unsigned inputMask, std::size_t& index)
{
    if (handles.size() >= MAXIMUM_WAIT_OBJECTS) {
        return HandleWait::Failed;
    }
    HANDLE systemHandles[MAXIMUM_WAIT_OBJECTS] = {};
    for (std::size_t i = 0; i < handles.size(); ++i) {
        systemHandles[i] = reinterpret_cast<HANDLE>(handles[i]);
    }
    const auto count = static_cast<DWORD>(handles.size());
    const DWORD timeout = timeoutMs < 0 ? INFINITE : static_cast<DWORD>(timeoutMs);
    // A wait for messages with an empty mask is the one wait that also takes no handles at all.
    const DWORD result = MsgWaitForMultipleObjects(count, systemHandles, FALSE, timeout, inputMask);
    if (result == WAIT_TIMEOUT) {
        return HandleWait::Timeout;
    }
    if (result == WAIT_OBJECT_0 + count) {
        return HandleWait::Input;
    }
    if (result >= WAIT_OBJECT_0 + count) {
        return HandleWait::Failed;
    }
    index = result - WAIT_OBJECT_0;
    SetEvent(systemHandles[index]); // The wait has taken the event; the caller decides about it.
    return HandleWait::Signalled;
}

} // namespace OrvikOs
