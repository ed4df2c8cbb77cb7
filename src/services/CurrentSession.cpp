#include "CurrentSession.h"

#include "OrvikCore/ASession.h"
#include "OrvikCore/Dbg.h"
#include "OrvikCore/SessionMgr.h"

#include <ostream>
#include <stdexcept>

namespace OrvikCore {

ASession* FindCurrentSession()
{
    try {
        return &SessionMgr::Instance().CurrentSession();
    } catch (const std::runtime_error& error) {
        // A service without a session does nothing; no session is what the manager reports so.
        dbg << "-- No session for a script service: " << error.what() << std::endl;
        return nullptr;
    }
}

TambVizCore::IView3D* FindCurrentView()
{
    const ASession* const session = FindCurrentSession();
    return session != nullptr ? session->View3D() : nullptr;
}

} // namespace OrvikCore
