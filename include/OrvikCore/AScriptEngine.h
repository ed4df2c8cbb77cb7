#ifndef ORVIKCORE_ASCRIPTENGINE_H
#define ORVIKCORE_ASCRIPTENGINE_H

#include "OrvikCore/Export.h"

#include <string>
#include <vector>

namespace OrvikCore {

/// One top-level form of a text, with the place of its first character, both counted from 1.
struct ScriptForm
{
    std::wstring text;
    int line = 1;
    int column = 1;
};

/// A script engine, made by the factory of a script-engine library.
///
/// The shell owns the engine. It is made, initialised, run and destroyed on the worker thread;
/// operations that the main thread may call too are marked, and run beside the others only as far
/// as their comments say. No exception of the interpreter itself crosses these operations: a failed
/// run is a std::exception from Execute.
class ORVIKCORE_API AScriptEngine
{
public:
    /// Called by Initialize with the context that the script plugins of the engine need.
    ///
    /// @param context  Engine-defined, not owned; handed on to ScriptPluginManager::Initialize.
    using InitializeCallback = void (*)(void* context);

    // Virtual operations in slot order; append only.

    /// Worker thread.
    virtual ~AScriptEngine();

    /// Takes a script or a command, to be run by the next Execute.
    ///
    /// @param text    Whole text of the script.
    /// @param source  Name of the file that it came from, for messages; empty for a command.
    /// @return false on a syntax or load failure; the reason is then in GetOutput(). Execute is
    ///         called all the same and must then run nothing and throw the failure.
    /// @thread Worker thread.
    virtual bool LoadScriptText(const std::wstring& text, const std::wstring& source) = 0;

    /// @return the language in lower case, such as L"scheme". Any thread.
    virtual std::wstring GetLanguageName() const = 0;

    /// Prepares the engine and calls @p callback once, when script plugins may bind to it.
    ///
    /// @throws std::exception with a text for people when the engine cannot be used.
    /// @thread Worker thread.
    virtual void Initialize(InitializeCallback callback) = 0;

    /// @return the name of the engine for people, such as L"Guile". Any thread.
    virtual std::wstring GetName() const = 0;

    /// @return the version of the interpreter, such as L"3.0.8". Any thread.
    virtual std::wstring GetVersion() const = 0;

    /// @return the extension of script files, without the point, in lower case. Any thread.
    virtual std::wstring GetScriptExtension() const = 0;

    /// Cuts a text into its top-level forms, so that a host can run one form per job.
    ///
    /// Purely textual: nothing is evaluated and the interpreter is not entered.
    ///
    /// @param text       The text.
    /// @param forms      Receives the forms in order, each with the comments before it dropped. Of
    ///                   a text that ends inside a form or closes more than it opened, the last one
    ///                   is the rest, so that running it reports the place.
    /// @param errorText  Receives "line L, column C: " and the reason when the result is false.
    /// @return false when the last form is such a rest.
    /// @thread Any thread.
    virtual bool SplitForms(const std::wstring& text, std::vector<ScriptForm>& forms,
                            std::wstring& errorText) const = 0;

    /// Says where the next text that LoadScriptText takes without a source comes from, for
    /// messages.
    ///
    /// @param source  Name of a file or a console.
    /// @param line    Of the text's first character, from 1.
    /// @param column  Of the text's first character, from 1.
    /// @thread Any thread; between jobs.
    virtual void SetNextSource(const std::wstring& source, int line, int column) = 0;

    /// Runs what LoadScriptText took.
    ///
    /// @throws std::exception when the script failed; the reason is then in GetOutput().
    /// @thread Worker thread.
    virtual void Execute() = 0;

    /// Asks the run that Execute is in to end with an error soon; nothing when none runs.
    ///
    /// @thread Any thread; returns at once and takes no lock that a run holds.
    virtual void Interrupt() = 0;

    /// @return the text produced by the last run. Any thread; guarded by the engine.
    virtual std::wstring GetOutput() const = 0;

    /// Receives the log of the start-up scripts. Main thread; it only stores the text.
    virtual void SetStartupLog(const std::wstring& log) = 0;

    /// @return the text that SetStartupLog stored last. Any thread; guarded by the engine.
    virtual std::wstring GetStartupLog() const = 0;
};

} // namespace OrvikCore

#endif
