#include "WindowFixture.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>

#include <actions/WindowMenus.h>
#include <journal/JournalPanel.h>

#include <QCoreApplication>
#include <QFile>
#include <QTableWidget>

namespace {

class JournalPanel : public WindowFixture
{
protected:
    JournalPanel()
    {
        Open();
        Do("(view:animate #f) (app:show-panel \"journal\")");
        m_panel = Find<Pellux::JournalPanel>("journal");
    }

    void work()
    {
        Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(WriteCube()));
        Do("(sel:set (app:pick-entity 5 5 50 0 0 -1 0.1))");
    }

    Pellux::JournalPanel* m_panel = nullptr;
};

TEST_F(JournalPanel, ShowsCommandsAsTheyRun)
{
    work();
    EXPECT_TRUE(m_panel->Text().contains(QStringLiteral("(doc:load ")));
    EXPECT_TRUE(m_panel->Text().contains(QStringLiteral("(app:pick-entity 5 5 50 0 0 -1 0.1)")));
}

TEST_F(JournalPanel, LeavesOutWhatOnlyAWindowCanDo)
{
    Do("(app:show-panel \"about\") (app:watch #f) (view:copy-image 20 20)");
    EXPECT_FALSE(m_panel->Text().contains(QStringLiteral("app:")));
    EXPECT_FALSE(m_panel->Text().contains(QStringLiteral("copy-image")));
}

TEST_F(JournalPanel, ReplaysThisRunWithTheSameResult)
{
    work();
    m_panel->Replay();
    ASSERT_EQ(m_panel->Table().rowCount(), 1);
    EXPECT_EQ(m_panel->Table().item(0, 1)->text(), QStringLiteral("same"));
    EXPECT_TRUE(
        m_panel->Summary().contains(QStringLiteral("1 picks: 1 same, 0 moved, 0 other, 0 gone")))
        << m_panel->Summary().toStdString();
    EXPECT_EQ(errors, QStringList());
}

TEST_F(JournalPanel, SaysInWhichSizeTheViewWas)
{
    work();
    Window().resize(Window().size() + QSize(40, 20));
    QCoreApplication::processEvents();
    Do("(view:front)");
    int width = 0;
    int height = 0;
    OrvikCore::SessionMgr::Instance().CurrentSession().View3D()->GetWindowSize(width, height);

    EXPECT_TRUE(m_panel->Text().endsWith(
        QStringLiteral(";= size %1 %2\n(view:front)\n").arg(width).arg(height)))
        << m_panel->Text().toStdString();
}

TEST_F(JournalPanel, GoesOnAfterAReplay)
{
    work();
    m_panel->Replay();
    Do("(view:front)");
    EXPECT_TRUE(m_panel->Text().endsWith(QStringLiteral("(view:front)\n")));
}

TEST_F(JournalPanel, SavesAndOpensAnother)
{
    work();
    const QString path = QString::fromStdWString(Dir().WidePath(L"saved.journal.scm"));
    ASSERT_TRUE(m_panel->Save(path));
    Do("(view:front)");
    ASSERT_TRUE(Window().Menus().ShowJournal(path));
    EXPECT_FALSE(m_panel->Text().contains(QStringLiteral("(view:front)")));
    m_panel->ShowCurrent();
    EXPECT_TRUE(m_panel->Text().contains(QStringLiteral("(view:front)")));
}

TEST_F(JournalPanel, SaysWhyAFileIsNoJournal)
{
    const QString path = QString::fromStdWString(Dir().Write("no.scm", "(+ 1 2)\n"));
    EXPECT_FALSE(m_panel->Open(path));
    EXPECT_TRUE(m_panel->Summary().startsWith(path + QStringLiteral(": line 1: ")));
    EXPECT_FALSE(m_panel->Open(QStringLiteral("/none")));
    EXPECT_EQ(m_panel->Summary(), QStringLiteral("/none: the journal cannot be read"));
}

TEST_F(JournalPanel, StopsAtACommandThatFails)
{
    work();
    QString text = m_panel->Text();
    const QString path = QString::fromStdWString(
        Dir().Write("bad.journal.scm", (text + QStringLiteral("(car 5)\n")).toStdString()));
    ASSERT_TRUE(m_panel->Open(path));
    m_panel->Replay();
    EXPECT_TRUE(m_panel->Summary().contains(QStringLiteral("failed")));
}

} // namespace
