#include "window/MainWindow.h"

#include "view/ViewWidget.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>

namespace Pellux {

MainWindow::MainWindow(CommandRunner& runner)
    : m_runner(runner), m_view(new ViewWidget(runner, this))
{
    setWindowTitle(QStringLiteral("Pellux"));
    setCentralWidget(m_view);
    OrvikCore::SessionMgr::Instance().CurrentSession().SetOutputObserver(this);
}

MainWindow::~MainWindow()
{
    OrvikCore::SessionMgr::Instance().CurrentSession().SetOutputObserver(nullptr);
}

void MainWindow::Notify(int eventCode)
{
    if (eventCode == static_cast<int>(OrvikCore::SessionEvent::UpdateDisplay))
        m_view->ShowNow();
}

} // namespace Pellux
