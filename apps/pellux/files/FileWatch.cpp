#include "files/FileWatch.h"

#include "runtime/Guarded.h"

#include <QFileInfo>

namespace Pellux {

FileWatch::FileWatch()
{
    m_rest.setInterval(kRestMs);
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this,
            [this] { Guarded([this] { m_rest.start(); }); });
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this,
            [this] { Guarded([this] { m_rest.start(); }); });
    connect(&m_rest, &QTimer::timeout, this, [this] { Guarded([this] { look(); }); });
}

FileWatch::~FileWatch() = default;

FileWatch::State FileWatch::stateOf(const QString& file)
{
    const QFileInfo info(file);
    if (!info.exists())
        return {};
    return {info.lastModified(), info.size()};
}

void FileWatch::SetOn(bool isOn)
{
    if (m_isOn == isOn)
        return;
    m_isOn = isOn;
    SetFiles(m_files);
}

void FileWatch::SetFiles(const QStringList& files)
{
    m_rest.stop();
    m_files = files;
    m_known.clear();
    for (const QString& file : files)
        m_known[file] = stateOf(file);
    m_seen = m_known;
    arm();
}

void FileWatch::arm()
{
    const QStringList watched = m_watcher.files() + m_watcher.directories();
    if (!watched.isEmpty())
        m_watcher.removePaths(watched);
    if (!m_isOn)
        return;
    // The folder too: a file that is replaced is another file, which the watcher does not follow.
    for (const QString& file : m_files) {
        m_watcher.addPath(file);
        m_watcher.addPath(QFileInfo(file).absolutePath());
    }
}

void FileWatch::look()
{
    bool isChanged = false;
    bool rests = true;
    for (const QString& file : m_files) {
        const State now = stateOf(file);
        rests = rests && now == m_seen[file] && now.size >= 0;
        isChanged = isChanged || now != m_known[file];
        m_seen[file] = now;
    }
    if (!isChanged || !m_isOn) {
        m_rest.stop();
        return;
    }
    if (!rests)
        return;
    arm();
    Q_EMIT Changed();
}

} // namespace Pellux
