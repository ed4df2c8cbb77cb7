#ifndef ENGINESCHEME_SCHEMEPRIMITIVES_H
#define ENGINESCHEME_SCHEMEPRIMITIVES_H

#include <OrvikOs/FpControl.h>

#include <string>
#include <vector>

namespace OrvikScheme {

/// What the primitives need of the engine; one per process, as Guile itself is.
struct PrimitiveState
{
    /// Names of the bound commands; the index in it is what a bound procedure hands back. Only
    /// grows: a procedure that a script has kept means the same command for ever.
    std::vector<std::string> commands;
    /// Floating-point traps of the job, put back while a native command computes.
    OrvikOs::FpState jobTraps;
};

/// The state that the primitives work on. Worker thread.
PrimitiveState& Primitives();

/// Defines the primitives in the current Guile module:
/// (%invoke index arguments), (%cancel-pending?), (%help name-or-#f), (%apropos text),
/// (%suggest name). In Guile mode.
///
/// C++ exceptions and machine faults below a primitive become the Scheme error 'pellux-error with
/// the message as its one argument; every C++ object is gone before Scheme is left by it.
void DefinePrimitives();

} // namespace OrvikScheme

#endif
