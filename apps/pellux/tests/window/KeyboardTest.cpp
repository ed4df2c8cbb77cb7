#include <WindowFixture.h>
#include <crash/CrashNotice.h>
#include <view/ViewWidget.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QAccessible>
#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QHeaderView>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QSet>
#include <QTabBar>
#include <QTableWidget>
#include <QTest>
#include <QToolBar>

namespace {

/// What a person can do something to with the mouse.
bool isInteractive(const QWidget& widget)
{
    return qobject_cast<const QAbstractButton*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSlider*>(&widget) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(&widget) != nullptr ||
           qobject_cast<const QComboBox*>(&widget) != nullptr ||
           qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
           qobject_cast<const QTabBar*>(&widget) != nullptr;
}

/// What belongs to another widget, or does what a command of a menu does: tool bars and titles.
bool isPartOfAnother(const QWidget& widget)
{
    const QWidget* const parent = widget.parentWidget();
    return widget.objectName().startsWith(QStringLiteral("qt_")) ||
           qobject_cast<const QScrollBar*>(&widget) != nullptr ||
           qobject_cast<const QHeaderView*>(&widget) != nullptr ||
           qobject_cast<const QToolBar*>(parent) != nullptr ||
           qobject_cast<const QAbstractSpinBox*>(parent) != nullptr ||
           qobject_cast<const QComboBox*>(parent) != nullptr ||
           qobject_cast<const QLineEdit*>(parent) != nullptr ||
           qobject_cast<const QTabBar*>(parent) != nullptr ||
           qobject_cast<const QAbstractItemView*>(parent) != nullptr;
}

std::string nameOf(const QWidget& widget)
{
    return std::string(widget.metaObject()->className()) + " '" +
           widget.objectName().toStdString() + "' '" +
           widget.property("text").toString().toStdString() + "' in " +
           widget.parentWidget()->metaObject()->className();
}

class Keyboard : public WindowFixture
{
protected:
    void SetUp() override
    {
        Open();
        ASSERT_TRUE(Do(("(doc:load \"" + WriteCube().toStdString() + "\")").c_str()));
        ASSERT_TRUE(QTest::qWaitForWindowActive(&Window()));
    }

    /// Sees to it that everything in a window can be named and reached by Tab.
    static void ExpectUsable(QWidget& window)
    {
        // Without a window manager a dialog need not become the active window.
        QApplication::setActiveWindow(&window);
        ASSERT_EQ(QApplication::activeWindow(), &window);
        const QSet<const QWidget*> reached = ReachedByTab();
        int count = 0;
        for (QWidget* const widget : window.findChildren<QWidget*>()) {
            if (widget->window() != &window || !widget->isVisible() || !isInteractive(*widget) ||
                isPartOfAnother(*widget))
                continue;
            ++count;
            QAccessibleInterface* const accessible = QAccessible::queryAccessibleInterface(widget);
            ASSERT_NE(accessible, nullptr) << nameOf(*widget);
            EXPECT_FALSE(accessible->text(QAccessible::Name).isEmpty()) << nameOf(*widget);
            const QWidget* const holder =
                widget->focusProxy() == nullptr ? widget : widget->focusProxy();
            EXPECT_TRUE(!widget->isEnabled() || reached.contains(holder)) << nameOf(*widget);
        }
        EXPECT_GT(count, 0);
    }

    /// @return what has had the keyboard after a round of Tab.
    static QSet<const QWidget*> ReachedByTab()
    {
        QSet<const QWidget*> reached;
        QWidget* const window = QApplication::activeWindow();
        for (int i = 0; i < 200; ++i) {
            QWidget* const focused = QApplication::focusWidget();
            QTest::keyClick(focused == nullptr ? window : focused, Qt::Key_Tab);
            reached.insert(QApplication::focusWidget());
        }
        return reached;
    }

