#include <WindowFixture.h>
#include <runtime/Guarded.h>

#include <QSignalSpy>
#include <QTimer>
#include <stdexcept>

namespace {

class Commands : public WindowFixture
{
protected:
    void SetUp() override { Open(); }
};

TEST_F(Commands, EachFormIsEchoedBeforeItsOutput)
{
    QStringList order;
    QObject::connect(&Runner(), &Pellux::CommandRunner::Echoed,
                     [&](const QString& form) { order << form; });
    QObject::connect(&Runner(), &Pellux::CommandRunner::Printed,
                     [&](const QString& text) { order << text.trimmed(); });
    ASSERT_TRUE(Do("(app:print \"one\")\n(app:print \"two\")"));

    EXPECT_EQ(order, (QStringList{QStringLiteral("(app:print \"one\")"), QStringLiteral("one"),
                                  QStringLiteral("(app:print \"two\")"), QStringLiteral("two")}));
}

TEST_F(Commands, TheFirstErrorEndsTheRest)
{
    EXPECT_FALSE(Do("(car '())\n(app:print \"unreached\")"));

    EXPECT_EQ(echoed.size(), 1);
    EXPECT_TRUE(printed.isEmpty());
}

TEST_F(Commands, NothingRunsBesideWhatRuns)
{
    bool inner = true;
    QTimer::singleShot(0, &Window(), [&] { inner = Do("(app:print \"inner\")"); });
    ASSERT_TRUE(Do("(usleep 100000)"));

    EXPECT_FALSE(inner);
    EXPECT_FALSE(echoed.contains(QStringLiteral("(app:print \"inner\")")));
    EXPECT_TRUE(Do("(app:print \"later\")"));
}

TEST_F(Commands, BusyBeginsAndEndsOnceForAText)
{
    QSignalSpy busy(&Runner(), &Pellux::CommandRunner::BusyChanged);
    ASSERT_TRUE(Do("(app:print 1)(app:print 2)"));

    ASSERT_EQ(busy.count(), 2);
    EXPECT_TRUE(busy[0][0].toBool());
    EXPECT_FALSE(busy[1][0].toBool());
}

TEST_F(Commands, CancelEndsTheJobAndTheFormsBehindIt)
{
    QTimer::singleShot(20, &Runner(), [this] { Runner().Cancel(); });

    EXPECT_FALSE(Do("(let loop () (loop))\n(app:print \"unreached\")"));
    EXPECT_EQ(echoed.size(), 1);
    EXPECT_TRUE(Do("(app:print \"and goes on\")"));
}

TEST_F(Commands, TimersRunWhileAJobIsWaitedFor)
{
    int ticks = 0;
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, [&] { ++ticks; });
    timer.start(5);
    ASSERT_TRUE(Do("(usleep 200000)"));

    EXPECT_GT(ticks, 3);
}

TEST_F(Commands, WhatAHandlerThrowsIsPrintedAndNothingElse)
{
    Pellux::Guarded([] { throw std::runtime_error("a handler failed"); });
    Pellux::Guarded([] { throw 7; });
    Run().Host().DrainOutput();

    EXPECT_EQ(errors, (QStringList{QStringLiteral("a handler failed"),
                                   QStringLiteral("An unknown error happened.")}));
    EXPECT_TRUE(Do("(app:print 1)"));
}

} // namespace
