#ifndef ORVIKCORE_STOPWATCH_H
#define ORVIKCORE_STOPWATCH_H

#include "OrvikCore/Export.h"

namespace OrvikCore {

/// Measures the wall time of a scope and reports it to the debugger output at the scope's end:
/// "<label> - <seconds, three decimals>(s)" and a line end, cut to 511 characters.
class ORVIKCORE_API StopWatch
{
public:
    /// @param label  names the scope in the report; not owned, not copied, outlives the stop watch.
    explicit StopWatch(const char* label);
    ~StopWatch();

    StopWatch(const StopWatch&) = delete;
    StopWatch& operator=(const StopWatch&) = delete;

private:
    long long m_startMs; ///< OrvikOs::Clock at construction, milliseconds.
    const char* m_label; ///< Not owned.
};

} // namespace OrvikCore

#endif
