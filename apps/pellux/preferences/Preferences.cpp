#include "preferences/Preferences.h"

#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "runtime/QuietCommand.h"

#include <OrvikCore/MessageType.h>

#include <HostRuntime.h>

#include <QFile>

namespace Pellux {
namespace {

/// How soon to look again whether commands can run, milliseconds.
constexpr int kLookAgainMs = 10;

} // namespace

Preferences::Preferences(const QString& path, CommandRunner& runner, HostRuntime& host,
                         QObject* parent)
    : QObject(parent), m_path(path), m_runner(runner), m_host(host)
{
    m_again.setSingleShot(true);
    connect(&m_again, &QTimer::timeout, this, [this] { Guarded([this] { Read(); }); });
}

Preferences::~Preferences() = default;

void Preferences::Read()
{
    if (m_path.isEmpty())
        return;
    if (m_runner.IsRunning()) {
        m_again.start(kLookAgainMs);
        return;
    }
    QString errorText;
    const PreferenceContents contents = ReadPreferences(m_path, errorText);
    m_isBroken = !errorText.isEmpty();
    if (m_isBroken)
        m_runner.Print(errorText, static_cast<int>(OrvikCore::MessageType::Error));
    apply(contents);
}

PreferenceContents Preferences::Present() const
{
    PreferenceContents present = m_contents;
    if (m_runner.IsRunning())
        return present;
    for (const Preference& preference : PreferenceTable()) {
        if (preference.question.isEmpty())
            continue;
        const bool isOn = RunQuietly(preference.question.constData()).AsBool();
        const QString text = isOn ? QStringLiteral("true") : QStringLiteral("false");
        if (text == preference.defaultText)
            present.values.remove({preference.section, preference.key});
        else
            present.values[{preference.section, preference.key}] = text;
    }
    return present;
}

bool Preferences::Change(const PreferenceContents& contents, QString& errorText)
{
    keepBrokenFile();
    const bool isWritten = m_path.isEmpty() || WritePreferences(m_path, contents, errorText);
    apply(contents);
    return isWritten;
}

void Preferences::apply(const PreferenceContents& contents)
{
    const QStringList forms = FormsBetween(Present(), contents);
    const bool hasOtherKeys = contents.shortcuts != m_contents.shortcuts;
    m_contents = contents;
    if (hasOtherKeys) {
        std::wstring reason;
        if (!m_host.ReadHotkeysAgain(FromQt(m_path), reason))
            m_runner.Print(ToQt(reason), static_cast<int>(OrvikCore::MessageType::Error));
    }
    if (!forms.isEmpty())
        m_runner.Run(forms.join(QLatin1Char('\n')), QStringLiteral("preferences"));
}

/// What somebody has written into the file by hand is not lost with it.
void Preferences::keepBrokenFile()
{
    if (!m_isBroken)
        return;
    const QString kept = m_path + QStringLiteral(".broken");
    QFile::remove(kept);
    QFile::rename(m_path, kept);
    m_isBroken = false;
}

} // namespace Pellux
