#ifndef ORVIKCORE_ISESSIONOBSERVER_H
#define ORVIKCORE_ISESSIONOBSERVER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// What a session asks of its observer.
enum class SessionEvent : int
{
    UpdateDisplay = 2,     ///< Repaint the display now.
    UpdatePreferences = 3, ///< Read the preferences again.
};

/// Receives the events of one session; set with ASession::SetOutputObserver, not owned by it.
class ORVIKCORE_API ISessionObserver
{
public:
    // Virtual operations in slot order; append only.

    /// @param eventCode  A value of SessionEvent: 2 repaint the display, 3 read the preferences.
    /// @thread Main thread.
    virtual void Notify(int eventCode) = 0;

    virtual ~ISessionObserver();
};

} // namespace OrvikCore

#endif
