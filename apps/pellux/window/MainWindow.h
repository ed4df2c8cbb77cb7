#ifndef PELLUX_WINDOW_MAINWINDOW_H
#define PELLUX_WINDOW_MAINWINDOW_H

#include "view/GraphicsChoice.h"

#include <OrvikCore/ISessionObserver.h>

#include <QMainWindow>
#include <memory>

QT_BEGIN_NAMESPACE
class QDockWidget;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class CrashNotice;
class ConsoleDock;
class ContextMenus;
class HostRuntime;
class Preferences;
class StatusLine;
class TreePanel;
class ViewWidget;
class WindowMenus;

/// The window: the 3D view in the middle, docks around it, the status line below. Where its parts
/// lie is remembered from one run to the next. @thread Main thread.
class MainWindow final : public QMainWindow, public OrvikCore::ISessionObserver
{
    Q_OBJECT

public:
    /// Made when the session, its view and its tree are there, and before the shell is.
    ///
    /// @param runner  Not owned; outlives the window.
    /// @param host    Not owned; outlives the window.
    /// @param path    How the view's frames reach the window.
    MainWindow(CommandRunner& runner, HostRuntime& host, GraphicsPath path);

    /// Is the observer of the session no more.
    ~MainWindow() override;

    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Repaints the view, or reads the preferences again.
    void Notify(int eventCode) override;

    ViewWidget& View() { return *m_view; }
    ConsoleDock& Console() { return *m_console; }
    WindowMenus& Menus() { return *m_menus; }
    StatusLine& Status() { return *m_status; }
    CrashNotice& Crashes() { return *m_crashes; }
    ContextMenus& Context() { return *m_contextMenus; }

    /// Makes the window as large as the view needs to have a size; the screen may allow less.
    /// @param width, height  Device pixels.
    void ResizeView(int width, int height);
    /// The preferences; to be read once the shell is there. Not owned.
    Preferences& UserPreferences() { return *m_preferences; }

    /// The menu of tool bars and titles of docks: the switches of the panels, which are commands.
    QMenu* createPopupMenu() override;

Q_SIGNALS:
    /// The preferences are to be read again.
    void PreferencesChanged();

    /// The user wants the window closed; whoever listens decides, with Qt's event not accepted.
    void CloseWanted();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    QDockWidget* addDock(const char* name, const QString& title, Qt::DockWidgetArea area,
                         QWidget* content);
    void addPanels();
    void addPreferences();
    void shareRoom();
    void connectParts();
    void showState();

    CommandRunner& m_runner;
    HostRuntime& m_host;
    ViewWidget* m_view;                   ///< Owned by the window as its child.
    StatusLine* m_status;                 ///< Owned by the window as its child.
    CrashNotice* m_crashes;               ///< Owned by the window as its child.
    ConsoleDock* m_console = nullptr;     ///< Owned by the window as its child.
    Preferences* m_preferences = nullptr; ///< Owned by the window as its child.
    TreePanel* m_tree = nullptr;          ///< Owned by the window as its child; null without tree.
    std::unique_ptr<WindowMenus> m_menus;
    std::unique_ptr<ContextMenus> m_contextMenus;
    std::uint64_t m_countedScene = 0; ///< The scene's stamp when its triangles were counted.
};

} // namespace Pellux

#endif
