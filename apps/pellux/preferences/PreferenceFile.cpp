#include "preferences/PreferenceFile.h"

#include "runtime/QtText.h"

#include <ConfigurationFile.h>
#include <HotkeyTable.h>

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QSaveFile>
#include <QTemporaryDir>

namespace Pellux {
namespace {

const QString kShortcutSection = QStringLiteral("hotkeys");

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
    QString section;
    for (auto entry = contents.values.cbegin(); entry != contents.values.cend(); ++entry) {
        if (entry.key().first != section)
            text += QStringLiteral("\n[%1]\n").arg(entry.key().first);
        section = entry.key().first;
        text += QStringLiteral("%1 = %2\n").arg(entry.key().second, tomlString(entry.value()));
    }
    if (!contents.shortcuts.empty())
        text += QStringLiteral("\n[%1]\n").arg(kShortcutSection);
    for (const auto& [keys, script] : contents.shortcuts)
        text += QStringLiteral("%1 = %2\n").arg(tomlString(keys), tomlString(script));
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
    readShortcuts(file, contents, errorText);
    return contents;
}

bool WritePreferences(const QString& path, const PreferenceContents& contents, QString& errorText)
{
    if (!QDir().mkpath(QFileInfo(path).absolutePath())) {
        errorText = QStringLiteral("The folder of %1 cannot be made.").arg(path);
        return false;
    }
    QSaveFile file(path);
    const QByteArray text = textOf(contents).toUtf8();
    if (file.open(QIODevice::WriteOnly) && file.write(text) == text.size() && file.commit())
        return true;
    errorText = QStringLiteral("%1 cannot be written: %2").arg(path, file.errorString());
    return false;
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
