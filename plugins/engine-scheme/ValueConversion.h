#ifndef ENGINESCHEME_VALUECONVERSION_H
#define ENGINESCHEME_VALUECONVERSION_H

#include <TambCommandsInfra/Value.h>

#include <libguile.h>

namespace OrvikScheme {

/// Makes the Scheme type under which objects of the application travel. Once, in Guile mode.
void DefineObjectType();

/// Turns a Scheme value into an engine-neutral one: booleans, numbers, strings, symbols (as
/// strings), proper lists and vectors (as lists), objects of the application, and the unspecified
/// value (as nil).
///
/// Leaves only by returning or by a C++ exception, never by a Scheme error.
///
/// @throws std::invalid_argument "Commands do not take <what it is>." for anything else.
TambCommandsInfra::Value FromScheme(SCM value);

/// Turns an engine-neutral value into a Scheme one; may leave by a Scheme error when memory ends,
/// and loses nothing then.
SCM ToScheme(const TambCommandsInfra::Value& value);

} // namespace OrvikScheme

#endif
