#include <WindowFixture.h>
#include <runtime/HeldInput.h>

#include <QAbstractButton>
#include <QAction>
#include <QLineEdit>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

namespace {

/// Types while a job is waited for. Widgets of its own stand for those of the window.
class HeldKeys : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        m_line = new QLineEdit(&Window());
        m_line->show();
        m_line->setFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    }

    /// Runs a job that takes a while and does something in its middle.
    bool During(const std::function<void()>& what)
    {
        QTimer::singleShot(0, &Window(), [this, what] {
            m_wasRunning = Runner().IsRunning();
            what();
        });
        return Do("(usleep 200000)");
    }

    QLineEdit* m_line = nullptr; ///< Owned by the window.
    bool m_wasRunning = false;
};

TEST_F(HeldKeys, WhatIsTypedWaitsForTheEndOfTheJob)
{
    QString meanwhile;
    ASSERT_TRUE(During([&] {
        QTest::keyClicks(m_line, QStringLiteral("abc"));
        meanwhile = m_line->text();
    }));

    EXPECT_TRUE(m_wasRunning);
    EXPECT_EQ(meanwhile, QString());
    EXPECT_TRUE(Until([&] { return m_line->text() == QStringLiteral("abc"); }));
}

TEST_F(HeldKeys, AShortcutRunsOnceAndAfterwards)
{
    auto* const action = new QAction(&Window());
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    Window().addAction(action);
    QSignalSpy triggered(action, &QAction::triggered);
    qsizetype meanwhile = -1;
    ASSERT_TRUE(During([&] {
        QTest::keyClick(m_line, Qt::Key_K, Qt::ControlModifier);
        meanwhile = triggered.count();
    }));

    EXPECT_EQ(meanwhile, 0);
    EXPECT_TRUE(Until([&] { return triggered.count() > 0; }));
    QTest::qWait(0);
    EXPECT_EQ(triggered.count(), 1);
}

TEST_F(HeldKeys, EscapeEndsWhatRuns)
{
    QTimer::singleShot(0, &Window(), [this] { QTest::keyClick(m_line, Qt::Key_Escape); });

    EXPECT_FALSE(Do("(let loop () (loop))"));
    EXPECT_FALSE(Runner().IsRunning());
}

TEST_F(HeldKeys, AShortcutThatRunsAJobKeepsTheRestWaiting)
{
    auto* const action = new QAction(&Window());
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+K")));
    Window().addAction(action);
    QString meanwhile = QStringLiteral("unseen");
    QObject::connect(action, &QAction::triggered, &Window(), [&] {
        ASSERT_TRUE(Do("(usleep 50000)"));
        meanwhile = m_line->text();
    });
    ASSERT_TRUE(During([&] {
        QTest::keyClick(m_line, Qt::Key_K, Qt::ControlModifier);
        QTest::keyClicks(m_line, QStringLiteral("x"));
    }));

    EXPECT_TRUE(Until([&] { return m_line->text() == QStringLiteral("x"); }));
    EXPECT_EQ(meanwhile, QString());
}

TEST_F(HeldKeys, ClosingWaitsForTheEndOfTheJob)
{
    QSignalSpy wanted(&Window(), &Pellux::MainWindow::CloseWanted);
    qsizetype meanwhile = -1;
    ASSERT_TRUE(During([&] {
        Window().close();
        meanwhile = wanted.count();
    }));

    EXPECT_EQ(meanwhile, 0);
    EXPECT_TRUE(Until([&] { return wanted.count() == 1; }));
    EXPECT_EQ(Window().findChild<QMessageBox*>(QStringLiteral("forceQuestion")), nullptr);
}

TEST_F(HeldKeys, ASecondRequestOffersToEndAtOnce)
{
    bool isOffered = false;
    bool isThere = false;
    ASSERT_TRUE(During([&] {
        Window().close();
        Window().close();
        auto* const question = Window().findChild<QMessageBox*>(QStringLiteral("forceQuestion"));
        isOffered = question != nullptr && question->isVisible() && question->buttons().size() == 3;
    }));
    isThere = Window().findChild<QMessageBox*>(QStringLiteral("forceQuestion")) != nullptr;

    EXPECT_TRUE(isOffered);
    EXPECT_FALSE(isThere);
}

TEST_F(HeldKeys, TheQuestionCanBeAnsweredByKeyWhileTheJobRuns)
{
    QTimer::singleShot(0, &Window(), [this] {
        Window().close();
        Window().close();
        auto* const question = Window().findChild<QMessageBox*>(QStringLiteral("forceQuestion"));
        ASSERT_NE(question, nullptr);
        for (QAbstractButton* const button : question->buttons())
            if (question->buttonRole(button) == QMessageBox::ActionRole)
                QTest::keyClick(button, Qt::Key_Space);
    });

    EXPECT_FALSE(Do("(let loop () (loop))"));
}

} // namespace
