#ifndef PELLUX_WINDOW_CONTEXTMENUS_H
#define PELLUX_WINDOW_CONTEXTMENUS_H

#include <QObject>
#include <QPoint>
#include <memory>

QT_BEGIN_NAMESPACE
class QMenu;
class QWidget;
QT_END_NAMESPACE

namespace TambVizCore {
class RenderId;
} // namespace TambVizCore

namespace Pellux {

class CommandRunner;

/// The context menus of the view and of the model tree: what the session manager's menu template
/// offers for the row, or for the nearest row above that it offers something for. @thread Main
/// thread.
class ContextMenus final : public QObject
{
    Q_OBJECT

public:
    /// @param window  Parent of the menus; not owned. @param runner Not owned; outlives the object.
    ContextMenus(QWidget& window, CommandRunner& runner);
    ~ContextMenus() override;

    ContextMenus(const ContextMenus&) = delete;
    ContextMenus& operator=(const ContextMenus&) = delete;

    /// Makes the menu of what lies under a pixel of the view.
    /// @param at  Device pixels of the view.
    /// @return null when nothing is offered there.
    std::unique_ptr<QMenu> MakeForView(const QPoint& at);

    /// Makes the menu of a row of the model tree.
    /// @return null when nothing is offered there.
    std::unique_ptr<QMenu> MakeForRow(const TambVizCore::RenderId& path);

    /// Opens a menu and returns at once; it ends with its choice. Nothing for null.
    static void Show(std::unique_ptr<QMenu> menu, const QPoint& global);

private:
    QWidget& m_window;
    CommandRunner& m_runner;
};

} // namespace Pellux

#endif
