#ifndef ORVIKCORE_TAMBSERVICESETCOLLECTIONPELLUXAPPLICATION_H
#define ORVIKCORE_TAMBSERVICESETCOLLECTIONPELLUXAPPLICATION_H

#include "OrvikCore/Export.h"
#include "OrvikCore/TambApplicationCoreServicesPellux.h"
#include "OrvikCore/TambDocumentServicesPellux.h"
#include "OrvikCore/TambViewServicesPellux.h"

#include <TambCommandsInfra/TambServiceSetCollectionBase.h>

#include <memory>

/// The service sets of the application, through which script commands reach it.
///
/// One instance serves the process; it is made on first use and kept to the end.
///
/// @thread GetApplicationCollection() and GetServiceSetCollection(): any thread.
class ORVIKCORE_API TambServiceSetCollectionPelluxApplication : public TambServiceSetCollectionBase
{
public:
    ~TambServiceSetCollectionPelluxApplication() override;

    /// Returns the shared instance.
    static std::shared_ptr<TambServiceSetCollectionBase> GetApplicationCollection();

    /// Returns the shared instance; not owned.
    static TambServiceSetCollectionBase* GetServiceSetCollection();

protected:
    /// Registers application core, view and document services, in this order.
    TambServiceSetCollectionPelluxApplication();

    /// Makes the shared instance unless there is one.
    static void GetOrCreateSharedInstance();

private:
    TambApplicationCoreServicesPellux m_applicationCoreServices;
    TambViewServicesPellux m_viewServices;
    TambDocumentServicesPellux m_documentServices;
};

#endif
