#ifndef PELLUX_ACTIONS_HOSTWINDOW_H
#define PELLUX_ACTIONS_HOSTWINDOW_H

#include <OrvikCore/IHostWindow.h>

#include <QByteArray>
#include <QString>
#include <functional>
#include <vector>

QT_BEGIN_NAMESPACE
class QMainWindow;
class QWidget;
QT_END_NAMESPACE

namespace Pellux {

class FileWatch;

/// The window as scripts see it. Panels are its docks and tool bars, by their object names, and
/// what was added. @thread Main thread.
class HostWindow final : public OrvikCore::IHostWindow
{
public:
    /// Makes a panel when it is first shown; the window owns it.
    using Make = std::function<QWidget*(QWidget* parent)>;

    /// Is the window of the application from now on.
    ///
    /// @param window  Not owned; outlives this.
    /// @param watch   Not owned; outlives this.
    HostWindow(QMainWindow& window, FileWatch& watch);

    /// The application has no window any more.
    ~HostWindow() override;

    HostWindow(const HostWindow&) = delete;
    HostWindow& operator=(const HostWindow&) = delete;

    /// ResetLayout puts docks and tool bars back to where they lie now.
    void RememberLayout();

    /// Adds a panel that is a window of its own.
    void AddPanel(const QString& name, Make make);

    std::vector<std::wstring> ListPanels() const override;
    bool IsPanelShown(const std::wstring& name) const override;
    bool ShowPanel(const std::wstring& name, bool show) override;
    bool CopyImage(int width, int height, std::wstring* errorText) override;
    bool IsWatching() const override;
    void SetWatching(bool watch) override;
    void ResetLayout() override;

private:
    struct Panel
    {
        QString name;
        Make make;
        QWidget* widget = nullptr; ///< Owned by the window; null before it is shown.
    };

    QWidget* find(const QString& name) const;

    QMainWindow& m_window;
    FileWatch& m_watch;
    std::vector<Panel> m_panels;
    QByteArray m_firstLayout;
};

} // namespace Pellux

#endif
