#ifndef PELLUX_ACTIONS_ACTIONTABLE_H
#define PELLUX_ACTIONS_ACTIONTABLE_H

#include "actions/ActionDefinition.h"

#include <QMap>
#include <QObject>
#include <memory>

QT_BEGIN_NAMESPACE
class QAction;
class QMainWindow;
class QMenu;
class QToolBar;
QT_END_NAMESPACE

namespace Pellux {

class CommandRunner;
class HotkeyTable;

/// Every action of the window: makes the menus and the tool bar from the definitions, runs the
/// script of what is chosen, and lets switches follow what scripts do. @thread Main thread.
class ActionTable final : public QObject
{
    Q_OBJECT

public:
    /// @param window   Gets menus and tool bar; owns the actions. Not owned, outlives the table.
    /// @param runner   Not owned; outlives the table.
    /// @param hotkeys  Of the configuration: a menu gives a key up that is bound there.
    ActionTable(QMainWindow& window, CommandRunner& runner, const HotkeyTable& hotkeys);
    ~ActionTable() override;

    ActionTable(const ActionTable&) = delete;
    ActionTable& operator=(const ActionTable&) = delete;

    /// Adds actions to the menus, which are made where they are missing.
    void Add(const ActionDefinitions& definitions);

    /// @return the action of an id; null when there is none. Owned by the window.
    QAction* Find(const QByteArray& id) const;

    /// @return the ids in the order in which they were added.
    std::vector<QByteArray> Ids() const;

    /// Asks by this from now on; tests answer without a dialog.
    void SetAsker(std::unique_ptr<IAsker> asker);

    /// @return the menu of a path such as "&View/&Projection", made where it is missing.
    QMenu* Menu(const QString& path);

    /// Brings switches and what can be chosen up to date.
    void Refresh();

    /// Gives up the keys that the configuration binds; call once it was read.
    void YieldToHotkeys();

private:
    struct Entry
    {
        ActionDefinition definition;
        QAction* action; ///< Owned by the window.
    };

    void run(const ActionDefinition& definition, bool isOn);

    QMainWindow& m_window;
    CommandRunner& m_runner;
    const HotkeyTable& m_hotkeys;
    std::unique_ptr<IAsker> m_asker;
    std::vector<Entry> m_entries;
    QMap<QString, QMenu*> m_menus; ///< By path; owned by the window.
    QToolBar* m_bar;               ///< Owned by the window.
};

} // namespace Pellux

#endif
