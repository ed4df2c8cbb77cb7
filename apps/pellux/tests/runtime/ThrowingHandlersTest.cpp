#include "../view/RecordingStrategy.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/Controller.h>
#include <OrvikCore/SessionMgr.h>

#include <WindowFixture.h>
#include <view/ViewWidget.h>

#include <QDropEvent>
#include <QMimeData>
#include <QTest>
#include <QUrl>
#include <QWheelEvent>
#include <stdexcept>

namespace {

/// Something throws inside a handler of Qt's: it is told, and no frame of Qt's sees it. One that
/// got through would end the test's process.
class ThrowingHandlers : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        m_onEvent = [this] { Throw(); };
    }

    Pellux::ViewWidget& View() { return Window().View(); }

    /// Has the view's controller throw at each event.
    void UseThrowingStrategy()
    {
        OrvikCore::SessionMgr::Instance().CurrentSession().GetController()->SetStrategy(
            new RecordingStrategy(m_seen, m_onEvent));
    }

    [[noreturn]] void Throw()
    {
        ++m_thrown;
        throw std::runtime_error("a handler failed");
    }

    void ExpectTold()
    {
        Run().Host().DrainOutput();
        EXPECT_GT(m_thrown, 0);
        EXPECT_EQ(errors, QStringList(m_thrown, QStringLiteral("a handler failed")));
        EXPECT_TRUE(Do("(app:print 1)"));
        EXPECT_FALSE(Runner().IsBusy());
    }

    std::vector<std::string> m_seen;
    std::function<void()> m_onEvent;
    int m_thrown = 0;
};

TEST_F(ThrowingHandlers, AMousePress)
{
    UseThrowingStrategy();
    QTest::mousePress(&View(), Qt::LeftButton, {}, {50, 60});

    ExpectTold();
}

TEST_F(ThrowingHandlers, AMotion)
{
    UseThrowingStrategy();
    QMouseEvent motion(QEvent::MouseMove, QPointF(9, 8), View().mapToGlobal(QPointF(9, 8)),
                       Qt::NoButton, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &motion);

    ExpectTold();
}

TEST_F(ThrowingHandlers, TheWheel)
{
    UseThrowingStrategy();
    QWheelEvent wheel(QPointF(30, 40), View().mapToGlobal(QPointF(30, 40)), QPoint(), {0, 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&View(), &wheel);

    ExpectTold();
}

TEST_F(ThrowingHandlers, AKey)
{
    UseThrowingStrategy();
    QTest::keyPress(&View(), Qt::Key_A);

    ExpectTold();
}

TEST_F(ThrowingHandlers, Leaving)
{
    UseThrowingStrategy();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&View(), &leave);

    ExpectTold();
}

TEST_F(ThrowingHandlers, Painting)
{
    QObject::connect(&View().Screen(), &Pellux::ViewScreen::FrameDrawn, [this] { Throw(); });
    Window().resize(Window().size() - QSize(30, 20));
    View().repaint();

    ExpectTold();
}

TEST_F(ThrowingHandlers, ATimer)
{
    QObject::connect(&View(), &Pellux::ViewWidget::PointedAt, [this] { Throw(); });
    QTest::mouseMove(&View(), {70, 80});

    EXPECT_TRUE(Until([&] { return m_thrown > 0; }));
    ExpectTold();
}

TEST_F(ThrowingHandlers, ADrop)
{
    const QMetaObject::Connection echo =
        QObject::connect(&Runner(), &Pellux::CommandRunner::Echoed, [this] { Throw(); });
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(WriteCube())});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Window(), &enter);
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&Window(), &drop);

    EXPECT_TRUE(Until([&] { return m_thrown > 0; }));
    QObject::disconnect(echo);
    ExpectTold();
}

TEST_F(ThrowingHandlers, Closing)
{
    QObject::connect(&Window(), &Pellux::MainWindow::CloseWanted, [this] { Throw(); });
    Window().close();

    ExpectTold();
    EXPECT_TRUE(Window().isVisible());
}

} // namespace
