#ifndef PELLUX_WINDOW_MAINWINDOW_H
#define PELLUX_WINDOW_MAINWINDOW_H

#include <OrvikCore/ISessionObserver.h>

#include <QMainWindow>

namespace Pellux {

class CommandRunner;
class ViewWidget;

/// The window: the 3D view in the middle, docks around it. @thread Main thread.
class MainWindow final : public QMainWindow, public OrvikCore::ISessionObserver
{
    Q_OBJECT

public:
    /// @param runner  Not owned; outlives the window.
    explicit MainWindow(CommandRunner& runner);

    /// Is the observer of the session no more.
    ~MainWindow() override;

    MainWindow(const MainWindow&) = delete;
    MainWindow& operator=(const MainWindow&) = delete;

    /// Repaints the view, or reads the preferences again.
    void Notify(int eventCode) override;

    ViewWidget& View() { return *m_view; }

private:
    CommandRunner& m_runner;
    ViewWidget* m_view; ///< Owned by the window as its child.
};

} // namespace Pellux

#endif
