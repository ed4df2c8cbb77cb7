#include "preferences/PreferenceFile.h"

#include "runtime/QtText.h"

#include <OrvikOs/FileWriting.h>

#include <ConfigurationFile.h>
#include <HotkeyTable.h>
#include <NavigationTable.h>

#include <QDir>
#include <QFileInfo>
#include <QMap>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <map>

namespace Pellux {
namespace {

const QString kShortcutSection = QStringLiteral("hotkeys");
const QString kNavigationSection = QStringLiteral("navigation");
const QString kPresetKey = QStringLiteral("preset");

/// A basic string of TOML, control characters escaped.
QString tomlString(const QString& text)
{
    QString quoted = QStringLiteral("\"");
    for (const QChar character : text) {
        if (character == QLatin1Char('"') || character == QLatin1Char('\\'))
            quoted += QLatin1Char('\\') + QString(character);
        else if (character < QLatin1Char(' ') || character == QChar(0x7F))
            quoted += QStringLiteral("\\u%1").arg(character.unicode(), 4, 16, QLatin1Char('0'));
        else
            quoted += character;
    }
    return quoted + QLatin1Char('"');
}

QString textOf(const PreferenceContents& contents)
{
    QString text = QStringLiteral(
        "# Written by the window of Pellux; what people write belongs into pellux.toml.\n");
    QMap<QString, QString> sections;
    for (auto entry = contents.values.cbegin(); entry != contents.values.cend(); ++entry)
        sections[entry.key().first] +=
            QStringLiteral("%1 = %2\n").arg(entry.key().second, tomlString(entry.value()));
    for (const auto& [buttons, action] : contents.navigation)
        sections[kNavigationSection] +=
            QStringLiteral("%1 = %2\n").arg(tomlString(buttons), tomlString(action));
    for (const auto& [keys, script] : contents.shortcuts)
        sections[kShortcutSection] +=
            QStringLiteral("%1 = %2\n").arg(tomlString(keys), tomlString(script));
    for (auto section = sections.cbegin(); section != sections.cend(); ++section)
        text += QStringLiteral("\n[%1]\n").arg(section.key()) + section.value();
    return text;
}

void addError(QString& errorText, const QString& line)
{
    errorText += (errorText.isEmpty() ? QString() : QStringLiteral("\n")) + line;
}

void readValues(ConfigurationFile& file, PreferenceContents& contents, QString& errorText)
{
    for (const Preference& preference : PreferenceTable()) {
        std::vector<std::pair<std::wstring, std::wstring>> pairs;
        file.FillSection(FromQt(preference.section), &pairs);
        for (const auto& [key, text] : pairs) {
            const QString value = ToQt(text);
            if (ToQt(key) != preference.key)
                continue;
            if (!preference.IsValid(value))
                addError(errorText, QStringLiteral("%1: \"%2\" is no value of %3")
                                        .arg(ToQt(file.GetPlace(FromQt(preference.section), key)),
                                             value, preference.key));
            else if (value != preference.defaultText)
                contents.values[{preference.section, preference.key}] = value;
        }
    }
}

void readShortcuts(ConfigurationFile& file, PreferenceContents& contents, QString& errorText)
{
    HotkeyTable table;
    std::wstring reasons;
    if (!table.Read(file, reasons))
        addError(errorText, ToQt(reasons));
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    file.FillSection(FromQt(kShortcutSection), &pairs);
    for (const auto& [keys, script] : pairs)
        contents.shortcuts.emplace_back(ToQt(keys), ToQt(script));
}

/// Checks one row after those that are good; takes it into the table when it is good.
/// @return what is wrong with it; empty when it is good.
QString checkRow(const std::pair<QString, QString>& row, NavigationTable& table,
                 std::map<std::wstring, QString>& known)
{
    const std::wstring reason = table.SetRow(FromQt(row.first), FromQt(row.second));
    if (!reason.empty())
        return ToQt(reason);
    OrvikCore::MouseGesture gesture;
    OrvikCore::MouseGesture::FromText(FromQt(row.first), gesture);
    const auto [other, isNew] = known.emplace(gesture.ToText(), row.first);
    if (isNew)
        return {};
    if (other->second == row.first)
        return QStringLiteral("\"%1\" stands twice").arg(row.first);
    return QStringLiteral("\"%1\" are the same buttons as \"%2\"").arg(row.first, other->second);
}

void readNavigation(ConfigurationFile& file, PreferenceContents& contents, QString& errorText)
{
    NavigationTable table;
    std::map<std::wstring, QString> known;
    std::vector<std::pair<std::wstring, std::wstring>> pairs;
    file.FillSection(FromQt(kNavigationSection), &pairs);
    for (const auto& [key, text] : pairs) {
        const std::pair<QString, QString> row(ToQt(key), ToQt(text));
        if (row.first == kPresetKey)
            continue;
        const QString reason = checkRow(row, table, known);
        if (reason.isEmpty())
            contents.navigation.push_back(row);
        else
            addError(errorText, ToQt(file.GetPlace(FromQt(kNavigationSection), key)) +
                                    QStringLiteral(": ") + reason);
    }
}

/// The command that makes the table of some preferences hold.
QString navigationForm(const PreferenceContents& contents, const QString& preset, bool hadRows)
{
    if (contents.navigation.empty() && !hadRows)
        return QStringLiteral("(app:navigation %1)").arg(Quoted(preset));
    QStringList rows;
    for (const auto& [buttons, action] : contents.navigation)
        rows << QStringLiteral("(%1 %2)").arg(Quoted(buttons), Quoted(action));
    return QStringLiteral("(app:navigation-table '(%1) %2)")
        .arg(rows.join(QLatin1Char(' ')), Quoted(preset));
}

} // namespace

PreferenceContents ReadPreferences(const QString& path, QString& errorText)
{
    ConfigurationFile file;
    PreferenceContents contents;
    if (!file.AddFile(FromQt(path), /*mustExist=*/false)) {
        addError(errorText, ToQt(file.GetErrorText()));
        return contents;
    }
    readValues(file, contents, errorText);
    readNavigation(file, contents, errorText);
    readShortcuts(file, contents, errorText);
    return contents;
}

bool WritePreferences(const QString& path, const PreferenceContents& contents, QString& errorText)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
        errorText = QStringLiteral("The folder of %1 cannot be made.").arg(path);
        return false;
    }
    const QByteArray text = textOf(contents).toUtf8();
    std::wstring reason;
    if (OrvikOs::WriteFileAtomically(FromQt(path), text.constData(),
                                     static_cast<std::size_t>(text.size()), &reason))
        return true;
    errorText = QStringLiteral("%1 cannot be written: %2").arg(path, ToQt(reason));
    return false;
}

