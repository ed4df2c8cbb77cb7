#ifndef ORVIKOS_FPMASKED_H
#define ORVIKOS_FPMASKED_H

#include "OrvikOs/Export.h"
#include "OrvikOs/FpControl.h"

namespace OrvikOs {

/// While alive, no floating-point error traps on the calling thread; afterwards everything is as
/// before.
///
/// For code that works on the contents of files: infinities, NaNs and denormals are data there. The
/// errors met meanwhile are forgotten at the end.
///
/// @thread  The thread that created it.
class ORVIKOS_API FpMasked
{
public:
    FpMasked() noexcept;
    ~FpMasked();

    FpMasked(const FpMasked&) = delete;
    FpMasked& operator=(const FpMasked&) = delete;

private:
    FpState m_previous; ///< Put back by the destructor.
};

} // namespace OrvikOs

#endif
