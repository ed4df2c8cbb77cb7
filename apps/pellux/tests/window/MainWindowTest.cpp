#include <WindowFixture.h>
#include <actions/ActionTable.h>
#include <actions/WindowMenus.h>
#include <view/ViewWidget.h>
#include <window/WindowLayout.h>

#include <QApplication>
#include <QDockWidget>
#include <QMainWindow>
#include <QSet>
#include <QTest>
#include <algorithm>
#include <filesystem>

namespace {

class Frame : public WindowFixture
{
};

TEST_F(Frame, RemembersWhereItsPartsLay)
{
    QMainWindow before;
    auto* const dock = new QDockWidget(QStringLiteral("Panel"), &before);
    dock->setObjectName(QStringLiteral("panel"));
    before.addDockWidget(Qt::LeftDockWidgetArea, dock);
    before.resize(500, 400);
    before.addDockWidget(Qt::BottomDockWidgetArea, dock);
    Pellux::WindowLayout::Save(before);

    QMainWindow after;
    auto* const same = new QDockWidget(QStringLiteral("Panel"), &after);
    same->setObjectName(QStringLiteral("panel"));
    after.addDockWidget(Qt::LeftDockWidgetArea, same);
    Pellux::WindowLayout::Restore(after);

    EXPECT_EQ(after.dockWidgetArea(same), Qt::BottomDockWidgetArea);
    EXPECT_EQ(after.size(), QSize(500, 400));
}

TEST_F(Frame, PutsItsPartsBackWhereTheyWereAtFirst)
{
    Open();
    auto* const dock = Window().findChild<QDockWidget*>();
    ASSERT_NE(dock, nullptr);
    dock->hide();
    Do("(app:reset-layout)");

    EXPECT_TRUE(dock->isVisible());
}

TEST_F(Frame, WritesWhereItsPartsLieWhenItEnds)
{
    Open();
    Close();

    EXPECT_TRUE(std::filesystem::exists(Dir().Path() / "state/pellux/window.ini"));
}

TEST_F(Frame, OpensWithARememberedLayoutThatIsNone)
{
    Dir().Write("state/pellux/window.ini",
                "[window]\ngeometry=nonsense\nstate=@ByteArray(\\0\\1\\2)\n");
    Open();

    EXPECT_TRUE(Window().isVisible());
    EXPECT_GT(Window().width(), 300);
}

TEST_F(Frame, EveryPanelHasANameForTheLayoutAndForThoseWhoListen)
{
    Open();
    QStringList names;
    for (const QDockWidget* const dock : Window().findChildren<QDockWidget*>()) {
        EXPECT_FALSE(dock->objectName().isEmpty());
        EXPECT_FALSE(dock->windowTitle().isEmpty());
        EXPECT_FALSE(names.contains(dock->objectName())) << qPrintable(dock->objectName());
        names << dock->objectName();
    }

    EXPECT_GE(names.size(), 4);
    for (const QString& name : names)
        EXPECT_NE(Window().Menus().Actions().Find("panel." + name.toLatin1()), nullptr)
            << qPrintable(name);
}

TEST_F(Frame, WidgetsThatTakeTheKeyboardHaveAccessibleNames)
{
    Open();
    for (const QWidget* const widget : Window().findChildren<QWidget*>()) {
        const bool isReached = (widget->focusPolicy() & Qt::TabFocus) != 0 &&
                               !widget->objectName().startsWith(QStringLiteral("qt_"));
        const bool isNamed =
            !widget->accessibleName().isEmpty() || !widget->property("text").toString().isEmpty();
        EXPECT_TRUE(!isReached || isNamed)
            << widget->metaObject()->className() << ' ' << qPrintable(widget->objectName());
    }
}

TEST_F(Frame, TabReachesTheViewAndEveryPanel)
{
    Open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    Window().View().setFocus();
    QSet<const QWidget*> met;
    for (int i = 0; i < 100; ++i) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        met.insert(QApplication::focusWidget());
    }

    EXPECT_TRUE(met.contains(&Window().View()));
    for (const QDockWidget* const dock : Window().findChildren<QDockWidget*>())
        EXPECT_TRUE(dock->isHidden() ||
                    std::any_of(met.begin(), met.end(),
                                [dock](const QWidget* w) { return dock->isAncestorOf(w); }))
            << qPrintable(dock->objectName());
}

} // namespace
