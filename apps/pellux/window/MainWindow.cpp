#include "window/MainWindow.h"

#include "actions/WindowMenus.h"
#include "console/ConsoleDock.h"
#include "controls/ControlsPanel.h"
#include "crash/CrashNotice.h"
#include "preferences/Preferences.h"
#include "preferences/PreferencesDialog.h"
#include "properties/PropertiesPanel.h"
#include "runtime/CommandRunner.h"
#include "runtime/FittingScreen.h"
#include "runtime/Guarded.h"
#include "runtime/QtText.h"
#include "tree/TreePanel.h"
#include "view/ViewFacts.h"
#include "view/ViewWidget.h"
#include "window/ContextMenus.h"
#include "window/FocusRing.h"
#include "window/StatusLine.h"
#include "window/WindowLayout.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/IApplication.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>

#include <Folders.h>
#include <HostRuntime.h>

#include <QAction>
#include <QCloseEvent>
#include <QDockWidget>
#include <QMenu>
#include <QToolBar>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>
#include <vector>

namespace Pellux {
namespace {

constexpr int kFirstWidth = 1280;
constexpr int kFirstHeight = 860;

/// How much of the window the docks have at first; the view has the rest.
constexpr int kSideWidth = 280;
constexpr double kSideShare = 0.22;
constexpr double kConsoleShare = 0.3;

/// @return the path of a file in the user's state folder.
QString stateFile(const QString& name)
{
    const OrvikCore::IApplication* const application =
        OrvikCore::SessionMgr::Instance().GetApplication();
    return application == nullptr ? QString() : ToQt(application->GetStateFolder()) + u'/' + name;
}

} // namespace

MainWindow::MainWindow(CommandRunner& runner, HostRuntime& host, GraphicsPath path)
    : m_runner(runner),
      m_host(host),
      m_view(new ViewWidget(runner, path, this)),
      m_status(new StatusLine(runner, this)),
      m_crashes(new CrashNotice(this))
{
    setWindowTitle(QStringLiteral("Pellux"));
    setDockOptions(AnimatedDocks | AllowNestedDocks | AllowTabbedDocks);
    setCorner(Qt::BottomLeftCorner, Qt::LeftDockWidgetArea);
    setCorner(Qt::BottomRightCorner, Qt::RightDockWidgetArea);
    auto* const middle = new QWidget;
    auto* const column = new QVBoxLayout(middle);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_crashes);
    column->addWidget(m_view, 1);
    setCentralWidget(middle);
    setStatusBar(m_status);
    // On a screen with few of the user interface's pixels all of the window is to be seen.
    resize(FittingScreen(*this, {kFirstWidth, kFirstHeight}));
    addPanels();
    addPreferences();
    std::vector<QDockWidget*> panels;
    for (const char* const name : {"tree", "properties", "controls", "console"})
        if (auto* const dock = findChild<QDockWidget*>(QString::fromLatin1(name)))
            panels.push_back(dock);
    new FocusRing(*this, *m_view, panels);
    shareRoom();
    m_menus->Panels().RememberLayout();
    WindowLayout::Restore(*this);
    connectParts();
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
                m_tree = new TreePanel(*tree, m_runner, session));
    addDock("properties", tr("Properties"), Qt::RightDockWidgetArea,
            new PropertiesPanel(m_runner, session));
    if (TambVizCore::IView3D* const view = session.View3D())
        addDock("controls", tr("Sections and explosion"), Qt::RightDockWidgetArea,
                new ControlsPanel(m_runner, *view));
    // Last: the menus list the docks.
    m_menus = std::make_unique<WindowMenus>(*this, m_runner, m_host,
                                            stateFile(QStringLiteral("recent-files")));
    m_contextMenus = std::make_unique<ContextMenus>(*this, m_runner);
}

