#ifndef ORVIKCORE_CURRENTSESSION_H
#define ORVIKCORE_CURRENTSESSION_H

namespace TambVizCore {
class IView3D;
} // namespace TambVizCore

namespace OrvikCore {

class ASession;

/// Finds the current session, which the session manager makes on first use.
///
/// @return not owned; null where none can be made, and the debug output then says why.
ASession* FindCurrentSession();

/// Finds the 3D view of the current session.
///
/// @return not owned; null without a session or without a view.
TambVizCore::IView3D* FindCurrentView();

} // namespace OrvikCore

#endif
