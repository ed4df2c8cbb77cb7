#ifndef TAMBCOMMANDSINFRA_ITAMBSERVICESET_H
#define TAMBCOMMANDSINFRA_ITAMBSERVICESET_H

#include "TambCommandsInfra/Export.h"

/// What a service set serves. There is at most one set of a kind in a collection.
enum class TambServiceKind : int
{
    ApplicationCore = 0, ///< ITambApplicationCoreServices.
    Document = 1,        ///< ITambDocumentServices.
    View = 2,            ///< ITambViewServices.
};

/// Base of the service sets through which script commands reach the application.
///
/// Every operation of a service set comes as a pair: a public one, which any thread may call, and a
/// private virtual one of the same name with "Impl" appended, which the application supplies. The
/// public operation carries the call through the call gate to the main thread
/// (TambCommandsInfra::CallGate), so that the private ones are plain code of one thread. On the
/// main thread, and when no gate is installed, the private one runs at once on the calling thread.
/// Exceptions come back to the caller unchanged; once the gate is closed every operation throws
/// std::runtime_error "The application is closing.".
///
/// A service set must outlive the calls made to it, prints still on their way included: close and
/// destroy the gate first.
class TAMBCOMMANDSINFRA_API ITambServiceSet
{
public:
    virtual ~ITambServiceSet();

    ITambServiceSet(const ITambServiceSet&) = delete;
    ITambServiceSet& operator=(const ITambServiceSet&) = delete;

    /// Tells what the set serves.
    ///
    /// @thread  Any thread.
    TambServiceKind GetServiceKind() const;

protected:
    explicit ITambServiceSet(TambServiceKind kind);

private:
    const TambServiceKind m_kind; ///< Fixed by the interface that derives from this one.
};

#endif