QString CheckNavigation(const NavigationRows& rows)
{
    NavigationTable table;
    std::map<std::wstring, QString> known;
    QString errorText;
    for (const auto& row : rows) {
        const QString reason = checkRow(row, table, known);
        if (!reason.isEmpty())
            addError(errorText, reason);
    }
    return errorText;
}

QStringList FormsBetween(const PreferenceContents& before, const PreferenceContents& after)
{
    QStringList forms = FormsBetween(before.values, after.values);
    const std::pair<QString, QString> key(kNavigationSection, kPresetKey);
    const QString standard = QStringLiteral("default");
    const QString preset = after.values.value(key, standard);
    if (before.navigation != after.navigation || before.values.value(key, standard) != preset)
        forms << navigationForm(after, preset, !before.navigation.empty());
    return forms;
}

QString CheckShortcuts(const Shortcuts& shortcuts)
{
    // The rules are those of the reader, so the text is read as it would be at the start.
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("shortcuts.toml"));
    PreferenceContents contents;
    contents.shortcuts = shortcuts;
    QString errorText;
    if (!WritePreferences(path, contents, errorText))
        return errorText;
    ReadPreferences(path, errorText);
    static const QRegularExpression place(QStringLiteral("^.*shortcuts\\.toml:\\d+:\\d+: "),
                                          QRegularExpression::MultilineOption);
    return errorText.replace(place, QString());
}

} // namespace Pellux
