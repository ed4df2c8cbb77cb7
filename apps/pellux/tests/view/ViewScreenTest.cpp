#include <OrvikCore/ASession.h>
#include <OrvikCore/IFrameProvider.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>

#include <WindowFixture.h>
#include <view/ViewFacts.h>
#include <view/ViewWidget.h>

#include <QDir>
#include <QFile>
#include <QImage>
#include <QLabel>
#include <QMouseEvent>
#include <QPixmap>
#include <QSignalSpy>
#include <QTest>
#include <QWheelEvent>

namespace {

class ViewOnScreen : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&Window()));
    }

    Pellux::ViewWidget& View() { return Window().View(); }

    bool Load()
    {
        return Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(WriteCube()))) &&
               Do("(view:front)") && Do("(view:zoom-all)");
    }

    void Turn(int eighthsOfDegrees)
    {
        const QPointF at(30, 40);
        QWheelEvent event(at, View().mapToGlobal(at), QPoint(), QPoint(0, eighthsOfDegrees),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&View(), &event);
    }

    QString Journal()
    {
        const QDir folder(
            QString::fromStdString((Dir().Path() / "state/pellux/journals").string()));
        const QStringList files = folder.entryList(QDir::Files);
        QFile file(files.isEmpty() ? QString() : folder.filePath(files.first()));
        return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
    }

    QRgb Middle()
    {
        const QImage picture = View().grab().toImage();
        return picture.pixel(picture.width() / 2, picture.height() / 2);
    }
};

TEST_F(ViewOnScreen, ShowsTheModel)
{
    const QRgb empty = Middle();
    ASSERT_TRUE(Load());

    EXPECT_NE(Middle(), empty);
}

TEST_F(ViewOnScreen, PaintsTheSameFrameAgainWithoutDrawingIt)
{
    ASSERT_TRUE(Load());
    auto* const provider = dynamic_cast<OrvikCore::IFrameProvider*>(
        OrvikCore::SessionMgr::Instance().CurrentSession().View3D());
    ASSERT_NE(provider, nullptr);
    Until([&] { return !provider->NeedsFrame(); });
    const std::uint64_t before = provider->GetFrameCount();
    View().repaint();
    View().repaint();

    EXPECT_EQ(provider->GetFrameCount(), before);
}

TEST_F(ViewOnScreen, ShowsAtOnceWhatTheWheelDid)
{
    ASSERT_TRUE(Load());
    QSignalSpy drawn(&View().Screen(), &Pellux::ViewScreen::FrameDrawn);
    Turn(-120);

    EXPECT_EQ(drawn.count(), 1);
}

TEST_F(ViewOnScreen, ShowsAtOnceHowTheMiddleButtonZooms)
{
    ASSERT_TRUE(Load());
    QTest::mousePress(&View(), Qt::MiddleButton, {}, QPoint(100, 100));
    QTest::mouseMove(&View(), QPoint(100, 110));
    QSignalSpy drawn(&View().Screen(), &Pellux::ViewScreen::FrameDrawn);
    QMouseEvent moved(QEvent::MouseMove, QPointF(100, 130), View().mapToGlobal(QPointF(100, 130)),
                      Qt::NoButton, Qt::MiddleButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&View(), &moved);

    EXPECT_EQ(drawn.count(), 1);
}

TEST_F(ViewOnScreen, WritesTheCameraDownWhenTheWheelRests)
{
    ASSERT_TRUE(Load());
    EXPECT_EQ(Journal().count(QStringLiteral("(view:set-camera! ")), 0);
    Turn(-120);
    Turn(-120);

    EXPECT_TRUE(Until([this] { return Journal().contains(QStringLiteral("(view:set-camera! ")); }));
    EXPECT_EQ(Journal().count(QStringLiteral("(view:set-camera! ")), 1);
}

