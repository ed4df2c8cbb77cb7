#ifndef ENGINESCHEME_SCHEMETEXT_H
#define ENGINESCHEME_SCHEMETEXT_H

#include <string>
#include <string_view>

namespace OrvikScheme {

/// Turns a text of the application into UTF-8 for the interpreter, and back.
///
/// The application keeps bytes that are no UTF-8 as U+DC80 to U+DCFF, which no Scheme character can
/// be; in the interpreter they travel as U+10DC80 to U+10DCFF, in a private plane.
///
/// @thread Any thread; Scheme is not entered.
std::string TextForScheme(std::wstring_view text);
std::wstring TextFromScheme(std::string_view utf8);

} // namespace OrvikScheme

#endif
