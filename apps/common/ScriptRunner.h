#ifndef APPSCOMMON_SCRIPTRUNNER_H
#define APPSCOMMON_SCRIPTRUNNER_H

#include <functional>
#include <string>

namespace OrvikCore {
class Shell;
}

namespace Pellux {

/// Reads a script: a file, something that is read only once, such as a pipe, or standard input
/// where the name is "-".
///
/// @return false when it cannot be read.
bool ReadScript(const std::wstring& file, std::wstring& text);

/// Runs scripts form by form: each top-level form is a job of its own, so that a host can show,
/// cancel and act between them. Main thread.
class ScriptRunner
{
public:
    /// Called with each form before it runs; false stops the script there.
    using BeforeForm = std::function<bool(const std::wstring& form)>;

    /// Called when a form has run without an error; false stops the script there, as failed.
    using AfterForm = std::function<bool()>;

    /// @param shell       Not owned; outlives the runner and has an engine.
    /// @param beforeForm  May be empty.
    /// @param afterForm   May be empty.
    ScriptRunner(OrvikCore::Shell& shell, BeforeForm beforeForm, AfterForm afterForm = {});

    /// Runs the forms of a text until one fails; the events that one has asked for are forgotten.
    ///
    /// @param source  Named in error messages with the line and column of the form.
    /// @return true when every form ran without an error.
    bool RunText(const std::wstring& text, const std::wstring& source);

    /// Runs the forms of what ReadScript reads.
    ///
    /// @param errorText  Receives "Failed to read script file : <file>" when it cannot be read;
    ///                   errors of the script are printed in the session instead.
    bool RunFile(const std::wstring& file, std::wstring& errorText);

private:
    OrvikCore::Shell& m_shell;
    BeforeForm m_beforeForm;
    AfterForm m_afterForm;
};

} // namespace Pellux

#endif
