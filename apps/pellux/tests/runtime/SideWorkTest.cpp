#include <OrvikCore/IJob.h>
#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/JobTicket.h>

#include <WindowFixture.h>
#include <actions/ActionTable.h>
#include <actions/WindowMenus.h>
#include <view/ViewWidget.h>

#include <QAction>
#include <QMenu>
#include <QTest>
#include <QTimer>
#include <atomic>

namespace {

/// Goes on until it is asked to end, as long measures do.
class LongJob final : public OrvikCore::IJob
{
public:
    bool Execute() override
    {
        m_isEnding.wait(false, std::memory_order_acquire);
        return true;
    }
    void End()
    {
        m_isEnding.store(true, std::memory_order_release);
        m_isEnding.notify_all();
    }

private:
    std::atomic<bool> m_isEnding{false}; ///< Written on the main thread, read on the worker.
};

/// While the worker measures on the side, which is nothing that a person waits for.
class SideWork : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        ASSERT_TRUE(Do("(app:print \"before\")"));
        ASSERT_TRUE(Until([this] { return !Runner().IsBusy(); }));
        echoed.clear();
        m_job = std::make_shared<LongJob>();
        QObject::connect(&Runner(), &Pellux::CommandRunner::AboutToRun, &Runner(),
                         [job = m_job] { job->End(); });
        OrvikCore::JobTicket ticket(OrvikCore::JID_EXECUTE_JOB, nullptr, /*sync=*/false,
                                    reinterpret_cast<long long>(m_job.get()));
        OrvikCore::JobDispatcher::Instance().ExecuteParked(ticket, m_job);
        ASSERT_TRUE(Runner().IsBusy());
        ASSERT_FALSE(Runner().IsRunning());
    }

    ~SideWork() override
    {
        if (m_job != nullptr)
            m_job->End();
    }

    std::shared_ptr<LongJob> m_job;
};

TEST_F(SideWork, GivesWayToAnActionOfAMenu)
{
    Find<QAction>("view.front")->trigger();

    EXPECT_EQ(echoed.join(u'\n').toStdString(), "(view:front)");
}

TEST_F(SideWork, GivesWayToADroppedFile)
{
    const QString path = WriteCube();
    Window().Menus().Files().Take({path}, /*add=*/false);

    EXPECT_EQ(echoed.join(u'\n').toStdString(), "(doc:load \"" + path.toStdString() + "\")");
}

TEST_F(SideWork, LeavesRecentFilesAsTheyAre)
{
    Dir().Write("state/pellux/recent-files", WriteCube().toStdString() + "\n");
    const auto* const file = Window().Menus().Actions().Menu(QStringLiteral("&File"));
    for (QAction* const entry : file->actions())
        if (entry->menu() != nullptr) {
            Q_EMIT entry->menu()->aboutToShow();
            ASSERT_FALSE(entry->menu()->actions().isEmpty());
            EXPECT_TRUE(entry->menu()->actions().front()->isEnabled());
        }
}

TEST_F(SideWork, LetsKeysThroughThatWereHeldBefore)
{
    // The worker begins on the side again as soon as the script has ended.
    m_job->End();
    const auto again = std::make_shared<LongJob>();
    QObject::connect(&Runner(), &Pellux::CommandRunner::StateChanged, &Window(), [&] {
        OrvikCore::JobTicket ticket(OrvikCore::JID_EXECUTE_JOB, nullptr, /*sync=*/false,
                                    reinterpret_cast<long long>(again.get()));
        if (!echoed.contains(QStringLiteral("(view:front)")))
            OrvikCore::JobDispatcher::Instance().ExecuteParked(ticket, again);
    });
    QObject::connect(&Runner(), &Pellux::CommandRunner::AboutToRun, &Window(), [&] {
        if (echoed.contains(QStringLiteral("(usleep 100000)")))
            again->End();
    });
    const QKeySequence keys = Find<QAction>("view.front")->shortcut();
    ASSERT_FALSE(keys.isEmpty());
    QTimer::singleShot(0, &Window(), [&] {
        QTest::keyClick(&Window().View(), keys[0].key(), keys[0].keyboardModifiers());
    });
    ASSERT_TRUE(Do("(usleep 100000)"));

    EXPECT_TRUE(Until([this] { return echoed.contains(QStringLiteral("(view:front)")); }));
    again->End();
}

} // namespace
