#ifndef ORVIKCORE_APPLICATION_FILEEXTENSION_H
#define ORVIKCORE_APPLICATION_FILEEXTENSION_H

#include <string>

namespace OrvikCore {

/// What gives way to the segment before it when the kind of a file is taken from its name.
enum class NumberedCopies
{
    Kept,           ///< Nothing: "part.stp.2" has the extension "2".
    Skipped,        ///< A number: "part.stp.2" has the extension "STP".
    SkippedOrEmpty, ///< A number or an empty extension: also "part.stp." has "STP".
};

/// Gives the text after the last "." of @p path (all of it without one) in upper case, ASCII
/// letters only.
///
/// A last "." that is the first character of the path has no segment before it, so that nothing
/// gives way there: ".12" has the extension "12".
std::wstring FileExtension(const std::wstring& path, NumberedCopies numberedCopies);

} // namespace OrvikCore

#endif