    void ExpectFocusIn(const char* part)
    {
        const auto* const widget = Window().findChild<QWidget*>(QString::fromLatin1(part));
        ASSERT_NE(widget, nullptr);
        QWidget* const focused = QApplication::focusWidget();
        EXPECT_TRUE(focused == widget || widget->isAncestorOf(focused))
            << part << ": " << (focused == nullptr ? "nothing" : nameOf(*focused));
    }

    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
};

TEST_F(Keyboard, ReachesAndNamesEverythingInTheWindow)
{
    ASSERT_TRUE(Do("(view:section '(5 5 5) '(0.6 0.8 0) 1)"));
    Pellux::CrashedRun run;
    run.hasJournal = true;
    Window().Crashes().ShowRuns({run});
    ExpectUsable(Window());
}

class KeyboardInPanels : public Keyboard, public ::testing::WithParamInterface<const char*>
{
};

TEST_P(KeyboardInPanels, ReachesAndNamesEverything)
{
    ASSERT_TRUE(Do(("(app:show-panel \"" + std::string(GetParam()) + "\" #t)").c_str()));
    QWidget* shown = nullptr;
    for (QWidget* const widget : QApplication::topLevelWidgets())
        if (widget->isVisible() && widget->parent() == &Window())
            shown = widget;
    ASSERT_NE(shown, nullptr);
    auto* const pages = shown->findChild<QTabWidget*>();
    for (int page = 0; page < (pages == nullptr ? 1 : pages->count()); ++page) {
        if (pages != nullptr)
            pages->setCurrentIndex(page);
        ExpectUsable(*shown);
    }
}

INSTANTIATE_TEST_SUITE_P(Each, KeyboardInPanels,
                         ::testing::Values("commands", "keys", "journal", "preferences"),
                         [](const auto& tested) { return std::string(tested.param); });

TEST_F(Keyboard, GoesFromPartToPartByF6)
{
    Window().View().setFocus();
    for (const char* const part : {"tree", "properties", "controls", "console", "view", "tree"}) {
        Press(Qt::Key_F6);
        ExpectFocusIn(part);
    }
    for (const char* const part : {"view", "console", "controls"}) {
        Press(Qt::Key_F6, Qt::ShiftModifier);
        ExpectFocusIn(part);
    }
}

TEST_F(Keyboard, EntersAPanelThatACommandShows)
{
    for (const char* const part : {"tree", "properties", "console", "controls"}) {
        ASSERT_TRUE(Do(("(app:show-panel \"" + std::string(part) + "\" #t)").c_str()));
        ExpectFocusIn(part);
        EXPECT_NE(QApplication::focusWidget()->focusPolicy(), Qt::NoFocus) << part;
    }
}

TEST_F(Keyboard, IsExplainedInTheListOfKeys)
{
    ASSERT_TRUE(Do("(app:show-panel \"keys\" #t)"));
    const auto* const table = Find<QWidget>("keys")->findChild<QTableWidget*>();
    ASSERT_NE(table, nullptr);
    EXPECT_EQ(table->findItems(QStringLiteral("F6"), Qt::MatchExactly).size(), 1);
    EXPECT_EQ(table->findItems(QStringLiteral("Shift+F6"), Qt::MatchExactly).size(), 1);
}

TEST_F(Keyboard, PassesPanelsOverThatAreNotShown)
{
    Window().View().setFocus();
    Find<QDockWidget>("tree")->hide();
    Find<QDockWidget>("properties")->hide();
    Press(Qt::Key_F6);

    ExpectFocusIn("controls");
}

TEST_F(Keyboard, EntersAPartWhereItWasLeft)
{
    auto* const field = Find<QDockWidget>("tree")->findChild<QLineEdit*>();
    ASSERT_NE(field, nullptr);
    field->setFocus();
    Press(Qt::Key_F6, Qt::ShiftModifier);
    ExpectFocusIn("view");
    Press(Qt::Key_F6);

    EXPECT_EQ(QApplication::focusWidget(), field);
}

} // namespace
