#ifndef ORVIKCORE_IJOBSTATUSOBSERVER_H
#define ORVIKCORE_IJOBSTATUSOBSERVER_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

class JobTicket;

/// Is told about finished and refused jobs; registered with
/// JobDispatcher::RegisterJobStatusObserver.
class ORVIKCORE_API IJobStatusObserver
{
public:
    // Virtual operations in slot order; append only.

    /// Receives the ticket of a job that this observer asked for, or of any job that failed.
    ///
    /// An exception that leaves the operation is traced to the debugger output and goes no further.
    ///
    /// @param ticket  the dispatcher's own ticket; not owned, valid during the call only.
    /// @thread Worker thread for finished jobs, the submitting thread for refused ones.
    virtual void NotifyJobStatus(JobTicket* ticket) = 0;

    virtual ~IJobStatusObserver();
};

} // namespace OrvikCore

#endif
