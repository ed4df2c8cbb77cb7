#ifndef ENGINESCHEME_VALUECONVERSION_H
#define ENGINESCHEME_VALUECONVERSION_H

#include <TambCommandsInfra/Value.h>

#include <libguile.h>

#include <string>
#include <string_view>

namespace OrvikScheme {

/// Makes the Scheme type under which objects of the application travel. Once, in Guile mode.
void DefineObjectType();

/// Turns a text of the application into UTF-8 for the interpreter, and back.
///
/// The application keeps bytes that are no UTF-8 as U+DC80 to U+DCFF, which no Scheme character can
/// be; in the interpreter they travel as U+10DC80 to U+10DCFF, in a private plane.
std::string TextForScheme(std::wstring_view text);
std::wstring TextFromScheme(std::string_view utf8);

/// Turns a Scheme value into an engine-neutral one: booleans, numbers, strings, symbols (as
/// strings), proper lists and vectors (as lists), objects of the application, and the unspecified
/// value (as nil).
///
/// Leaves only by returning or by a C++ exception, never by a Scheme error.
///
/// @throws std::invalid_argument "Commands do not take <what it is>." for anything else.
TambCommandsInfra::Value FromScheme(SCM value);

/// Turns an engine-neutral value into a Scheme one; may leave by a Scheme error when memory ends.
SCM ToScheme(const TambCommandsInfra::Value& value);

} // namespace OrvikScheme

#endif
