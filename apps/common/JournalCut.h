#ifndef APPSCOMMON_JOURNALCUT_H
#define APPSCOMMON_JOURNALCUT_H

#include "JournalText.h"

#include <string>
#include <vector>

/// How the end of a journal looks when its run ended in the middle of a line.
namespace Pellux {

/// Empties the last line where it is the beginning of a mark (";=...", or ";" alone), or a
/// mark that might go on: numbers do not tell whether they are whole.
///
/// @param lines  Of the whole text; the last one is what stands behind the last line end.
/// @return what the line held; empty where nothing is cut.
std::wstring CutOffMark(std::vector<std::wstring>& lines);

/// Tells whether the last of some forms is the rest of a text that was cut short, rather than one
/// with a mistake in it: it begins like a form, and neither a form nor a mark begins in a later
/// line of it.
bool IsCutShort(const std::vector<PlacedForm>& forms);

} // namespace Pellux

#endif
