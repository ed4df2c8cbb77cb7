#ifndef ORVIKOS_FAULTSASEXCEPTIONS_H
#define ORVIKOS_FAULTSASEXCEPTIONS_H

#include "OrvikOs/FaultScope.h"

namespace OrvikOs {

/// Makes machine faults of the calling thread into MachineFault, which has a text of one line,
/// while it lives; what translated them before is put back afterwards.
///
/// @thread  The thread that created it.
class FaultsAsExceptions
{
public:
    FaultsAsExceptions() : m_previous(SetFaultTranslator(&throwFault)) {}
    ~FaultsAsExceptions() { SetFaultTranslator(m_previous); }
    FaultsAsExceptions(const FaultsAsExceptions&) = delete;
    FaultsAsExceptions& operator=(const FaultsAsExceptions&) = delete;

private:
    static void throwFault(const EXCEPTION_RECORD& record) { throw MachineFault(record); }

    FaultTranslator m_previous;
    FaultScope m_scope;
};

} // namespace OrvikOs

#endif
