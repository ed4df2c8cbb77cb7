#include <WindowFixture.h>
#include <actions/ActionTable.h>
#include <actions/WindowMenus.h>
#include <console/ConsoleOutput.h>
#include <window/WindowLayout.h>

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QTest>
#include <QTimer>

namespace {

const QString kHideTree = QStringLiteral("(app:show-panel \"tree\" #f)");

class Docks : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        m_tree = Find<QDockWidget>("tree");
        ASSERT_NE(m_tree, nullptr);
        echoed.clear();
    }

    /// What a person clicks to close a dock.
    static QAbstractButton* CloseButton(const QDockWidget& dock)
    {
        return dock.findChild<QAbstractButton*>(QStringLiteral("qt_dockwidget_closebutton"));
    }

    QDockWidget* m_tree = nullptr;
};

TEST_F(Docks, TheCloseButtonOfEachRunsTheCommandOfTheMenu)
{
    for (QDockWidget* const dock : Window().findChildren<QDockWidget*>()) {
        echoed.clear();
        ASSERT_NE(CloseButton(*dock), nullptr) << qPrintable(dock->objectName());
        QTest::mouseClick(CloseButton(*dock), Qt::LeftButton);

        EXPECT_TRUE(dock->isHidden()) << qPrintable(dock->objectName());
        EXPECT_EQ(
            echoed,
            QStringList{QStringLiteral("(app:show-panel \"%1\" #f)").arg(dock->objectName())});
        EXPECT_FALSE(Find<QAction>(("panel." + dock->objectName().toLatin1()).data())->isChecked());
    }
}

TEST_F(Docks, TheConsoleHasTheLineOfADockThatWasClosed)
{
    QTest::mouseClick(CloseButton(*m_tree), Qt::LeftButton);

    const auto* const output = Find<QDockWidget>("console")->findChild<Pellux::ConsoleOutput*>();
    ASSERT_NE(output, nullptr);
    EXPECT_TRUE(Until([&] { return output->toPlainText().contains(kHideTree); }));
}

TEST_F(Docks, AFloatingOneThatTheWindowManagerClosesRunsTheCommandToo)
{
    m_tree->setFloating(true);
    ASSERT_TRUE(m_tree->isWindow());
    m_tree->window()->close();

    EXPECT_TRUE(m_tree->isHidden());
    EXPECT_EQ(echoed.join(u'\n').toStdString(), kHideTree.toStdString());
}

TEST_F(Docks, OneThatIsClosedWhileSomethingRunsGoesAfterwards)
{
    QTimer::singleShot(0, &Window(), [this] {
        QTest::mouseClick(CloseButton(*m_tree), Qt::LeftButton);
        EXPECT_FALSE(m_tree->isHidden());
    });
    Do("(usleep 100000)");

    EXPECT_TRUE(Until([this] { return m_tree->isHidden(); }));
    EXPECT_EQ(echoed.last().toStdString(), kHideTree.toStdString());
}

TEST_F(Docks, AFloatingOneIsThereAgainInTheNextRun)
{
    m_tree->setFloating(true);
    QTimer::singleShot(0, [this] { Do("(app:quit)"); });
    QTimer::singleShot(20'000, [] { QCoreApplication::exit(99); });
    EXPECT_EQ(QApplication::exec(), 0);
    EXPECT_FALSE(echoed.contains(kHideTree));
    Close();

    QMainWindow next;
    auto* const again = new QDockWidget(QStringLiteral("Model tree"), &next);
    again->setObjectName(QStringLiteral("tree"));
    next.addDockWidget(Qt::LeftDockWidgetArea, again);
    Pellux::WindowLayout::Restore(next);
    EXPECT_FALSE(again->isHidden());
    EXPECT_TRUE(again->isFloating());
}

} // namespace
