#include "runtime/Guarded.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Dbg.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/Utils.h>

#include <string>

namespace Pellux {

void ReportHandlerError(const std::exception* error) noexcept
{
    try {
        const std::string text = error == nullptr ? "An unknown error happened." : error->what();
        OrvikCore::dbg << "-- window: " << text << std::endl;
        OrvikCore::SessionMgr::Instance().CurrentSession().PrintMessage(
            TambVizCore::Utils::StringToWstring(text), OrvikCore::MessageType::Error);
    } catch (...) {
        // There is nobody left to tell.
        return;
    }
}

} // namespace Pellux
