#ifndef ORVIKCORE_ASESSIONFACTORY_H
#define ORVIKCORE_ASESSIONFACTORY_H

#include "OrvikCore/Export.h"

#include <type_traits>

namespace OrvikCore {

class ASession;

// The table holds one operation and no destructor.
#ifdef __GNUC__
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"
#endif

/// Makes the sessions of SessionMgr; the default one asks the application for them.
///
/// SessionMgr owns its factory and deletes it through this class, which has no virtual destructor:
/// a derived factory carries no data and nothing that needs its destructor. Main thread.
class ORVIKCORE_API ASessionFactory
{
public:
    // Virtual operations in slot order; append only.

    /// Makes a session: by default that of IApplication::NewSession.
    ///
    /// @return the new session (transferred out); never null.
    /// @throws std::runtime_error "null IApplication!" when no application is set.
    virtual ASession* CreateSession();

    /// @return the next identifier of a session: 1, 2, 3, ...; none comes twice in a process.
    static int GetNextId();
};

#ifdef __GNUC__
#pragma GCC diagnostic pop
#endif

static_assert(!std::has_virtual_destructor_v<ASessionFactory>);

} // namespace OrvikCore

#endif
