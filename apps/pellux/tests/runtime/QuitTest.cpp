#include <WindowFixture.h>

#include <QApplication>
#include <QTimer>

namespace {

/// The program's own event loop, as main() runs it.
class Quitting : public WindowFixture
{
protected:
    void SetUp() override { Open(); }

    /// Does something in the event loop and waits for its end; a loop that does not end in time
    /// ends with 99.
    static int ExecWhile(const std::function<void()>& what)
    {
        QTimer::singleShot(0, what);
        QTimer::singleShot(20'000, [] { QCoreApplication::exit(99); });
        return QApplication::exec();
    }
};

TEST_F(Quitting, AScriptEndsTheProgramWithItsCode)
{
    bool wasGood = false;
    EXPECT_EQ(ExecWhile([&] { wasGood = Do("(app:quit 7)"); }), 0);

    EXPECT_TRUE(wasGood);
    EXPECT_EQ(Close(), 7);
}

TEST_F(Quitting, TheFormsOfTheTextRunToTheirEnd)
{
    EXPECT_EQ(ExecWhile([&] { Do("(app:quit)\n(app:print \"still\")"); }), 0);

    EXPECT_EQ(printed, QStringList{QStringLiteral("still")});
    EXPECT_EQ(Close(), 0);
}

TEST_F(Quitting, ClosingTheWindowEndsTheProgram)
{
    EXPECT_EQ(ExecWhile([&] { Window().close(); }), 0);

    EXPECT_EQ(Close(), 0);
}

TEST_F(Quitting, ClosingWhileBusyEndsTheProgramAfterwards)
{
    bool wasGood = false;
    EXPECT_EQ(ExecWhile([&] {
                  QTimer::singleShot(0, &Window(), [this] { Window().close(); });
                  wasGood = Do("(usleep 100000)\n(app:print \"ended\")");
              }),
              0);

    EXPECT_TRUE(wasGood);
    EXPECT_EQ(printed.last(), QStringLiteral("ended"));
    EXPECT_EQ(Close(), 0);
}

} // namespace
