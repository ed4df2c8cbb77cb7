#include "RecordingStrategy.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/KeyEventArgs.h>
#include <OrvikCore/SessionMgr.h>

#include <WindowFixture.h>
#include <view/ViewWidget.h>

#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

/// Sends what Qt would to the view and looks at what its controller gets.
class ViewEvents : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        auto* const recorder = new RecordingStrategy(m_seen, m_onEvent);
        OrvikCore::SessionMgr::Instance().CurrentSession().GetController()->SetStrategy(recorder);
        m_seen.clear();
    }

    Pellux::ViewWidget& View() { return Window().View(); }

    void Turn(const QPoint& angle)
    {
        QWheelEvent event(QPointF(30, 40), View().mapToGlobal(QPointF(30, 40)), QPoint(), angle,
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&View(), &event);
    }

    std::vector<std::string> m_seen;
    std::function<void()> m_onEvent;
};

using Seen = std::vector<std::string>;

TEST_F(ViewEvents, APressAndAReleaseAtOnePlaceAreAClick)
{
    QTest::mouseClick(&View(), Qt::LeftButton, Qt::NoModifier, {50, 60});

    EXPECT_EQ(m_seen,
              (Seen{"press 1 50 60 mods 0", "release 1 50 60 mods 0", "click 1 x1 50 60 mods 0"}));
}

TEST_F(ViewEvents, AReleaseElsewhereIsNone)
{
    QTest::mousePress(&View(), Qt::LeftButton, Qt::ControlModifier, {50, 60});
    QTest::mouseRelease(&View(), Qt::LeftButton, Qt::ControlModifier, {51, 60});

    EXPECT_EQ(m_seen, (Seen{"press 1 50 60 mods 4", "release 1 51 60 mods 4"}));
}

TEST_F(ViewEvents, TheSecondOfTwoClicksCountsTwo)
{
    QTest::mouseClick(&View(), Qt::LeftButton, Qt::NoModifier, {50, 60});
    m_seen.clear();
    QMouseEvent second(QEvent::MouseButtonDblClick, QPointF(50, 60),
                       View().mapToGlobal(QPointF(50, 60)), Qt::LeftButton, Qt::LeftButton,
                       Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &second);
    QTest::mouseRelease(&View(), Qt::LeftButton, Qt::NoModifier, {50, 60});

    ASSERT_FALSE(m_seen.empty());
    EXPECT_EQ(m_seen.back(), "click 1 x2 50 60 mods 0");
}

TEST_F(ViewEvents, MotionTellsTheButtonsThatAreHeld)
{
    QTest::mousePress(&View(), Qt::MiddleButton, Qt::NoModifier, {5, 6});
    m_seen.clear();
    QMouseEvent motion(QEvent::MouseMove, QPointF(9, 8), View().mapToGlobal(QPointF(9, 8)),
                       Qt::NoButton, Qt::MiddleButton | Qt::LeftButton, Qt::ShiftModifier);
    QCoreApplication::sendEvent(&View(), &motion);

    EXPECT_EQ(m_seen, Seen{"move 5 9 8 mods 16"});
}

TEST_F(ViewEvents, TheWheelComesInNotchesPositiveTowardsTheUser)
{
    Turn({0, 120});
    Turn({0, -360});
    Turn({0, -60});
    Turn({0, -60});

    EXPECT_EQ(m_seen, (Seen{"wheel -1 30 40", "wheel 3 30 40", "wheel 1 30 40"}));
}

TEST_F(ViewEvents, AWheelThatTurnsSidewaysIsNotOne)
{
    Turn({240, 0});

    EXPECT_EQ(m_seen, Seen{});
}

TEST_F(ViewEvents, LeavingEndsTheHoverWhereThePointerWas)
{
    QTest::mouseMove(&View(), {70, 80});
    m_seen.clear();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&View(), &leave);

    EXPECT_EQ(m_seen, Seen{"hover ended 70 80"});
}

TEST_F(ViewEvents, KeysWithACharacterArePressedOnly)
{
    QTest::keyClick(&View(), Qt::Key_A);
    QTest::keyClick(&View(), Qt::Key_Escape);

    EXPECT_EQ(m_seen, (Seen{"key 0x41 down mods 0", "key 0x1000000 down mods 0",
                            "key 0x1000000 up mods 0"}));
}

TEST_F(ViewEvents, AHeldKeyCountsOnce)
{
    QKeyEvent repeat(QEvent::KeyPress, Qt::Key_A, Qt::NoModifier, QStringLiteral("a"), true);
    QCoreApplication::sendEvent(&View(), &repeat);

    EXPECT_EQ(m_seen, Seen{});
}

TEST_F(ViewEvents, ButtonsThatTheCoreDoesNotKnowAreDropped)
{
    QTest::mouseClick(&View(), Qt::BackButton, Qt::NoModifier, {50, 60});

    EXPECT_EQ(m_seen, Seen{});
}

TEST_F(ViewEvents, AClickOfTheRightButtonAsksForAMenu)
{
    QSignalSpy asked(&View(), &Pellux::ViewWidget::ContextMenuWanted);
    QTest::mouseClick(&View(), Qt::RightButton, Qt::NoModifier, {50, 60});

    ASSERT_EQ(asked.count(), 1);
    EXPECT_EQ(asked[0][1].toPoint(), QPoint(50, 60));
    EXPECT_EQ(asked[0][0].toPoint(), View().mapToGlobal(QPoint(50, 60)));
}

TEST_F(ViewEvents, WhileSomethingRunsClicksAreSwallowedButtonsAndMotionAreNot)
{
    Runner().RunOther([this] {
        QTest::mouseClick(&View(), Qt::LeftButton, Qt::NoModifier, {50, 60});
        QMouseEvent motion(QEvent::MouseMove, QPointF(9, 8), View().mapToGlobal(QPointF(9, 8)),
                           Qt::NoButton, Qt::NoButton, Qt::NoModifier);
        QCoreApplication::sendEvent(&View(), &motion);
    });

    EXPECT_EQ(m_seen,
              (Seen{"press 1 50 60 mods 0", "release 1 50 60 mods 0", "move 0 9 8 mods 0"}));
}

TEST_F(ViewEvents, NothingElseStartsWhileAMotionIsHandled)
{
    bool wasRunning = false;
    m_onEvent = [&] { wasRunning = Runner().IsRunning(); };
    QTest::mouseMove(&View(), {70, 80});

    EXPECT_TRUE(Until([&] { return wasRunning; }));
    EXPECT_FALSE(Runner().IsRunning());
}

} // namespace
