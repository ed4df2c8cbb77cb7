#include <OrvikCore/ACamera.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/ICameraProvider.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>

#include <WindowFixture.h>
#include <actions/WindowMenus.h>
#include <journal/JournalPanel.h>
#include <view/ViewWidget.h>

#include <QTest>
#include <QTimer>
#include <array>

namespace {

using Triple = std::array<float, 9>;

Triple cameraNow()
{
    Triple triple{};
    auto* const provider = dynamic_cast<OrvikCore::ICameraProvider*>(
        OrvikCore::SessionMgr::Instance().CurrentSession().View3D());
    provider->GetCamera()->GetCamera(triple.data(), triple.data() + 3, triple.data() + 6);
    return triple;
}

/// What hands do while a form runs.
class GesturesDuringAForm : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        ASSERT_TRUE(Do("(view:animate #f) (app:show-panel \"journal\")"));
        ASSERT_TRUE(Runner().Run(QStringLiteral("(doc:load \"%1\") (view:iso)").arg(WriteCube())));
    }

    /// Turns the model by the mouse.
    void Drag(bool lettingGo)
    {
        m_wasRunning = Runner().IsRunning();
        Pellux::ViewWidget& view = Window().View();
        QTest::mousePress(&view, Qt::LeftButton, {}, {50, 60});
        for (const int step : {10, 25, 60}) {
            const QPointF at(50 + step, 60);
            QMouseEvent motion(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton,
                               Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&view, &motion);
        }
        if (lettingGo)
            QTest::mouseRelease(&view, Qt::LeftButton, {}, {110, 60});
    }

    QString Journal() { return Find<Pellux::JournalPanel>("journal")->Text(); }

    /// The journal replays to the camera that there was.
    void ExpectReplayed(const Triple& camera)
    {
        Find<Pellux::JournalPanel>("journal")->Replay();
        EXPECT_EQ(cameraNow(), camera) << qPrintable(Journal());
        EXPECT_EQ(errors, QStringList());
    }

    bool m_wasRunning = false;
};

TEST_F(GesturesDuringAForm, StandBehindIt)
{
    QTimer::singleShot(50, &Window(), [this] { Drag(/*lettingGo=*/true); });
    ASSERT_TRUE(Do("(begin (view:front) (usleep 300000))"));
    const Triple camera = cameraNow();

    ASSERT_TRUE(m_wasRunning);
    const QString journal = Journal();
    const qsizetype form = journal.indexOf(QStringLiteral("(usleep 300000)"));
    EXPECT_GE(form, 0);
    EXPECT_GT(journal.indexOf(QStringLiteral("(view:set-camera!")), form) << qPrintable(journal);
    ExpectReplayed(camera);
}

TEST_F(GesturesDuringAForm, LeaveTheCameraWhereTheFormPutItAfterwards)
{
    QTimer::singleShot(50, &Window(), [this] { Drag(/*lettingGo=*/true); });
    ASSERT_TRUE(Do("(begin (usleep 300000) (view:front))"));
    const Triple camera = cameraNow();

    ASSERT_TRUE(m_wasRunning);
    ExpectReplayed(camera);
}

TEST_F(GesturesDuringAForm, ThatGoOnBehindItAreWrittenTwice)
{
    QTimer::singleShot(50, &Window(), [this] { Drag(/*lettingGo=*/false); });
    ASSERT_TRUE(Do("(begin (view:front) (usleep 300000))"));
    const qsizetype before = Journal().count(QStringLiteral("(view:set-camera!"));
    QMouseEvent motion(QEvent::MouseMove, QPointF(200, 90),
                       Window().View().mapToGlobal(QPointF(200, 90)), Qt::NoButton, Qt::LeftButton,
                       Qt::NoModifier);
    QCoreApplication::sendEvent(&Window().View(), &motion);
    QTest::mouseRelease(&Window().View(), Qt::LeftButton, {}, {200, 90});
    const Triple camera = cameraNow();

    EXPECT_EQ(before, 1);
    ASSERT_TRUE(Do("(app:print 1)"));
    EXPECT_EQ(Journal().count(QStringLiteral("(view:set-camera!")), 2) << qPrintable(Journal());
    ExpectReplayed(camera);
}

TEST_F(GesturesDuringAForm, BeforeItStandBeforeIt)
{
    Drag(/*lettingGo=*/false);
    ASSERT_TRUE(Do("(view:zoom-all)"));
    const Triple camera = cameraNow();

    const QString journal = Journal();
    const qsizetype gesture = journal.indexOf(QStringLiteral("(view:set-camera!"));
    EXPECT_GE(gesture, 0);
    EXPECT_GT(journal.indexOf(QStringLiteral("(view:zoom-all)")), gesture) << qPrintable(journal);
    ExpectReplayed(camera);
}

} // namespace
