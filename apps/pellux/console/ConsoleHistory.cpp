#include "console/ConsoleHistory.h"

#include "runtime/QtText.h"

#include <OrvikOs/FileWriting.h>

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <utility>

namespace Pellux {
namespace {

/// How long to wait for another window, milliseconds.
constexpr int kLockMs = 500;

/// A file with so many lines too many is cut.
constexpr int kSlack = 200;

QString escaped(QString command)
{
    command.replace(u'\\', QStringLiteral("\\\\"));
    return command.replace(u'\n', QStringLiteral("\\n"));
}

QString unescaped(const QString& line)
{
    QString command;
    command.reserve(line.size());
    for (qsizetype i = 0; i < line.size(); ++i) {
        if (line[i] == u'\\' && i + 1 < line.size()) {
            ++i;
            command += line[i] == u'n' ? QChar(u'\n') : line[i];
        } else {
            command += line[i];
        }
    }
    return command;
}

} // namespace

ConsoleHistory::ConsoleHistory(QString file) : m_file(std::move(file))
{
    if (!m_file.isEmpty())
        m_commands = read();
    m_index = m_commands.size();
}

QStringList ConsoleHistory::read() const
{
    QFile file(m_file);
    QStringList commands;
    if (!file.open(QIODevice::ReadOnly))
        return commands;
    for (const QByteArray& line : file.readAll().split('\n')) {
        if (!line.isEmpty())
            commands.append(unescaped(QString::fromUtf8(line)));
    }
    if (commands.size() > kKept)
        commands = commands.mid(commands.size() - kKept);
    return commands;
}

bool ConsoleHistory::Add(const QString& command)
{
    m_unfinished.clear();
    const bool isNew = !command.trimmed().isEmpty() && command.size() <= kLongest &&
                       (m_commands.isEmpty() || m_commands.last() != command);
    if (isNew) {
        m_commands.append(command);
        if (m_commands.size() > kKept)
            m_commands.removeFirst();
    }
    m_index = m_commands.size();
    return !isNew || m_file.isEmpty() || append(command);
}

bool ConsoleHistory::append(const QString& command)
{
    QDir().mkpath(QFileInfo(m_file).path());
    QLockFile lock(m_file + QStringLiteral(".lock"));
    if (!lock.tryLock(kLockMs)) {
        m_errorText = m_file + QStringLiteral(": another window holds the file");
        return false;
    }
    {
        QFile file(m_file);
        const QByteArray line = escaped(command).toUtf8() + '\n';
        if (!file.open(QIODevice::WriteOnly | QIODevice::Append) ||
            file.write(line) != line.size() || !file.flush()) {
            m_errorText = m_file + QStringLiteral(": ") + file.errorString();
            return false;
        }
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }
    QFile whole(m_file);
    if (!whole.open(QIODevice::ReadOnly))
        return true;
    QList<QByteArray> lines = whole.readAll().split('\n');
    if (lines.size() <= kKept + kSlack)
        return true;
    lines = lines.mid(lines.size() - kKept - 1);
    const QByteArray text = lines.join('\n');
    std::wstring reason;
    if (OrvikOs::WriteFileAtomically(FromQt(m_file), text.constData(),
                                     static_cast<std::size_t>(text.size()), &reason))
        return true;
    m_errorText = m_file + QStringLiteral(": ") + ToQt(reason);
    return false;
}

QString ConsoleHistory::Older(const QString& shown)
{
    if (m_index == 0)
        return {};
    if (m_index == m_commands.size())
        m_unfinished = shown;
    return m_commands[--m_index];
}

QString ConsoleHistory::Newer()
{
    if (m_index >= m_commands.size())
        return {};
    if (++m_index < m_commands.size())
        return m_commands[m_index];
    return m_unfinished.isNull() ? QStringLiteral("") : m_unfinished;
}

} // namespace Pellux
