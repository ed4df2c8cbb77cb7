#ifndef ORVIKCORE_IOUTPUTLISTENER_H
#define ORVIKCORE_IOUTPUTLISTENER_H

#include "OrvikCore/Export.h"
#include "OrvikCore/MessageType.h"

#include <string>

namespace OrvikCore {

/// Receives the text output of a session; registered with ASession::RegisterOutputCb.
///
/// The host's console implements it. Called on the main thread and, for the output of scripts, on
/// the worker thread: an implementation posts what it gets and never waits for the main thread.
class ORVIKCORE_API IOutputListener
{
public:
    // Virtual operations in slot order; append only.

    /// Shows @p text, which is never empty. It may end in a line end; where it does not, the
    /// listener ends the line.
    virtual void PrintMessage(const std::wstring& text, const MessageType& type) = 0;

    /// Forgets everything shown so far.
    virtual void ClearOutput() = 0;

    /// Shows a tool tip beside the pointer; does nothing by default.
    virtual void ShowToolTip(const std::wstring& text);

    virtual ~IOutputListener();
};

} // namespace OrvikCore

#endif
