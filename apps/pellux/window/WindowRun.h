#ifndef PELLUX_WINDOW_WINDOWRUN_H
#define PELLUX_WINDOW_WINDOWRUN_H

#include "crash/RunningMark.h"
#include "runtime/CommandRunner.h"
#include "runtime/HeldInput.h"
#include "runtime/QtMessageSource.h"
#include "runtime/QtSleeper.h"
#include "view/GraphicsChoice.h"
#include "window/EndRequests.h"
#include "window/ReadableHints.h"

#include <CommandLine.h>
#include <HostRuntime.h>
#include <InterruptHandling.h>

#include <QSocketNotifier>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Pellux {

class Closing;
class MainWindow;

/// What the command line asks of the window.
struct WindowOptions
{
    std::vector<Step> steps;        ///< Done once the window is there.
    std::wstring configurationFile; ///< A further one; empty for none.
    std::string cameraName;         ///< "CameraYUp" or "CameraZUp"; empty for the view's own.
    bool useConfiguration = true;
    bool runStartupScripts = true;
    bool withJournal = true;
    bool verbose = false;
    int width = 0; ///< Of the view, pixels; 0 for what the window has.
    int height = 0;
    GraphicsWish graphics = GraphicsWish::Automatic;
};

/// One run of the program with a window: starts, shows, stops. The application object of Qt exists
/// before it and outlives it. @thread Main thread.
class WindowRun
{
public:
    explicit WindowRun(const WindowOptions& options);

    /// Stops what was started.
    ~WindowRun();

    WindowRun(const WindowRun&) = delete;
    WindowRun& operator=(const WindowRun&) = delete;

    /// Starts everything and shows the window.
    /// @param errorText  Receives the reason unless the result is Good.
    StartResult Start(std::wstring& errorText);

    /// Does what the command line asks for, until something fails; call once the window is shown.
    void RunCommandLine();

    /// Stops; the window is gone afterwards. May be called more than once.
    /// @return the exit code of the program.
    int Stop();

    CommandRunner& Runner() { return m_runner; }
    HostRuntime& Host() { return m_host; }

    /// @return null before Start() and after Stop(). Not owned.
    MainWindow* Window() { return m_window.get(); }

private:
    void makeWindow();
    void markRun();
    void watchWakeSources();
    void serve();
    void endIfAsked();
    void endForSystem();
    [[noreturn]] void endAtOnce();

    WindowOptions m_options;
    ReadableHints m_hints;
    InterruptHandling m_interrupts;
    EndRequests m_endRequests;
    HeldInput m_held;
    QtMessageSource m_source;
    HostRuntime m_host;
    CommandRunner m_runner;
    std::unique_ptr<QtSleeper> m_sleeper; ///< While the worker lives and the window too.
    std::unique_ptr<MainWindow> m_window;
    std::unique_ptr<Closing> m_closing; ///< Goes before the window.
    std::optional<RunningMark> m_mark;
    bool m_isEnding = false; ///< The system has asked for the end.
    std::vector<std::unique_ptr<QSocketNotifier>>
        m_wakes; ///< One a source; see watchWakeSources().
};

} // namespace Pellux

#endif
