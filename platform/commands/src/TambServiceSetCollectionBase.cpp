#include "TambCommandsInfra/TambServiceSetCollectionBase.h"

#include "TambCommandsInfra/ITambApplicationCoreServices.h"
#include "TambCommandsInfra/ITambDocumentServices.h"
#include "TambCommandsInfra/ITambViewServices.h"

#include <stdexcept>

TambServiceSetCollectionBase::TambServiceSetCollectionBase() = default;
TambServiceSetCollectionBase::~TambServiceSetCollectionBase() = default;

ITambServiceSet* TambServiceSetCollectionBase::GetServiceSet(TambServiceKind kind) const
{
    for (ITambServiceSet* service : m_services) {
        if (service->GetServiceKind() == kind) {
            return service;
        }
    }
    return nullptr;
}

// The kind is fixed by the interface (its constructor is the only one to give it), so that these
// casts cannot meet another class.
ITambApplicationCoreServices* TambServiceSetCollectionBase::GetApplicationCoreServices() const
{
    return static_cast<ITambApplicationCoreServices*>(
        GetServiceSet(TambServiceKind::ApplicationCore));
}

ITambDocumentServices* TambServiceSetCollectionBase::GetDocumentServices() const
{
    return static_cast<ITambDocumentServices*>(GetServiceSet(TambServiceKind::Document));
}

ITambViewServices* TambServiceSetCollectionBase::GetViewServices() const
{
    return static_cast<ITambViewServices*>(GetServiceSet(TambServiceKind::View));
}

const std::vector<ITambServiceSet*>& TambServiceSetCollectionBase::GetServiceSets() const
{
    return m_services;
}

void TambServiceSetCollectionBase::RegisterService(ITambServiceSet* service)
{
    if (!service) {
        throw std::invalid_argument("null service set!");
    }
    if (GetServiceSet(service->GetServiceKind())) {
        throw std::invalid_argument("A service set of this kind is registered already.");
    }
    m_services.push_back(service);
}
