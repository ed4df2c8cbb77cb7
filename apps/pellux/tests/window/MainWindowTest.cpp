#include <WindowFixture.h>

#include <QDockWidget>
#include <QFile>
#include <QTest>

namespace {

class Frame : public WindowFixture
{
};

TEST_F(Frame, RemembersWhereItsPartsLay)
{
    Open();
    auto* const dock = Window().findChild<QDockWidget*>();
    ASSERT_NE(dock, nullptr);
    const QString name = dock->objectName();
    Window().resize(900, 640);
    dock->hide();
    Close();
    ASSERT_TRUE(
        QFile::exists(QString::fromStdString((Dir().Path() / "state/pellux/window.ini").string())));

    Open();
    EXPECT_EQ(Window().size(), QSize(900, 640));
    EXPECT_FALSE(Find<QDockWidget>(qPrintable(name))->isVisible());

    Window().ResetLayout();
    EXPECT_TRUE(Find<QDockWidget>(qPrintable(name))->isVisible());
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

    EXPECT_GE(Window().PanelActions().size(), names.size());
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

} // namespace
