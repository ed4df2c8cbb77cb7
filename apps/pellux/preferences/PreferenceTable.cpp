#include "preferences/PreferenceTable.h"

#include "runtime/QtText.h"

#include <NavigationTable.h>

#include <QColor>
#include <QCoreApplication>
#include <QRegularExpression>

namespace Pellux {
namespace {

QString translated(const char* text)
{
    return QCoreApplication::translate("Preferences", text);
}

Preference color(const char* key, const char* label, const char* standard, const char* form)
{
    return {QStringLiteral("colors"), QLatin1String(key),      translated(label),
            PreferenceKind::Color,    QLatin1String(standard), QLatin1String(form)};
}

Preference toggle(const char* section, const char* key, const char* label, bool standard,
                  const char* form)
{
    return {QLatin1String(section),
            QLatin1String(key),
            translated(label),
            PreferenceKind::Switch,
            standard ? QStringLiteral("true") : QStringLiteral("false"),
            QLatin1String(form)};
}

/// Both numbers are set by one command; see FormsBetween().
Preference fineness(const char* key, const char* label, double maximum)
{
    return {QStringLiteral("tessellation"),
            QLatin1String(key),
            translated(label),
            PreferenceKind::Number,
            QStringLiteral("0"),
            QString(),
            0.0,
            maximum};
}

Preference folder(const char* key, const char* label, const char* form)
{
    return {QStringLiteral("directories"), QLatin1String(key), translated(label),
            PreferenceKind::Folder,        QString(),          QLatin1String(form)};
}

/// A number of the display page.
Preference number(PreferenceKind kind, const char* key, const char* label, const char* standard,
                  const char* form, double minimum, double maximum)
{
    return {QStringLiteral("display"), QLatin1String(key),  translated(label), kind,
            QLatin1String(standard),   QLatin1String(form), minimum,           maximum};
}

/// What the rows of the user lie over; see FormsBetween() of PreferenceContents.
Preference navigation()
{
    Preference preference{QStringLiteral("navigation"),      QStringLiteral("preset"),
                          translated("What the mouse does"), PreferenceKind::Choice,
                          QStringLiteral("default"),         QString()};
    preference.choices << QStringLiteral("default");
    for (const NavigationPreset& preset : NavigationPresets())
        preference.choices << QString::fromWCharArray(preset.name);
    return preference;
}

/// One of the settings that loaders share; scripts may change it too.
Preference loadMode(const char* key, const char* title, const char* name)
{
    Preference preference = toggle("loading", key, title, /*standard=*/false, "");
    preference.form =
        QStringLiteral("(WEND.set%1 %2)").arg(QLatin1String(name), QStringLiteral("%1"));
    preference.question = QByteArray("WEND.get") + name;
    return preference;
}

std::vector<Preference> makeTable()
{
    return {
        color("background-top", QT_TRANSLATE_NOOP("Preferences", "Background, top"), "#d6e0ec",
              "(app:set-background-color! 1 %1)"),
        color("background-bottom", QT_TRANSLATE_NOOP("Preferences", "Background, bottom"),
              "#fafbfd", "(app:set-background-color! 2 %1)"),
        color("highlight", QT_TRANSLATE_NOOP("Preferences", "Selection and highlight"), "#ff8c00",
              "(app:set-highlight-color! %1)"),
        color("face", QT_TRANSLATE_NOOP("Preferences", "Faces without a colour"), "#b4bac4",
              "(app:set-default-face-color! %1)"),
        color("edge", QT_TRANSLATE_NOOP("Preferences", "Edges"), "#202020",
              "(app:set-default-edge-color! %1)"),
        color("tessellated-edge", QT_TRANSLATE_NOOP("Preferences", "Borders of triangles"),
              "#606060", "(app:set-default-tessellated-edge-color! %1)"),
        color("vertex", QT_TRANSLATE_NOOP("Preferences", "Vertices"), "#101010",
              "(app:set-default-vertex-color! %1)"),
        number(PreferenceKind::Integer, "antialiasing",
               QT_TRANSLATE_NOOP("Preferences", "Antialiasing, samples for each pixel; -1 chooses"),
               "-1", "(app:antialiasing %1)", -1.0, 16.0),
        number(PreferenceKind::Number, "line-width",
               QT_TRANSLATE_NOOP("Preferences", "Width of edges, pixels"), "1",
               "(app:line-width %1)", 1.0, 16.0),
        toggle("display", "faces", QT_TRANSLATE_NOOP("Preferences", "Show faces"), true,
               "(view:display-faces %1)"),
        toggle("display", "edges", QT_TRANSLATE_NOOP("Preferences", "Show edges"), true,
               "(view:display-edges %1)"),
        toggle("display", "vertices", QT_TRANSLATE_NOOP("Preferences", "Show vertices"), false,
               "(view:display-vertices %1)"),
        toggle("display", "triangles", QT_TRANSLATE_NOOP("Preferences", "Show triangles"), false,
               "(view:display-tessellation %1)"),
        toggle("display", "clouds", QT_TRANSLATE_NOOP("Preferences", "Show point clouds"), true,
               "(view:display-clouds %1)"),
        toggle("display", "pmi", QT_TRANSLATE_NOOP("Preferences", "Show annotations"), true,
               "(view:display-pmi %1)"),
        toggle("display", "animation", QT_TRANSLATE_NOOP("Preferences", "Move the camera in steps"),
               true, "(view:animate %1)"),
        number(PreferenceKind::Integer, "animation-steps",
               QT_TRANSLATE_NOOP("Preferences", "Steps of a move, 30 milliseconds each"), "20",
               "(app:animation-steps %1)", 2.0, 100.0),
        toggle("display", "copy-picks",
               QT_TRANSLATE_NOOP("Preferences", "Copy each pick to the clipboard"), false,
               "(app:copy-picks %1)"),
        fineness("sag", QT_TRANSLATE_NOOP("Preferences", "Greatest sag, mm; 0 follows the model"),
                 1e6),
        fineness("max-angle",
                 QT_TRANSLATE_NOOP("Preferences", "Greatest angle, degrees; 0 for the default"),
                 180.0),
        loadMode("force-graphical", QT_TRANSLATE_NOOP("Preferences", "Force Graphical Mode"),
                 "ForceGraphicalMode"),
        loadMode("force-product-structure",
                 QT_TRANSLATE_NOOP("Preferences", "Force ProductStructure Mode"),
                 "ForceProductStructureMode"),
        navigation(),
        folder("input", QT_TRANSLATE_NOOP("Preferences", "Files to read"),
               "(app:set-default-input-directory! %1)"),
        folder("output", QT_TRANSLATE_NOOP("Preferences", "Files to write"),
               "(app:set-default-output-directory! %1)"),
    };
}

} // namespace

bool Preference::IsValid(const QString& text) const
{
    bool isGood = false;
    switch (kind) {
    case PreferenceKind::Color: {
        static const QRegularExpression pattern(QStringLiteral("^#[0-9a-fA-F]{6}$"));
        return pattern.match(text).hasMatch();
    }
    case PreferenceKind::Switch:
        return text == QStringLiteral("true") || text == QStringLiteral("false");
    case PreferenceKind::Integer: {
        const int value = text.toInt(&isGood);
        return isGood && value >= minimum && value <= maximum;
    }
    case PreferenceKind::Number: {
        const double value = text.toDouble(&isGood);
        return isGood && value >= minimum && value <= maximum;
    }
    case PreferenceKind::Choice:
        return choices.contains(text);
    case PreferenceKind::Folder:
        return true;
    }
    return false;
}

QString Preference::FormFor(const QString& text) const
{
    QString value = text;
    if (kind == PreferenceKind::Color) {
        const QColor parts(text);
        value = QStringLiteral("'(%1 %2 %3)").arg(parts.red()).arg(parts.green()).arg(parts.blue());
    } else if (kind == PreferenceKind::Switch) {
        value = text == QStringLiteral("true") ? QStringLiteral("#t") : QStringLiteral("#f");
    } else if (kind == PreferenceKind::Choice) {
        value = Quoted(text);
    } else if (kind == PreferenceKind::Folder) {
        value = text.isEmpty() ? QStringLiteral("#f") : Quoted(text);
    }
    return form.arg(value);
}

const std::vector<Preference>& PreferenceTable()
{
    static const std::vector<Preference>& table = *new std::vector<Preference>(makeTable());
    return table;
}

QString ValueOf(const PreferenceValues& values, const Preference& preference)
{
    return values.value({preference.section, preference.key}, preference.defaultText);
}

QStringList FormsBetween(const PreferenceValues& before, const PreferenceValues& after)
{
    QStringList forms;
    QStringList numbers;
    bool isFinenessOther = false;
    for (const Preference& preference : PreferenceTable()) {
        const QString value = ValueOf(after, preference);
        const bool isOther = value != ValueOf(before, preference);
        if (preference.section == QStringLiteral("tessellation")) {
            numbers << value;
            isFinenessOther |= isOther;
        } else if (isOther && !preference.form.isEmpty()) {
            forms << preference.FormFor(value);
        }
    }
    if (isFinenessOther)
        forms << QStringLiteral("(view:tessellation %1)").arg(numbers.join(QLatin1Char(' ')));
    return forms;
}

} // namespace Pellux
