#include "OrvikCore/TambServiceSetCollectionPelluxApplication.h"

#include <mutex>

namespace {

std::once_flag sharedInstanceMade;
std::shared_ptr<TambServiceSetCollectionBase> sharedInstance;

} // namespace

TambServiceSetCollectionPelluxApplication::TambServiceSetCollectionPelluxApplication()
{
    RegisterService(&m_applicationCoreServices);
    RegisterService(&m_viewServices);
    RegisterService(&m_documentServices);
}

TambServiceSetCollectionPelluxApplication::~TambServiceSetCollectionPelluxApplication() = default;

std::shared_ptr<TambServiceSetCollectionBase>
TambServiceSetCollectionPelluxApplication::GetApplicationCollection()
{
    GetOrCreateSharedInstance();
    return sharedInstance;
}

TambServiceSetCollectionBase* TambServiceSetCollectionPelluxApplication::GetServiceSetCollection()
{
    return GetApplicationCollection().get();
}

void TambServiceSetCollectionPelluxApplication::GetOrCreateSharedInstance()
{
    std::call_once(sharedInstanceMade, [] {
        // The constructor is not public, so std::make_shared cannot reach it.
        sharedInstance.reset(new TambServiceSetCollectionPelluxApplication);
    });
}
