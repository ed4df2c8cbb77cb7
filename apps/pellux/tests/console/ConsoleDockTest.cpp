#include "WindowFixture.h"

#include <OrvikCore/IApplication.h>
#include <OrvikCore/SessionMgr.h>

#include <console/CompletionPopup.h>
#include <console/ConsoleDock.h>
#include <console/ConsoleInput.h>
#include <console/ConsoleOutput.h>

#include <QClipboard>
#include <QElapsedTimer>
#include <QGuiApplication>
#include <QLabel>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <iostream>

namespace {

class ConsoleDock : public WindowFixture
{
protected:
    ConsoleDock() { Open(); }

    Pellux::ConsoleInput& input() { return Window().Console().Input(); }

    QString text()
    {
        Window().Console().Output().Flush();
        return Window().Console().Output().toPlainText();
    }

    void type(const char* keys) { QTest::keyClicks(&input(), QString::fromLatin1(keys)); }
    void press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(&input(), static_cast<Qt::Key>(key), modifiers);
    }
};

TEST_F(ConsoleDock, RunsAWholeCommandWithReturn)
{
    type("(+ 1 2)");
    press(Qt::Key_Return);
    EXPECT_TRUE(text().endsWith(QStringLiteral("> (+ 1 2)\n3"))) << text().toStdString();
    EXPECT_TRUE(input().toPlainText().isEmpty());
}

TEST_F(ConsoleDock, MakesANewLineInAnUnfinishedForm)
{
    type("(begin");
    press(Qt::Key_Return);
    EXPECT_EQ(input().toPlainText(), QStringLiteral("(begin\n  "));
    type("\")\"");
    press(Qt::Key_Return);
    EXPECT_EQ(echoed.size(), 0);
    type("7)");
    press(Qt::Key_Return);
    ASSERT_EQ(echoed.size(), 1);
    EXPECT_EQ(printed.last().trimmed(), QStringLiteral("7"));
}

TEST_F(ConsoleDock, RunsWhatClosesTooMuchSoThatTheEngineComplains)
{
    type("(+ 1 2))");
    press(Qt::Key_Return);
    EXPECT_EQ(errors.size(), 1);
}

TEST_F(ConsoleDock, RunsAnUnfinishedFormWhenForced)
{
    type("(+ 1");
    press(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(errors.size(), 1);
    EXPECT_TRUE(text().contains(QStringLiteral("error: console:1:1: ")));
}

TEST_F(ConsoleDock, ShowsEarlierCommandsAfterANewStart)
{
    type("(+ 1 2)");
    press(Qt::Key_Return);

    const auto* const application = OrvikCore::SessionMgr::Instance().GetApplication();
    Pellux::ConsoleInput next(QString::fromStdWString(application->GetStateFolder()) +
                              QStringLiteral("/console-history"));
    QTest::keyClicks(&next, QStringLiteral("(new"));
    QTest::keyClick(&next, Qt::Key_Up);
    EXPECT_EQ(next.toPlainText(), QStringLiteral("(+ 1 2)"));
    QTest::keyClick(&next, Qt::Key_Down);
    EXPECT_EQ(next.toPlainText(), QStringLiteral("(new"));
}

TEST_F(ConsoleDock, CompletesCommandsWithTheirHelp)
{
    type("(view:zoom-a");
    ASSERT_TRUE(input().Popup().isVisible());
    EXPECT_EQ(input().Popup().Marked(), QStringLiteral("view:zoom-all"));
    EXPECT_TRUE(input().Popup().findChild<QLabel*>()->text().contains(
        QStringLiteral("Moves the camera so that everything is seen.")));
    press(Qt::Key_Tab);
    EXPECT_EQ(input().toPlainText(), QStringLiteral("(view:zoom-all"));
    EXPECT_FALSE(input().Popup().isVisible());
}

TEST_F(ConsoleDock, ReturnRunsWhileCompletionsOpenedByThemselves)
{
    type("(app:journal)");
    press(Qt::Key_Left);
    type(" ");
    press(Qt::Key_Backspace);
    ASSERT_FALSE(input().toPlainText().isEmpty());
    press(Qt::Key_Return);
    EXPECT_EQ(echoed, QStringList(QStringLiteral("(app:journal)")));
}

TEST_F(ConsoleDock, ShowsTheSignatureOfTheFormAtTheCursor)
{
    const QSignalSpy help(&input(), &Pellux::ConsoleInput::HelpChanged);
    type("(view:section ");
    EXPECT_TRUE(help.last().first().toString().startsWith(
        QStringLiteral("view:section point normal [number]")));
}

TEST_F(ConsoleDock, MarksTheBracketThatBelongs)
{
    type("(a (b))");
    const auto marks = input().extraSelections();
    ASSERT_EQ(marks.size(), 2);
    EXPECT_EQ(marks[0].cursor.selectionStart(), 6);
    EXPECT_EQ(marks[1].cursor.selectionStart(), 0);
}

TEST_F(ConsoleDock, CopiesWhatWasRunAsAScript)
{
    type("(app:print \"hello\")");
    press(Qt::Key_Return);
    type("(+ 1 2)");
    press(Qt::Key_Return);
    Window().Console().CopyAsScript();
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("(app:print \"hello\")\n(+ 1 2)\n"));
}

TEST_F(ConsoleDock, TakesNoTextWhileBusyAndKeepsWhatIsTyped)
{
    input().setFocus();
    bool wasReadOnly = false;
    QTimer::singleShot(50, &input(), [&] {
        wasReadOnly = input().isReadOnly();
        type("(+ 2 3)");
        press(Qt::Key_Return);
    });
    Do("(usleep 300000)");
    EXPECT_TRUE(wasReadOnly);
    EXPECT_TRUE(Until([this] { return echoed.contains(QStringLiteral("(+ 2 3)")); }));
}

TEST_F(ConsoleDock, CancelEndsWhatRuns)
{
    QToolButton* cancel = nullptr;
    for (auto* const button : Window().Console().findChildren<QToolButton*>()) {
        if (button->text() == QStringLiteral("Cancel"))
            cancel = button;
    }
    ASSERT_NE(cancel, nullptr);
    EXPECT_FALSE(cancel->isEnabled());
    QTimer::singleShot(50, cancel, [cancel] { QTest::mouseClick(cancel, Qt::LeftButton); });
    EXPECT_FALSE(Do("(let loop () (loop))"));
    EXPECT_FALSE(cancel->isEnabled());
}

TEST_F(ConsoleDock, HasANameForEverythingThatTakesTheFocus)
{
    for (const QWidget* const widget : Window().Console().findChildren<QWidget*>()) {
        if (widget->focusPolicy() == Qt::NoFocus || !widget->metaObject()->className() ||
            QByteArray(widget->metaObject()->className()).startsWith("QDock") ||
            widget->objectName().startsWith(QStringLiteral("qt_")))
            continue;
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->metaObject()->className();
    }
}

TEST_F(ConsoleDock, PrintsTwentyThousandLines)
{
    QElapsedTimer timer;
    timer.start();
    ASSERT_TRUE(Do("(do ((i 0 (+ i 1))) ((= i 20000)) (app:print \"line \" i))"));
    const qint64 runMs = timer.restart();
    Window().Console().Output().Flush();
    std::cout << "20,000 printed lines: run " << runMs << " ms, shown in " << timer.elapsed()
              << " ms" << std::endl;
    EXPECT_TRUE(text().contains(QStringLiteral("line 19999")));
}

} // namespace
