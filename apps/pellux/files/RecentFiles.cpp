#include "files/RecentFiles.h"

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

} // namespace

RecentFiles::RecentFiles(QString file) : m_file(std::move(file)) {}

QStringList RecentFiles::List() const
{
    QFile file(m_file);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QStringList paths = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    return paths.mid(0, kKept);
}

bool RecentFiles::Add(const QString& path)
{
    const QString absolute = QFileInfo(path).absoluteFilePath();
    // A name with a line end cannot be kept in a list of lines.
    if (absolute.contains(u'\n') || !QDir().mkpath(QFileInfo(m_file).path()))
        return false;
    QLockFile lock(m_file + QStringLiteral(".lock"));
    if (!lock.tryLock(kLockMs))
        return false;
    QStringList paths = List();
    paths.removeAll(absolute);
    paths.prepend(absolute);
    // QSaveFile would take a full disk for success: it writes what it holds only when it commits.
    const QByteArray text = paths.mid(0, kKept).join(u'\n').toUtf8() + '\n';
    return OrvikOs::WriteFileAtomically(FromQt(m_file), text.constData(),
                                        static_cast<std::size_t>(text.size()), nullptr);
}

} // namespace Pellux