TEST_F(ViewOnScreen, EveryClickPicks)
{
    ASSERT_TRUE(Load());
    const QPoint middle = View().rect().center();
    for (int i = 0; i < 6; ++i) {
        QTest::mouseClick(&View(), Qt::LeftButton, {}, middle + QPoint(7 * i, 0));
        EXPECT_EQ(OrvikCore::SessionMgr::Instance().CurrentSession().GetPickedEntities().size(), 1U)
            << "click " << i;
        QTest::qWait(600);
    }
}

TEST_F(ViewOnScreen, TheLastPickIsDrawnUntilSomethingElseIsPicked)
{
    ASSERT_TRUE(Load());
    const QRgb plain = Middle();
    const QPoint middle = View().rect().center();
    QTest::mouseClick(&View(), Qt::LeftButton, {}, middle);
    const QRgb picked = Middle();
    QEvent leave(QEvent::Leave);
    QCoreApplication::sendEvent(&View(), &leave);

    EXPECT_NE(picked, plain);
    EXPECT_EQ(Middle(), picked);
    EXPECT_EQ(OrvikCore::SessionMgr::Instance().CurrentSession().GetPickedEntities().size(), 1U);
    QTest::mouseClick(&View(), Qt::LeftButton, {}, QPoint(3, 3));
    EXPECT_EQ(Middle(), plain);
}

TEST_F(ViewOnScreen, TellsWhatAFrameTook)
{
    QSignalSpy drawn(&View().Screen(), &Pellux::ViewScreen::FrameDrawn);
    ASSERT_TRUE(Load());

    ASSERT_GT(drawn.count(), 0);
    EXPECT_GT(drawn.last()[0].toDouble(), 0.0);
    EXPECT_TRUE(Find<QLabel>("frameTime")->text().endsWith(QStringLiteral(" ms")));
}

TEST_F(ViewOnScreen, HasTheSizeOfTheWidgetInPixels)
{
    Window().resize(700, 600);
    QCoreApplication::processEvents();
    int width = 0;
    int height = 0;
    OrvikCore::SessionMgr::Instance().CurrentSession().View3D()->GetWindowSize(width, height);

    EXPECT_EQ(QSize(width, height), View().size() * View().devicePixelRatioF());
}

TEST_F(ViewOnScreen, CountsTheTrianglesThatAreVisible)
{
    ASSERT_TRUE(Load());
    EXPECT_EQ(Pellux::CountVisibleTriangles(), 12U);
    EXPECT_TRUE(Find<QLabel>("triangleCount")->text().startsWith(QStringLiteral("12 ")));

    ASSERT_TRUE(Do("(view:hide (entity:body (app:pick-face 5 -10 5 0 1 0 0.1)))"));
    EXPECT_EQ(Pellux::CountVisibleTriangles(), 0U);
}

TEST_F(ViewOnScreen, NamesWhatLiesUnderThePointer)
{
    ASSERT_TRUE(Load());
    ASSERT_TRUE(Do("(app:pick-face 5 -10 5 0 1 0 0.1)"));
    const QPoint middle = View().rect().center();

    EXPECT_FALSE(Pellux::NameAt(middle).isEmpty());
    EXPECT_EQ(Pellux::NameAt({0, 0}), QString());
}

TEST_F(ViewOnScreen, CountsWhatIsSelected)
{
    ASSERT_TRUE(Load());
    ASSERT_TRUE(Do("(sel:set (app:pick-face 5 -10 5 0 1 0 0.1))"));
    EXPECT_EQ(Find<QLabel>("selectionCount")->text(), QStringLiteral("1 selected"));

    ASSERT_TRUE(Do("(sel:clear)"));
    EXPECT_EQ(Find<QLabel>("selectionCount")->text(), QString());
}

TEST_F(ViewOnScreen, PaintsThePictureWhereTheWindowSystemHasNoOpenGl)
{
    EXPECT_FALSE(Pellux::TryGraphics().works);
    EXPECT_EQ(View().Screen().Path(), Pellux::GraphicsPath::Image);
}

} // namespace
