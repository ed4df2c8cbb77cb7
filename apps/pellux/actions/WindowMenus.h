#ifndef PELLUX_ACTIONS_WINDOWMENUS_H
#define PELLUX_ACTIONS_WINDOWMENUS_H

#include "actions/ActionTable.h"
#include "actions/HostWindow.h"
#include "files/FileDesk.h"

#include <QObject>

namespace Pellux {

class HostRuntime;
class JournalPanel;

/// The menus, the tool bar, the desk for files and the panels of the window, put together. Made
/// when all docks are there. @thread Main thread.
class WindowMenus final : public QObject
{
    Q_OBJECT

public:
    /// @param window, runner, host  Not owned; outlive this.
    /// @param recentFile            Where recent files are kept.
    WindowMenus(QMainWindow& window, CommandRunner& runner, HostRuntime& host,
                const QString& recentFile);
    ~WindowMenus() override;

    WindowMenus(const WindowMenus&) = delete;
    WindowMenus& operator=(const WindowMenus&) = delete;

    ActionTable& Actions() { return m_actions; }
    FileDesk& Files() { return m_files; }
    HostWindow& Panels() { return m_panels; }

    /// Shows the journal of an earlier run, for somebody who wants to replay it.
    /// @return false when it cannot be read; the panel says why.
    bool ShowJournal(const QString& path);

    /// Shows the journal of an earlier run and replays it.
    /// @return false when it cannot be read; the panel says why.
    bool ReplayJournal(const QString& path);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void addPanelActions();
    void addRecentMenu();
    void addPanels(HostRuntime& host);

    QMainWindow& m_window;
    CommandRunner& m_runner;
    FileDesk m_files;
    HostWindow m_panels;
    ActionTable m_actions;
    JournalPanel* m_journal = nullptr; ///< Owned by the window; null before it is shown.
};

} // namespace Pellux

#endif
