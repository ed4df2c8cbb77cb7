#include "window/MainWindow.h"

#include "console/ConsoleDock.h"
#include "runtime/CommandRunner.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "tree/TreePanel.h"
#include "view/ViewWidget.h"
#include "window/StatusLine.h"
#include "window/WindowLayout.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/IApplication.h>
#include <OrvikCore/SessionMgr.h>

#include <HostRuntime.h>

#include <QCloseEvent>
#include <QDockWidget>
#include <QToolBar>

namespace Pellux {
namespace {

constexpr int kFirstWidth = 1280;
constexpr int kFirstHeight = 860;

/// @return the path of a file in the user's state folder.
QString stateFile(const QString& name)
{
    const OrvikCore::IApplication* const application =
        OrvikCore::SessionMgr::Instance().GetApplication();
    return application == nullptr ? QString() : ToQt(application->GetStateFolder()) + u'/' + name;
}

} // namespace

MainWindow::MainWindow(CommandRunner& runner, HostRuntime& host)
    : m_runner(runner),
      m_host(host),
      m_view(new ViewWidget(runner, this)),
      m_status(new StatusLine(runner, this))
{
    setWindowTitle(QStringLiteral("Pellux"));
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    setCentralWidget(m_view);
    setStatusBar(m_status);
    resize(kFirstWidth, kFirstHeight);
    addPanels();
    m_firstLayout = saveState();
    WindowLayout::Restore(*this);
    OrvikCore::SessionMgr::Instance().CurrentSession().SetOutputObserver(this);
}

MainWindow::~MainWindow()
{
    OrvikCore::SessionMgr::Instance().CurrentSession().SetOutputObserver(nullptr);
    Guarded([this] { WindowLayout::Save(*this); });
}

void MainWindow::addPanels()
{
    m_console = new ConsoleDock(m_runner, stateFile(QStringLiteral("console-history")), this);
    addDockWidget(Qt::BottomDockWidgetArea, m_console);
    auto& session = OrvikCore::SessionMgr::Instance().CurrentSession();
    if (HostTree* const tree = m_host.GetTree())
        addDock("tree", tr("Model tree"), Qt::LeftDockWidgetArea,
                new TreePanel(*tree, m_runner, session));
}

QDockWidget* MainWindow::addDock(const char* name, const QString& title, Qt::DockWidgetArea area,
                                 QWidget* content)
{
    auto* const dock = new QDockWidget(title, this);
    // The layout is remembered by this name.
    dock->setObjectName(QString::fromLatin1(name));
    dock->setAccessibleName(title);
    dock->setWidget(content);
    addDockWidget(area, dock);
    return dock;
}

QList<QAction*> MainWindow::PanelActions() const
{
    QList<QAction*> actions;
    for (const QDockWidget* const dock : findChildren<QDockWidget*>(Qt::FindDirectChildrenOnly))
        actions << dock->toggleViewAction();
    for (const QToolBar* const bar : findChildren<QToolBar*>(Qt::FindDirectChildrenOnly))
        actions << bar->toggleViewAction();
    return actions;
}

void MainWindow::ResetLayout()
{
    restoreState(m_firstLayout);
}

void MainWindow::Notify(int eventCode)
{
    if (eventCode == static_cast<int>(OrvikCore::SessionEvent::UpdateDisplay))
        m_view->ShowNow();
    else if (eventCode == static_cast<int>(OrvikCore::SessionEvent::UpdatePreferences))
        Guarded([this] { Q_EMIT PreferencesChanged(); });
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Guarded([this] { Q_EMIT CloseWanted(); });
}

} // namespace Pellux
