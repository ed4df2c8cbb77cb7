#ifndef ORVIKCORE_IAPPLICATION_H
#define ORVIKCORE_IAPPLICATION_H

#include "OrvikCore/Export.h"
#include "OrvikCore/MessageType.h"

#include <string>

namespace OrvikCore {

class ASession;

/// The host, as the core and the script services see it.
///
/// The host keeps the object in storage of its own (static storage, say) and hands its address to
/// SessionMgr::SetApplication. SessionMgr::Terminate asks for the exit code and then runs the
/// destructor in place, without releasing the storage. Main thread, except where another is named.
class ORVIKCORE_API IApplication
{
public:
    // Virtual operations in slot order; append only.

    /// Run in place by SessionMgr::Terminate.
    virtual ~IApplication();

    /// @return the name of the program, for titles and reports.
    virtual std::wstring GetName() const = 0;

    /// @return the version of the program, such as L"0.1.0".
    virtual std::wstring GetVersion() const = 0;

    /// @return the folder in which the program keeps its journal; empty when it keeps none.
    virtual std::wstring GetStateFolder() const = 0;

    /// Asks the host to end its main loop as soon as nothing runs.
    ///
    /// @param exitCode  What Shutdown() is to return: 0 good, 1 a check or script failed.
    virtual void Quit(int exitCode) = 0;

    /// Asks for the end of the job that runs now, if any. Any thread.
    virtual void CancelRunningJob() = 0;

    /// Shows a text that must not be missed outside the console.
    virtual void ShowNotice(const std::wstring& text, const MessageType& type) = 0;

    /// @return true when nobody sits before the program: a pause asked for by a script is then
    ///         passed over.
    virtual bool IsBatchMode() const = 0;

    /// @return true while a pause is in effect.
    virtual bool IsPaused() const = 0;

    /// Learns of a command that has run; the journal keeps it when it changed something.
    virtual void RecordCommand(const std::wstring& command) = 0;

    /// Begins (@p pause true) or ends a pause of the program.
    virtual void Pause(bool pause) = 0;

    /// Learns that the job which destroys the script engine failed.
    ///
    /// @param details  Text of the failed job, for people.
    virtual void ReportEngineTerminationFailure(const std::wstring& details) = 0;

    /// Ends the application; the last call before the destructor.
    /// @return the exit code of the process.
    virtual int Shutdown() = 0;

    /// @return a new session (transferred out); never null.
    virtual ASession* NewSession() = 0;
};

} // namespace OrvikCore

#endif
