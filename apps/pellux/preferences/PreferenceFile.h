#ifndef PELLUX_PREFERENCES_PREFERENCEFILE_H
#define PELLUX_PREFERENCES_PREFERENCEFILE_H

#include "preferences/PreferenceTable.h"

#include <QString>
#include <utility>
#include <vector>

namespace Pellux {

/// Shortcuts and what they run, in the order of the file.
using Shortcuts = std::vector<std::pair<QString, QString>>;

/// Buttons with modifier keys ("Ctrl-left") and what they do ("pan"). A file gives them
/// in the order of their names.
using NavigationRows = std::vector<std::pair<QString, QString>>;

/// What a file of preferences holds.
struct PreferenceContents
{
    PreferenceValues values; ///< Valid ones, none that is the default.
    Shortcuts shortcuts;
    NavigationRows navigation; ///< Over the preset; good ones, none twice.

    bool operator==(const PreferenceContents& other) const = default;
};

/// Reads a file of preferences; one that is not there is empty.
///
/// @param errorText  Receives a line "<path>:<line>:<column>: <reason>" for each mistake.
/// @return what is good of it; nothing where the file cannot be read as a whole.
PreferenceContents ReadPreferences(const QString& path, QString& errorText);

/// Writes the file whole or not at all; makes its folder.
///
/// @param errorText  Receives the reason on false.
bool WritePreferences(const QString& path, const PreferenceContents& contents, QString& errorText);

/// Checks shortcuts by the rules of the configuration's section [hotkeys].
///
/// @return the empty text when they are good, else what is wrong.
QString CheckShortcuts(const Shortcuts& shortcuts);

/// Checks rows of a table of what the mouse does, by the rules of the section [navigation].
///
/// @return the empty text when they are good, else a line for each mistake.
QString CheckNavigation(const NavigationRows& rows);

/// @return the commands that lead from some preferences to others; shortcuts have none.
QStringList FormsBetween(const PreferenceContents& before, const PreferenceContents& after);

} // namespace Pellux

#endif
