#ifndef APPSCOMMON_RUNHISTORY_H
#define APPSCOMMON_RUNHISTORY_H

#include <string>
#include <vector>

namespace Pellux {

/// How a run began, as far as its command line tells.
struct RunBeginning
{
    std::wstring folder; ///< The current one, absolute; empty when there was none.
    int width = 0;       ///< Of the view, pixels.
    int height = 0;
    bool isZUp = false;
    bool useConfiguration = true;
    std::wstring configurationFile; ///< Empty for none.
    bool runStartupScripts = true;
    bool keepsJournal = true;
};

/// What a run has done so far, as the command line that does it again: it goes into pictures.
///
/// @thread Main thread.
class RunHistory
{
public:
    void Begin(const RunBeginning& beginning) { m_beginning = beginning; }

    /// Adds a form that has ended and may have changed something.
    void Add(const std::wstring& form, bool hasFailed);

    /// Notes the form that runs now; empty for none.
    void SetRunning(const std::wstring& form) { m_running = form; }

    /// @param width, height  Of the view now.
    /// @param camera         The form that moves the camera to where it is now; runs before the
    ///                       last one where the view has another size than at the start.
    /// @return a command line for a shell that does the same, what runs now as the last; UTF-8.
    ///         Empty when it would be longer than 100,000 bytes.
    std::string CommandLine(int width, int height, const std::wstring& camera) const;

private:
    RunBeginning m_beginning;
    std::vector<std::wstring> m_forms;
    std::wstring m_running;
};

} // namespace Pellux

#endif