void MainWindow::connectParts()
{
    connect(m_view, &ViewWidget::PointedAt, m_status, &StatusLine::ShowPointed);
    connect(&m_view->Screen(), &ViewScreen::FrameDrawn, m_status, &StatusLine::ShowFrameTime);
    connect(&m_runner, &CommandRunner::BusyChanged, m_crashes, &CrashNotice::SetBusy);
    connect(&m_runner, &CommandRunner::StateChanged, this,
            [this] { Guarded([this] { showState(); }); });
    connect(m_view, &ViewWidget::ContextMenuWanted, this,
            [this](const QPoint& global, const QPoint& at) {
                Guarded([&] { ContextMenus::Show(m_contextMenus->MakeForView(at), global); });
            });
    if (m_tree != nullptr)
        connect(m_tree, &TreePanel::MenuAsked, this,
                [this](const TambVizCore::RenderId& path, const QPoint& global) {
                    Guarded([&] { ContextMenus::Show(m_contextMenus->MakeForRow(path), global); });
                });
    connect(m_crashes, &CrashNotice::OpenWanted, this,
            [this](const QString& journal) { Guarded([&] { m_menus->ShowJournal(journal); }); });
    connect(m_crashes, &CrashNotice::ReplayWanted, this,
            [this](const QString& journal) { Guarded([&] { m_menus->ReplayJournal(journal); }); });
}

void MainWindow::addPreferences()
{
    const std::wstring folder = Folders().GetConfigurationFolder();
    const QString path = folder.empty() ? QString() : ToQt(folder) + QStringLiteral("/window.toml");
    m_preferences = new Preferences(path, m_runner, m_host, this);
    connect(this, &MainWindow::PreferencesChanged, m_preferences, &Preferences::Read);
    m_menus->Panels().AddPanel(QStringLiteral("preferences"), [this](QWidget* parent) {
        return new PreferencesDialog(*m_preferences, parent);
    });
    if (QAction* const action = m_menus->Actions().Find("edit.preferences"))
        action->setMenuRole(QAction::PreferencesRole);
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

void MainWindow::shareRoom()
{
    QList<QDockWidget*> sides;
    for (QDockWidget* const dock : findChildren<QDockWidget*>())
        if (dock != m_console)
            sides.append(dock);
    const int side = std::min(kSideWidth, static_cast<int>(width() * kSideShare));
    resizeDocks(sides, QList<int>(sides.size(), side), Qt::Horizontal);
    const int console =
        std::min(m_console->sizeHint().height(), static_cast<int>(height() * kConsoleShare));
    resizeDocks({m_console}, {console}, Qt::Vertical);
}

void MainWindow::ResizeView(int width, int height)
{
    const QSize wanted = QSize(width, height) / devicePixelRatioF();
    resize(size() + wanted - m_view->size());
}

QMenu* MainWindow::createPopupMenu()
{
    // Owned by the caller, as Qt wants it.
    auto* const menu = new QMenu(this);
    for (const QByteArray& id : m_menus->Actions().Ids())
        if (id.startsWith("panel."))
            menu->addAction(m_menus->Actions().Find(id));
    return menu;
}

void MainWindow::Notify(int eventCode)
{
    if (eventCode == static_cast<int>(OrvikCore::SessionEvent::UpdateDisplay))
        Guarded([this] { m_view->Screen().ShowNow(); });
    else if (eventCode == static_cast<int>(OrvikCore::SessionEvent::UpdatePreferences))
        Guarded([this] { Q_EMIT PreferencesChanged(); });
}

void MainWindow::showState()
{
    const OrvikCore::ASession& session = OrvikCore::SessionMgr::Instance().CurrentSession();
    m_status->ShowSelectionCount(static_cast<qsizetype>(session.GetPickedEntities().size()));
    const std::uint64_t scene =
        session.View3D() == nullptr ? 0 : session.View3D()->GetSceneRoot().Stamps().subtree;
    if (std::exchange(m_countedScene, scene) != scene)
        m_status->ShowTriangles(CountVisibleTriangles());
    m_view->Screen().ShowNow();
}

void MainWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
    Guarded([this] { Q_EMIT CloseWanted(); });
}

} // namespace Pellux
