#include "RunFolderWithFaults.h"

#include <OrvikOs/ExecutablePath.h>

#include <WindowFixture.h>
#include <files/FileNotice.h>
#include <view/ViewWidget.h>

#include <QImage>
#include <QPixmap>
#include <QTimer>
#include <ostream>
#include <string>

namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool kStackIsGuarded = false; // The sanitizers keep the guard pages for themselves.
#else
constexpr bool kStackIsGuarded = true;
#endif

/// The whole window with plugins that go wrong beside the program.
class WithFaults : public WindowFixture
{
protected:
    void SetUp() override
    {
        MakeRunFolderWithFaults(Dir().Path() / "bin");
        OrvikOs::SetExecutablePath(Dir().WidePath(L"bin/pellux"));
        options.withJournal = true;
        Open();
    }

    bool Load(const QString& path)
    {
        return Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(path));
    }

    QString Wrong(const std::string& how)
    {
        return QString::fromStdWString(Dir().Write("a.wrong", how));
    }

    /// A next command runs, and the view draws what it loads.
    void ExpectAllIsWell()
    {
        errors.clear();
        printed.clear();
        EXPECT_TRUE(Do("(app:print \"alive\")")) << qPrintable(errors.join(u'\n'));
        EXPECT_EQ(printed, QStringList{QStringLiteral("alive")});
        ASSERT_TRUE(Load(WriteCube())) << qPrintable(errors.join(u'\n'));
        ASSERT_TRUE(Do("(view:front) (view:zoom-all)"));
        const QImage picture = Window().View().grab().toImage();
        EXPECT_NE(picture.pixel(picture.width() / 2, picture.height() / 2), picture.pixel(3, 3));
        EXPECT_EQ(errors, QStringList());
        EXPECT_FALSE(Runner().IsBusy());
        EXPECT_EQ(Close(), 0);
    }

    QString Errors() const { return errors.join(u'\n'); }
};

struct Way
{
    const char* name;
    const char* how;
    const char* message; ///< In what is printed.
};

void PrintTo(const Way& way, std::ostream* stream)
{
    *stream << way.name;
}

std::string nameOf(const ::testing::TestParamInfo<Way>& info)
{
    return info.param.name;
}

const Way kWays[] = {
    {"Null", "null", "EXCEPTION_ACCESS_VIOLATION"},
    {"Division", "divide", "EXCEPTION_INT_DIVIDE_BY_ZERO"},
    {"Stack", "stack", "EXCEPTION_STACK_OVERFLOW"},
    {"PureVirtual", "pure", "ure virtual"},
    {"Abort", "abort", "Abnormal abort."},
    {"Exception", "throw", "It does not work."},
    {"OddException", "throw-oddly", "nrecognized exception"},
};

class FaultsOfALoader : public WithFaults, public ::testing::WithParamInterface<Way>
{
};

TEST_P(FaultsOfALoader, AreToldAndTheWindowGoesOn)
{
    if (!kStackIsGuarded && GetParam().how == std::string("stack"))
        GTEST_SKIP() << "a sanitizer keeps the guard pages for itself";
    EXPECT_FALSE(Load(Wrong(GetParam().how)));

    EXPECT_TRUE(Errors().contains(QLatin1String(GetParam().message))) << qPrintable(Errors());
    EXPECT_TRUE(Find<Pellux::FileNotice>("file-notice")->isVisible());
    ExpectAllIsWell();
}

INSTANTIATE_TEST_SUITE_P(All, FaultsOfALoader, ::testing::ValuesIn(kWays), nameOf);

class FaultsOfACommand : public WithFaults, public ::testing::WithParamInterface<Way>
{
};

TEST_P(FaultsOfACommand, AreToldAndTheWindowGoesOn)
{
    if (!kStackIsGuarded && GetParam().how == std::string("stack"))
        GTEST_SKIP() << "a sanitizer keeps the guard pages for itself";
    EXPECT_FALSE(Do(("(test:go-wrong \"" + std::string(GetParam().how) + "\")").c_str()));

    EXPECT_TRUE(Errors().contains(QLatin1String(GetParam().message))) << qPrintable(Errors());
    ExpectAllIsWell();
}

INSTANTIATE_TEST_SUITE_P(All, FaultsOfACommand, ::testing::ValuesIn(kWays), nameOf);

class FaultsOfAScript : public WithFaults, public ::testing::WithParamInterface<Way>
{
};

TEST_P(FaultsOfAScript, AreToldAndTheWindowGoesOn)
{
    EXPECT_FALSE(Do(GetParam().how));

    EXPECT_TRUE(Errors().contains(QLatin1String(GetParam().message))) << qPrintable(Errors());
    ExpectAllIsWell();
}

INSTANTIATE_TEST_SUITE_P(All, FaultsOfAScript,
                         ::testing::Values(Way{"Type", "(car 5)", "car"},
                                           Way{"Division", "(/ 1 0)", "Numerical overflow"},
                                           Way{"Raise", "(raise 'odd)", "odd"},
                                           Way{"Throw", "(throw 'strange 1 2)", "strange"},
                                           Way{"Stack",
                                               "(define (deeper n) (+ 1 (deeper n)))\n(deeper 1)",
                                               "The recursion is too deep"},
                                           Way{"Exit", "(primitive-exit 7)", "exit"},
                                           Way{"Syntax", "(", "unexpected end of input"}),
                         nameOf);

class Runaways : public WithFaults
{
protected:
    /// Cancels what runs once it does.
    void CancelSoon()
    {
        QTimer::singleShot(50, &Runner(), [this] {
            m_wasRunning = Runner().IsRunning();
            Runner().Cancel();
        });
    }

    bool m_wasRunning = false;
};

TEST_F(Runaways, ALoaderIsCancelled)
{
    CancelSoon();

    EXPECT_FALSE(Load(Wrong("cancellable")));
    EXPECT_TRUE(m_wasRunning);
    ExpectAllIsWell();
}

TEST_F(Runaways, ACommandIsCancelled)
{
    CancelSoon();

    EXPECT_FALSE(Do("(test:go-wrong \"cancellable\")"));
    EXPECT_TRUE(m_wasRunning);
    ExpectAllIsWell();
}

TEST_F(Runaways, AScriptThatShrugsItOffIsCancelledAgain)
{
    CancelSoon();

    EXPECT_FALSE(Do("(begin (catch #t (lambda () (let loop () (loop))) (lambda rest #f))\n"
                    "       (let loop () (loop)))"));
    EXPECT_TRUE(m_wasRunning);
    ExpectAllIsWell();
}

TEST_F(WithFaults, ManyFaultsInARowLeaveTheWindowAlive)
{
    for (int round = 0; round < 20; ++round) {
        EXPECT_FALSE(Load(Wrong(round % 2 == 0 ? "null" : "throw-oddly")));
        EXPECT_FALSE(Do("(test:go-wrong \"divide\")"));
    }
    ExpectAllIsWell();
}

} // namespace
