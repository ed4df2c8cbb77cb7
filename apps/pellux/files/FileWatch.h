#ifndef PELLUX_FILES_FILEWATCH_H
#define PELLUX_FILES_FILEWATCH_H

#include <QDateTime>
#include <QFileSystemWatcher>
#include <QHash>
#include <QObject>
#include <QStringList>
#include <QTimer>
#include <functional>

namespace Pellux {

/// Tells when one of some files was written anew. A file that is written in pieces, or put in the
/// place of another, counts once it has rested. @thread Main thread.
class FileWatch final : public QObject
{
    Q_OBJECT

public:
    /// How long a file must stay as it is, milliseconds.
    static constexpr int kRestMs = 400;

    FileWatch();
    ~FileWatch() override;

    FileWatch(const FileWatch&) = delete;
    FileWatch& operator=(const FileWatch&) = delete;

    bool IsOn() const { return m_isOn; }
    void SetOn(bool isOn);

    /// Watches these files and no others, as they are now.
    void SetFiles(const QStringList& files);

Q_SIGNALS:
    /// A watched file is another than it was, and rests. Comes again later until SetFiles(): the
    /// listener may be busy.
    void Changed();

private:
    struct State
    {
        QDateTime modified;
        qint64 size = -1; ///< -1 for a file that is not there.

        bool operator==(const State&) const = default;
    };

    static State stateOf(const QString& file);
    void arm();
    void look();

    QStringList m_files;
    QHash<QString, State> m_known; ///< When SetFiles() was called.
    QHash<QString, State> m_seen;  ///< At the last look.
    QFileSystemWatcher m_watcher;
    QTimer m_rest;
    bool m_isOn = false;
};

} // namespace Pellux

#endif
