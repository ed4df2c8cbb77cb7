#ifndef PELLUX_RUNTIME_QTTEXT_H
#define PELLUX_RUNTIME_QTTEXT_H

#include <QString>
#include <string>

namespace Pellux {

/// The text as Qt has it. What is no character (a byte of a file name that is no UTF-8) becomes
/// U+FFFD.
QString ToQt(const std::wstring& text);

/// The text as the core has it.
std::wstring FromQt(const QString& text);

/// The text of a Scheme string literal with its quotation marks.
QString Quoted(const QString& text);

/// Makes a tool tip that shows a text as it is: Qt would take a name with "<b>" for marked-up text.
QString PlainToolTip(const QString& text);

} // namespace Pellux

#endif
