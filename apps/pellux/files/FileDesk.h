#ifndef PELLUX_FILES_FILEDESK_H
#define PELLUX_FILES_FILEDESK_H

#include "files/FileWatch.h"
#include "files/RecentFiles.h"

#include <QObject>
#include <QStringList>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QMenu;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class FileNotice;

/// What the window does about files: drops, recent files, changes of what is loaded, and what went
/// wrong while a file was read. Everything it does is a script command. @thread Main thread.
class FileDesk final : public QObject
{
    Q_OBJECT

public:
    /// @param window      Takes drops from now on. Not owned; outlives this.
    /// @param runner      Not owned; outlives this.
    /// @param recentFile  Where recent files are kept.
    FileDesk(QMainWindow& window, CommandRunner& runner, const QString& recentFile);
    ~FileDesk() override;

    FileDesk(const FileDesk&) = delete;
    FileDesk& operator=(const FileDesk&) = delete;

    FileWatch& Watch() { return m_watch; }
    FileNotice& Notice() { return *m_notice; }

    /// Fills a menu with recent files whenever it opens; those that are missing are greyed.
    void FillRecent(QMenu& menu);

    /// Does what dropping files does: the first model is loaded, or added, the others are added;
    /// scripts are run. While something runs they wait.
    void Take(const QStringList& paths, bool add);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void noteLoaded();
    void readAgain();
    void showRecent(QMenu& menu);

    QMainWindow& m_window;
    CommandRunner& m_runner;
    FileWatch m_watch;
    RecentFiles m_recent;
    FileNotice* m_notice; ///< Owned by the window.
    QStringList m_loaded;
    QStringList m_lost; ///< Could not be read again: watched until somebody loads something else.
    bool m_isReadingAgain = false;
    QString m_lastError;      ///< Printed since the last form.
    bool m_isLoading = false; ///< The last form reads or writes a file.
};

} // namespace Pellux

#endif
