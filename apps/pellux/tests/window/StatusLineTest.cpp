#include <TambCommandsInfra/Progress.h>

#include <WindowFixture.h>
#include <window/StatusLine.h>

#include <QElapsedTimer>
#include <QLabel>
#include <QProgressBar>
#include <QTest>
#include <QTimer>
#include <QToolButton>

namespace {

class Status : public WindowFixture
{
protected:
    void SetUp() override { Open(); }
};

TEST_F(Status, ShowsABusyMarkOnlyForWhatTakesAWhile)
{
    auto* const progress = Find<QProgressBar>("progress");
    bool duringShort = true;
    QTimer::singleShot(0, &Window(), [&] { duringShort = progress->isVisible(); });
    ASSERT_TRUE(Do("(usleep 30000)"));
    EXPECT_FALSE(duringShort);

    bool duringLong = false;
    QTimer::singleShot(250, &Window(), [&] { duringLong = progress->isVisible(); });
    ASSERT_TRUE(Do("(usleep 400000)"));
    EXPECT_TRUE(duringLong);
    EXPECT_FALSE(progress->isVisible());
}

TEST_F(Status, ShowsTheFractionAndThePhase)
{
    auto* const progress = Find<QProgressBar>("progress");
    Runner().RunOther([&] {
        TambCommandsInfra::Progress::Instance().BeginPhase(L"Reading triangles");
        EXPECT_EQ(progress->maximum(), 1000);
        EXPECT_EQ(progress->value(), 0);
        EXPECT_TRUE(progress->format().contains(QStringLiteral("Reading triangles")));
        TambCommandsInfra::Progress::Instance().End();
    });
}

TEST_F(Status, ShowsALongPhaseOnOneLine)
{
    auto* const progress = Find<QProgressBar>("progress");
    Runner().RunOther([&] {
        TambCommandsInfra::Progress::Instance().BeginPhase(
            L"Making shapes of parts_468_with_a_long_name_50%p.step");
        const QString text = progress->text();
        EXPECT_LT(progress->fontMetrics().horizontalAdvance(text), progress->width());
        EXPECT_TRUE(text.startsWith(QStringLiteral("Making")));
        EXPECT_TRUE(text.endsWith(QStringLiteral(" 0%")));
        TambCommandsInfra::Progress::Instance().BeginPhase(L"5%p.step");
        EXPECT_EQ(progress->text().remove(QChar(0x2060)), QStringLiteral("5%p.step 0%"));
        TambCommandsInfra::Progress::Instance().End();
    });
}

TEST_F(Status, SaysThatTheWindowClosesWhenWhatRunsHasEnded)
{
    QTimer::singleShot(0, &Window(), [this] {
        Window().close();
        EXPECT_TRUE(Window().Status().currentMessage().contains(QStringLiteral("closes when")));
    });
    ASSERT_TRUE(Do("(usleep 50000)"));

    EXPECT_TRUE(Window().Status().currentMessage().isEmpty());
}

TEST_F(Status, TheButtonCancelsWhatRuns)
{
    auto* const cancel = Find<QToolButton>("cancel");
    EXPECT_FALSE(cancel->isVisible());
    QTimer::singleShot(250, &Window(), [&] {
        EXPECT_TRUE(cancel->isVisible());
        QTest::mouseClick(cancel, Qt::LeftButton);
    });

    EXPECT_FALSE(Do("(let loop () (loop))"));
}

TEST_F(Status, ShowsNumbersAsTheSystemWritesThem)
{
    Window().Status().ShowTriangles(1234567);
    Window().Status().ShowFrameTime(16.4);

    EXPECT_EQ(Find<QLabel>("triangleCount")->text(),
              Window().locale().toString(1234567) + QStringLiteral(" triangles"));
    EXPECT_EQ(Find<QLabel>("frameTime")->text(), QStringLiteral("16 ms"));
}

} // namespace
