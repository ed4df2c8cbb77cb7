#ifndef PELLUX_PREFERENCES_PREFERENCETABLE_H
#define PELLUX_PREFERENCES_PREFERENCETABLE_H

#include <QByteArray>
#include <QMap>
#include <QString>
#include <QStringList>
#include <utility>
#include <vector>

namespace Pellux {

/// What a preference is made of; all are kept as text.
enum class PreferenceKind
{
    Color,   ///< "#rrggbb".
    Switch,  ///< "true" or "false".
    Integer, ///< Between minimum and maximum.
    Number,  ///< Between minimum and maximum.
    Choice,  ///< One of the choices.
    Folder,  ///< A path; empty for the one the program was started in.
};

/// One thing that can be set.
struct Preference
{
    QString section; ///< Of the file, and the page of the dialog.
    QString key;
    QString label;
    PreferenceKind kind;
    QString defaultText;
    /// The command, with %1 for the value as scripts write it; empty where one command sets more
    /// than this: numbers of the tessellation, and the preset of the mouse.
    QString form;
    double minimum = 0.0;
    double maximum = 0.0;
    QStringList choices = {};
    /// The command that tells whether a switch is on now; empty where only the file knows.
    QByteArray question = {};

    /// Tells whether a text is a value.
    bool IsValid(const QString& text) const;

    /// @return the command that sets a valid value.
    QString FormFor(const QString& text) const;
};

/// Values by section and key; what is not there has its default.
using PreferenceValues = QMap<std::pair<QString, QString>, QString>;

/// @return everything that can be set but shortcuts, in the order of the dialog.
const std::vector<Preference>& PreferenceTable();

/// @return the value of a preference.
QString ValueOf(const PreferenceValues& values, const Preference& preference);

/// @return the commands that lead from some values to others, but for the preset of the mouse.
QStringList FormsBetween(const PreferenceValues& before, const PreferenceValues& after);

} // namespace Pellux

#endif
