#include <OrvikOs/Directory.h>

#include <JournalText.h>
#include <WindowFixture.h>
#include <actions/WindowState.h>
#include <crash/CrashNotice.h>
#include <journal/JournalPanel.h>

#include <QLabel>
#include <QPushButton>
#include <QSignalSpy>
#include <QTest>

namespace {

class AfterACrash : public WindowFixture
{
protected:
    void SetUp() override
    {
        m_journal = Dir().Write("state/pellux/journals/a.journal.scm", ";; nothing\n");
        const std::wstring report = Dir().Write("Pellux.crash", "text");
        Dir().Write("state/pellux/running/4294967280.mark",
                    "process=4294967280\nstarted=7\njournal=" + Narrow(m_journal) +
                        "\nreport=" + Narrow(report) + "\n");
    }

    static std::string Narrow(const std::wstring& text) { return {text.begin(), text.end()}; }

    /// A journal as a run leaves it that has loaded a cube and looked at its front.
    std::string JournalOfACube()
    {
        Pellux::JournalStart start;
        start.width = 400;
        start.height = 300;
        start.folder = Dir().WidePath();
        return OrvikOs::WideToUtf8(Pellux::JournalHead(start, L"pellux", L"now")) + "(doc:load \"" +
               WriteCube().toStdString() + "\")\n(view:front)\n";
    }

    bool HasMark() const
    {
        return OrvikOs::IsFile(Dir().WidePath(L"state/pellux/running/4294967280.mark"));
    }

    std::wstring m_journal;
};

TEST_F(AfterACrash, TheNextStartSaysSoAndNamesTheReport)
{
    Open();
    auto* const notice = Find<Pellux::CrashNotice>("crashNotice");

    EXPECT_TRUE(notice->isVisible());
    const QString text = Find<QLabel>("crashText")->text();
    EXPECT_TRUE(text.contains(QStringLiteral("4294967280"))) << qPrintable(text);
    EXPECT_TRUE(text.contains(QStringLiteral("Pellux.crash"))) << qPrintable(text);
}

TEST_F(AfterACrash, TheJournalIsOfferedUntilItIsDismissed)
{
    Open();
    QSignalSpy opened(Find<Pellux::CrashNotice>("crashNotice"), &Pellux::CrashNotice::OpenWanted);
    QTest::mouseClick(Find<QPushButton>("crashOpen"), Qt::LeftButton);
    ASSERT_EQ(opened.count(), 1);
    EXPECT_EQ(opened[0][0].toString().toStdWString(), m_journal);
    EXPECT_TRUE(HasMark());

    QTest::mouseClick(Find<QPushButton>("crashDismiss"), Qt::LeftButton);
    EXPECT_FALSE(Find<Pellux::CrashNotice>("crashNotice")->isVisible());
    EXPECT_FALSE(HasMark());
}

TEST_F(AfterACrash, RepeatingAsksForItOnce)
{
    Open();
    QSignalSpy asked(Find<Pellux::CrashNotice>("crashNotice"), &Pellux::CrashNotice::ReplayWanted);
    QTest::mouseClick(Find<QPushButton>("crashReplay"), Qt::LeftButton);

    EXPECT_EQ(asked.count(), 1);
    EXPECT_FALSE(HasMark());
}

TEST_F(AfterACrash, ItsJournalIsShown)
{
    m_journal = Dir().Write("state/pellux/journals/a.journal.scm", JournalOfACube());
    Open();
    QTest::mouseClick(Find<QPushButton>("crashOpen"), Qt::LeftButton);

    auto* const panel = Find<Pellux::JournalPanel>("journal");
    EXPECT_TRUE(panel->isVisible());
    EXPECT_EQ(panel->Text().toStdString(), JournalOfACube());
    EXPECT_TRUE(HasMark());
}

TEST_F(AfterACrash, ItsJournalIsReplayedUpToTheLastCommand)
{
    m_journal = Dir().Write("state/pellux/journals/a.journal.scm", JournalOfACube());
    Open();
    QTest::mouseClick(Find<QPushButton>("crashReplay"), Qt::LeftButton);

    EXPECT_EQ(Pellux::WindowState::LoadedFiles(), QStringList{WriteCube()});
    EXPECT_TRUE(echoed.contains(QStringLiteral("(view:front)")));
    EXPECT_EQ(errors, QStringList());
    EXPECT_TRUE(Do("(app:print 1)"));
}

TEST_F(AfterACrash, RepeatingWaitsWhileSomethingRuns)
{
    Open();
    auto* const replay = Find<QPushButton>("crashReplay");
    bool wasEnabled = true;
    Runner().RunOther([&] { wasEnabled = replay->isEnabled(); });

    EXPECT_FALSE(wasEnabled);
    EXPECT_TRUE(replay->isEnabled());
}

class AGoodEnd : public WindowFixture
{
};

TEST_F(AGoodEnd, LeavesNoMark)
{
    Open();
    EXPECT_FALSE(Pellux::FindCrashedRuns(Dir().WidePath(L"state/pellux/running")).size());
    EXPECT_FALSE(std::filesystem::is_empty(Dir().Path() / "state/pellux/running"));
    Close();

    EXPECT_TRUE(std::filesystem::is_empty(Dir().Path() / "state/pellux/running"));
}

} // namespace
