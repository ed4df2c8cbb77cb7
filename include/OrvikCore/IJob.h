#ifndef ORVIKCORE_IJOB_H
#define ORVIKCORE_IJOB_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// A piece of work that the JobDispatcher runs on its worker thread.
///
/// Whoever submits a job keeps it alive until the worker has finished it; see
/// JobDispatcher::ExecuteParked for jobs whose submitter may stop waiting earlier.
class ORVIKCORE_API IJob
{
public:
    // Virtual operations in slot order; append only.

    /// Does the work.
    ///
    /// May throw: the dispatcher turns an exception, and a machine fault, into a failed ticket with
    /// the exception's text as its message.
    ///
    /// @return true for JOB_COMPLETED, false for JOB_FAILED.
    /// @thread Worker thread.
    virtual bool Execute() = 0;

    virtual ~IJob();
};

} // namespace OrvikCore

#endif
