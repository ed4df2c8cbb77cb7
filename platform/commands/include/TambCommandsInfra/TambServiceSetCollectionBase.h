#ifndef TAMBCOMMANDSINFRA_TAMBSERVICESETCOLLECTIONBASE_H
#define TAMBCOMMANDSINFRA_TAMBSERVICESETCOLLECTIONBASE_H

#include "TambCommandsInfra/Export.h"
#include "TambCommandsInfra/ITambServiceSet.h"

#include <vector>

class ITambApplicationCoreServices;
class ITambDocumentServices;
class ITambViewServices;

/// The service sets of an application, found by kind.
///
/// The application derives from it, holds its sets and registers them in its constructor; script
/// command libraries only look them up.
///
/// @thread  Registration on one thread before the collection is shared; look-up on any thread.
class TAMBCOMMANDSINFRA_API TambServiceSetCollectionBase
{
public:
    virtual ~TambServiceSetCollectionBase();

    TambServiceSetCollectionBase(const TambServiceSetCollectionBase&) = delete;
    TambServiceSetCollectionBase& operator=(const TambServiceSetCollectionBase&) = delete;

    /// Gives the set of the kind @p kind, or null when none is registered. Not owned by the caller;
    /// valid as long as the collection.
    ITambServiceSet* GetServiceSet(TambServiceKind kind) const;

    /// Gives the application-core services, or null. Not owned by the caller; valid as long as the
    /// collection.
    ITambApplicationCoreServices* GetApplicationCoreServices() const;

    /// Gives the document services, or null. Not owned by the caller; valid as long as the
    /// collection.
    ITambDocumentServices* GetDocumentServices() const;

    /// Gives the view services, or null. Not owned by the caller; valid as long as the collection.
    ITambViewServices* GetViewServices() const;

    /// Gives all sets in the order of their registration. None is null, none is owned by the
    /// caller.
    const std::vector<ITambServiceSet*>& GetServiceSets() const;

protected:
    TambServiceSetCollectionBase();

    /// Adds @p service.
    ///
    /// @param service  Not owned; must live as long as the collection.
    /// @throws std::invalid_argument "null service set!" for null.
    /// @throws std::invalid_argument "A service set of this kind is registered already." for a
    /// second one.
    void RegisterService(ITambServiceSet* service);

private:
    std::vector<ITambServiceSet*>
        m_services; ///< Not owned; in the order of registration, none null.
};

#endif
