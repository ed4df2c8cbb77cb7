#ifndef ORVIKCORE_SHELL_H
#define ORVIKCORE_SHELL_H

#include "OrvikCore/Export.h"
#include "OrvikCore/IJobStatusObserver.h"

#include <memory>
#include <string>

namespace OrvikCore {

class AScriptEngine;
class JobTicket;
class ScriptEngineInitJob;
class ScriptEngineLoadJob;
class ScriptEngineTerminateJob;
struct ShellState;

/// The one command interpreter of the application.
///
/// Owns the script engine, which lives on the worker thread: loading, initialising, running and
/// destroying it are jobs. Results and errors reach the current session through NotifyJobStatus;
/// a host does not print what RunScript returns a second time. SessionMgr owns the shell. The
/// current session must exist before the shell does. Main thread, except NotifyJobStatus.
class ORVIKCORE_API Shell : public IJobStatusObserver
{
public:
    /// Registers with the dispatcher and loads the engine of the configuration's section
    /// "ScriptEngine", key "File" (first value), in a synchronous job.
    ///
    /// Nothing is thrown for an engine that cannot be loaded: GetStartupError() has the reason.
    Shell();

    /// Destroys the engine in a last synchronous job; a failure is reported to the application and
    /// written to standard output.
    ~Shell() override;

    Shell(const Shell&) = delete;
    Shell& operator=(const Shell&) = delete;

    /// Prints the outcome of a job in the current session: status 3 as an error, else the message
    /// as ordinary output where there is one; a null ticket as "Invalid JobTicket = NULL".
    ///
    /// @thread Worker thread for finished jobs, the submitting thread for refused ones.
    void NotifyJobStatus(JobTicket* ticket) override;

    /// Initialises the engine in a synchronous job, once. Without an engine the error text becomes
    /// "*** Error : No Script Engine Available".
    void Init();

    /// Runs a command on the worker and waits for it.
    ///
    /// @param output  Receives the engine's output, or the reason of a refusal: the set-up error,
    ///                or "Illegal character in the command at position N" for a typographic
    ///                quotation mark, which is shown to the session with a caret line too.
    /// @return true when the script ran without an error.
    bool RunScript(const std::wstring& command, std::wstring& output);

    /// Runs a script file on the worker and waits for it. Does not initialise the engine.
    ///
    /// @param file    Path of the file; its extension in lower case must be that of the engine.
    /// @param output  Empty on success; else the engine's output or one of "*** Error : No Script
    ///                Engine Available", "Failed to load script, file :<file> does not exist",
    ///                "Failed to load script, no <extension> extension", "Failed to read script
    ///                file : <file>".
    /// @param flag    true when the session is not to print the script's output.
    /// @return true when the script ran without an error.
    bool LoadScript(const std::wstring& file, std::wstring& output, bool flag);

    /// Runs the start-up scripts in sorted order: those of the executable's folder + "startup", or
    /// where that has none "../../startup/Pellux", and the one of AddStartupScript.
    ///
    /// Sets GetIsStartupLoadOK() and GetStartupError() and hands the log to the engine.
    void LoadStartupScripts();

    /// Names one more start-up script; a later call replaces it, an empty text takes it away.
    void AddStartupScript(const std::wstring& file);

    /// @return false after a failed initialisation or a failed start-up script.
    bool GetIsStartupLoadOK() const;

    /// @return the last set-up error; empty when there was none. Any thread.
    std::wstring GetStartupError() const;

    /// @return the engine or null; not owned, destroyed by the destructor of the shell. Any thread.
    AScriptEngine* GetScriptEngine() const;

private:
    friend class ScriptEngineInitJob;
    friend class ScriptEngineLoadJob;
    friend class ScriptEngineTerminateJob;

    /// Run by the three jobs on the worker; they touch only the state, which outlives the shell
    /// when a job does.
    static void loadScriptEngine(ShellState& state);
    static void init(ShellState& state);
    static void terminate(ShellState& state);

    bool runScriptWT(const std::wstring& script, const std::wstring& source, bool flag);
    std::wstring getOutput() const;

    std::shared_ptr<ShellState> m_state; ///< Shared with the jobs that were submitted.
    std::wstring m_startupScript;        ///< Extra start-up script; empty when none.
};

} // namespace OrvikCore

#endif
