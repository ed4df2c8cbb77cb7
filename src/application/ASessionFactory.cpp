#include "OrvikCore/ASessionFactory.h"

#include "SessionTexts.h"

#include "OrvikCore/IApplication.h"
#include "OrvikCore/SessionMgr.h"

#include <stdexcept>

namespace OrvikCore {

ASession* ASessionFactory::CreateSession()
{
    IApplication* const application = SessionMgr::Instance().GetApplication();
    if (application == nullptr) {
        throw std::runtime_error(kNullApplication);
    }
    return application->NewSession();
}

int ASessionFactory::GetNextId()
{
    static int lastId = 0;
    return ++lastId;
}

} // namespace OrvikCore
