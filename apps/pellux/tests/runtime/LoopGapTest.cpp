#include <OrvikCore/ASession.h>
#include <OrvikCore/IFrameProvider.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/IView3D.h>

#include <SheetFile.h>
#include <WindowFixture.h>
#include <view/ViewWidget.h>

#include <QElapsedTimer>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cstdio>
#include <ctime>

namespace {

/// How often the event loop is looked at, milliseconds.
constexpr int kTickMs = 2;

/// How long the view is let be after a load, milliseconds: it shows more and more of the model.
constexpr int kSettlingMs = 3000;

/// Steps of the mouse, and pixels from one to the next.
constexpr int kSteps = 100;
constexpr int kStepPixels = 3;

/// @return the processor time of this thread, milliseconds.
double processorMs()
{
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

/// Looks at the event loop by a timer, as long as it lives. What other programs take of the machine
/// is in a gap, but not in its processor time.
class GapWatch
{
public:
    GapWatch()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        QObject::connect(&m_timer, &QTimer::timeout, [this] {
            const double gap = static_cast<double>(m_since.nsecsElapsed()) / 1e6 - kTickMs;
            const double processor = processorMs();
            m_worst = std::max(m_worst, gap);
            m_worstProcessor = std::max(m_worstProcessor, processor - m_processor);
            m_processor = processor;
            m_since.start();
            ++m_ticks;
        });
        m_since.start();
        m_timer.start(kTickMs);
    }

    /// @return the longest time so far in which the event loop did one thing, milliseconds.
    double Worst() const { return m_worst; }

    /// @return the most processor time between two looks, milliseconds.
    double WorstProcessor() const { return m_worstProcessor; }

    int Ticks() const { return m_ticks; }

private:
    QElapsedTimer m_since;
    QTimer m_timer;
    double m_worst = 0.0;
    double m_processor = processorMs();
    double m_worstProcessor = 0.0;
    int m_ticks = 0;
};

/// Measures how long the event loop does one thing at a time, and prints it. ORVIK_GAP_FILES names
/// other files, with colons between: what counts is measured with large ones.
class EventLoop : public WindowFixture
{
protected:
    QStringList Files() const
    {
        const QStringList files =
            qEnvironmentVariable("ORVIK_GAP_FILES").split(QLatin1Char(':'), Qt::SkipEmptyParts);
        if (!files.isEmpty())
            return files;
        WriteSheet(Dir().Path() / "sheet.stl", 400);
        return {QString::fromStdString((Dir().Path() / "sheet.stl").string())};
    }

    void Load(const QString& path)
    {
        EXPECT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(path))))
            << qPrintable(errors.join(u'\n'));
    }

    void WaitMs(int milliseconds)
    {
        QElapsedTimer time;
        time.start();
        Until([&] { return time.elapsed() > milliseconds; });
    }

    /// Moves the mouse over the view, with the left button held.
    void Drag(Pellux::ViewWidget& view)
    {
        QPoint at(100, 200);
        QTest::mousePress(&view, Qt::LeftButton, {}, at);
        for (int step = 0; step < kSteps; ++step) {
            at += QPoint(kStepPixels, 1);
            QMouseEvent move(QEvent::MouseMove, at, view.mapToGlobal(at), Qt::NoButton,
                             Qt::LeftButton, Qt::NoModifier);
            QCoreApplication::sendEvent(&view, &move);
            QCoreApplication::processEvents();
        }
        QTest::mouseRelease(&view, Qt::LeftButton, {}, at);
    }
};

TEST_F(EventLoop, GoesOnWhileAFileIsLoaded)
{
    Open();
    for (const QString& file : Files()) {
        const GapWatch watch;
        QElapsedTimer time;
        time.start();
        Load(file);
        std::printf("%s: loaded in %lld ms, worst gap of the event loop %.0f ms, most processor "
                    "time in one %.0f ms\n",
                    qPrintable(file), static_cast<long long>(time.elapsed()), watch.Worst(),
                    watch.WorstProcessor());
        WaitMs(kSettlingMs);
        std::printf("  and %.0f ms, %.0f ms with the view completing its frame\n", watch.Worst(),
                    watch.WorstProcessor());

        EXPECT_GT(watch.Ticks(), 10);
    }
}

TEST_F(EventLoop, GoesOnWhileTheModelIsTurned)
{
    Open();
    auto* const frames = dynamic_cast<OrvikCore::IFrameProvider*>(
        OrvikCore::SessionMgr::Instance().CurrentSession().View3D());
    ASSERT_NE(frames, nullptr);
    for (const QString& file : Files()) {
        Load(file);
        WaitMs(kSettlingMs);
        const std::uint64_t before = frames->GetFrameCount();
        const GapWatch watch;
        QElapsedTimer time;
        time.start();
        Drag(Window().View());
        const double seconds = static_cast<double>(time.nsecsElapsed()) / 1e9;
        const std::uint64_t drawn = frames->GetFrameCount() - before;
        // Frames that are begun beside, for the time when the mouse rests, are not counted.
        std::printf("%s: %d steps of the mouse, each shown, %.1f a second; worst gap of the event "
                    "loop %.0f ms, most processor time in one %.0f ms\n",
                    qPrintable(file), kSteps, kSteps / seconds, watch.Worst(),
                    watch.WorstProcessor());

        EXPECT_GE(drawn, static_cast<std::uint64_t>(kSteps));
    }
}

} // namespace
