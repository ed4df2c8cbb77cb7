#ifndef APPSCOMMON_HOSTRUNTIME_H
#define APPSCOMMON_HOSTRUNTIME_H

#include "CompletionStore.h"
#include "ConfigurationFile.h"
#include "HotkeyTable.h"
#include "InputQueue.h"
#include "Navigation.h"
#include "PelluxApplication.h"
#include "PostedOutput.h"
#include "RunHistory.h"

#include <OrvikCore/AMenuTemplate.h>
#include <TambCommandsInfra/CallGate.h>

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace OrvikCore {
class IJobStatusObserver;
class Shell;
} // namespace OrvikCore

namespace Pellux {

class HostTree;
class Journal;

/// What a host wants of its start.
struct StartOptions
{
    HostKind kind;
    bool useConfiguration = true;   ///< Read the configuration files of system and user.
    std::wstring configurationFile; ///< A further file; empty for none.
    bool runStartupScripts = true;
    int width = 1280;                 ///< Of the view, pixels.
    int height = 960;                 ///< Of the view, pixels.
    std::string cameraName;           ///< "CameraYUp" or "CameraZUp"; empty keeps the view's own.
    bool animate = false;             ///< Whether the camera moves in steps.
    bool withTree = false;            ///< Gives the session a HostTree.
    bool withJournal = false;         ///< Keeps a journal of the run.
    PostedOutput::Show output;        ///< Shows what the session prints. Main thread.
    PostedOutput::Show pluginMessage; ///< Shows what plugins report while they load.
    OrvikCore::IJobStatusObserver* jobObserver = nullptr; ///< Told of failed jobs; not owned.
    /// Called once the session, its view and tree are there and before the first job runs: a host
    /// with windows makes them here. May be empty.
    std::function<void()> sessionReady;
};

/// Why a host cannot start.
enum class StartResult
{
    Good,
    BadConfiguration, ///< A configuration file cannot be used.
    NoView,           ///< The view plugin gives no view.
    NoEngine,         ///< The script engine cannot be loaded or initialised.
};

/// Starts and stops everything that a host is made of, in the one right order. One at a time.
/// @thread Main thread.
class HostRuntime
{
public:
    HostRuntime();

    /// Stops what was started.
    ~HostRuntime();

    HostRuntime(const HostRuntime&) = delete;
    HostRuntime& operator=(const HostRuntime&) = delete;

    /// Starts: main thread's number, gate, configuration, application, plugins, session, shell,
    /// engine, start-up scripts.
    ///
    /// @param errorText  Receives the reason unless the result is Good.
    StartResult Start(const StartOptions& options, std::wstring& errorText);

    /// Stops in the reverse order; only when nothing runs. May be called more than once.
    /// @return the exit code of the application.
    int Stop();

    /// @return the shell; not owned, valid until Stop().
    OrvikCore::Shell& GetShell();

    /// @return the model tree; null without StartOptions::withTree. Not owned, valid until Stop().
    HostTree* GetTree();

    /// Reads the shortcuts of the configuration again, with those of a further file over them.
    ///
    /// @param file       May be missing.
    /// @param errorText  Receives lines "<path>:<line>:<column>: <reason>" on false; the shortcuts
    ///                   are as before then.
    bool ReadHotkeysAgain(const std::wstring& file, std::wstring& errorText);

    /// Call before each form: writes what the mouse has done before it into the journal.
    void BeginForm(const std::wstring& form);

    /// Call when forms have ended, also by being refused.
    void EndForm();

    /// Writes what the mouse has done into the journal; call when a button was let go.
    void EndGesture();

    /// Ends the journal; what comes after is not in it. Nothing without one.
    void EndJournal();

    /// @return what scripts have asked the host to do with mouse and keys; play it after each job.
    InputQueue& GetInput() { return m_input; }

    /// @return the keyboard shortcuts of the configuration.
    const HotkeyTable& GetHotkeys() const { return m_hotkeys; }

    /// Shows what was printed so far. Call before a prompt, a result or the end.
    void DrainOutput();

private:
    bool loadConfiguration(const StartOptions& options, std::wstring& errorText);
    void createApplication(const StartOptions& options);
    void loadPlugins();
    void ensureTree();
    bool createSession(const StartOptions& options, std::wstring& errorText);
    void startHistory(const StartOptions& options);
    void startJournal(const StartOptions& options);
    bool startEngine(const StartOptions& options, std::wstring& errorText);
    /// At most five seconds.
    void waitForTheWorker();

    std::optional<TambCommandsInfra::CallGate> m_gate;
    ConfigurationFile m_configuration;
    CompletionStore m_completion;
    OrvikCore::AMenuTemplate m_menuTemplate;
    HotkeyTable m_hotkeys;
    Navigation m_navigation;
    InputQueue m_input;
    RunHistory m_history;
    std::unique_ptr<PostedOutput> m_output;
    /// The session manager takes it out of the session before it deletes that.
    std::unique_ptr<HostTree> m_tree;
    std::unique_ptr<Journal> m_journal;
    OrvikCore::IJobStatusObserver* m_jobObserver = nullptr; ///< Not owned.
    bool m_started = false;
    bool m_dispatcherUsed = false; ///< Its first use starts the worker.
    int m_exitCode = 0;
};

} // namespace Pellux

#endif
