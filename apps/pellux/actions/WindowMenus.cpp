#include "actions/WindowMenus.h"

#include "actions/WindowState.h"
#include "help/CommandBrowser.h"
#include "help/HelpPanels.h"
#include "journal/JournalPanel.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"

#include <HostRuntime.h>

#include <QDockWidget>
#include <QEvent>
#include <QMainWindow>
#include <QMenu>
#include <QToolBar>

namespace Pellux {
namespace {

/// A switch that shows and hides a panel.
ActionDefinition panelAction(const QString& name, const QString& title)
{
    ActionDefinition action;
    action.id = "panel." + name.toLatin1();
    action.menu = WindowMenus::tr("&View") + u'/' + WindowMenus::tr("&Panels");
    action.text = title;
    action.tip = WindowMenus::tr("Shows or hides: %1").arg(title);
    action.isOn = [name] { return WindowState::IsPanelShown(name); };
    const QString command =
        QStringLiteral("(app:show-panel ") + Quoted(name) + QStringLiteral(" %1)");
    action.script = SwitchScript(command.toStdString().c_str());
    return action;
}

ActionDefinition resetAction()
{
    ActionDefinition action;
    action.id = "view.reset-layout";
    action.menu = WindowMenus::tr("&View") + u'/' + WindowMenus::tr("&Panels");
    action.text = WindowMenus::tr("&Reset layout");
    action.tip = WindowMenus::tr("Puts the panels where they were at the very first start");
    action.script = FixedScript("(app:reset-layout)");
    return action;
}

} // namespace

WindowMenus::WindowMenus(QMainWindow& window, CommandRunner& runner, HostRuntime& host,
                         const QString& recentFile)
    : m_window(window),
      m_runner(runner),
      m_files(window, runner, recentFile),
      m_panels(window, m_files.Watch()),
      m_actions(window, runner, host.GetHotkeys())
{
    addPanels(host);
    m_actions.Add(FileActions());
    addRecentMenu();
    m_actions.Add(EditActions());
    m_actions.Add(ViewActions());
    m_actions.Add(DisplayActions());
    addPanelActions();
    m_actions.Add(SelectActions());
    m_actions.Add(MeasureActions());
    m_actions.Add(HelpActions());
    m_actions.YieldToHotkeys();
    m_actions.Refresh();
}

WindowMenus::~WindowMenus() = default;

void WindowMenus::addPanels(HostRuntime& host)
{
    m_panels.AddPanel(QStringLiteral("journal"), [this, &host](QWidget* parent) {
        return m_journal = new JournalPanel(m_runner, host, parent);
    });
    m_panels.AddPanel(QStringLiteral("commands"),
                      [](QWidget* parent) { return new CommandBrowser(parent); });
    m_panels.AddPanel(QStringLiteral("keys"),
                      [this](QWidget* parent) { return MakeKeysPanel(m_window, parent); });
    m_panels.AddPanel(QStringLiteral("about"), &MakeAboutPanel);
}

bool WindowMenus::ShowJournal(const QString& path)
{
    return m_panels.ShowPanel(L"journal", true) && m_journal->Open(path);
}

bool WindowMenus::ReplayJournal(const QString& path)
{
    if (!ShowJournal(path))
        return false;
    m_journal->Replay();
    return true;
}

void WindowMenus::addPanelActions()
{
    ActionDefinitions actions;
    for (auto* const dock :
         m_window.findChildren<QDockWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        actions.push_back(panelAction(dock->objectName(), dock->windowTitle()));
        dock->installEventFilter(this);
        connect(dock, &QDockWidget::visibilityChanged, this, [this] {
            Guarded([this] {
                if (!m_runner.IsRunning())
                    m_actions.Refresh();
            });
        });
    }
    for (const auto* const bar :
         m_window.findChildren<QToolBar*>(QString(), Qt::FindDirectChildrenOnly))
        actions.push_back(panelAction(bar->objectName(), bar->windowTitle()));
    actions.push_back(resetAction());
    m_actions.Add(actions);
}

/// The button of its title and the window manager ask a dock to close; the command does it.
bool WindowMenus::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Close)
        return QObject::eventFilter(watched, event);
    event->ignore();
    Guarded([&] {
        QAction* const action = m_actions.Find("panel." + watched->objectName().toLatin1());
        if (action != nullptr && action->isChecked())
            action->trigger();
    });
    return true;
}

void WindowMenus::addRecentMenu()
{
    QMenu* const file = m_actions.Menu(ActionTable::tr("&File"));
    auto* const recent = new QMenu(tr("Recen&t files"), file);
    recent->setAccessibleName(tr("Recent files"));
    QAction* const behind = m_actions.Find("file.reload");
    file->insertMenu(behind, recent);
    m_files.FillRecent(*recent);
}

} // namespace Pellux
