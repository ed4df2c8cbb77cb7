#include <WindowFixture.h>
#include <actions/WindowMenus.h>
#include <crash/CrashNotice.h>
#include <files/FileNotice.h>
#include <view/ViewWidget.h>

#include <QApplication>
#include <QComboBox>
#include <QDockWidget>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTest>

namespace {

/// A display of 1440 x 900 at a scale of two, less what a window manager takes.
constexpr QSize kSmall(710, 410);

class SmallScreens : public WindowFixture
{
protected:
    void SetUp() override { Open(); }

    void MakeSmall()
    {
        Window().resize(kSmall);
        QCoreApplication::processEvents();
        EXPECT_EQ(Window().size(), kSmall);
    }

    /// Sees to it that the controls of sections can be reached by scrolling up and down alone.
    void ExpectWholeColumn()
    {
        const auto* const area = Find<QDockWidget>("controls")->findChild<QScrollArea*>();
        ASSERT_NE(area, nullptr);
        EXPECT_FALSE(area->horizontalScrollBar()->isVisible());
        EXPECT_LE(area->widget()->width(), area->viewport()->width());
        EXPECT_GE(area->widget()->width(), area->widget()->minimumSizeHint().width());
    }
};

TEST_F(SmallScreens, TheViewHasMostOfTheWindowAtFirst)
{
    EXPECT_LE(Window().height(), Window().screen()->availableSize().height());
    EXPECT_GE(Window().View().width(), Window().width() * 2 / 5);
    EXPECT_GE(Window().View().height(), Window().height() / 2);
}

TEST_F(SmallScreens, TheControlsOfSectionsAreAsWideAsTheirDock)
{
    ExpectWholeColumn();
    MakeSmall();
    ExpectWholeColumn();
}

TEST_F(SmallScreens, ASectionOfAnyDirectionMakesThePanelNoWider)
{
    ASSERT_TRUE(Do(("(doc:load \"" + WriteCube().toStdString() + "\")").c_str()));
    ASSERT_TRUE(Do("(view:section '(5 5 5) '(0.6 0.8 0) 1)"));
    const auto* const axis = Find<QDockWidget>("controls")->findChild<QComboBox*>();
    ASSERT_NE(axis, nullptr);
    ASSERT_EQ(axis->currentText(), QStringLiteral("Free"));
    MakeSmall();
    ExpectWholeColumn();
}

TEST_F(SmallScreens, TheViewIsNeverSqueezedAway)
{
    MakeSmall();

    EXPECT_GE(Window().View().width(), 240);
    EXPECT_GE(Window().View().height(), 100);
}

TEST_F(SmallScreens, ANoticeOfACrashDoesNotWidenTheWindow)
{
    Pellux::CrashedRun run;
    run.record.processId = 12345;
    run.hasReport = true;
    run.record.report = L"/home/somebody/.local/state/pellux/crash-12345";
    run.hasJournal = true;
    Window().Crashes().ShowRuns({run});
    ASSERT_TRUE(Window().Crashes().isVisible());
    Window().resize(kSmall);
    QCoreApplication::processEvents();

    EXPECT_EQ(Window().width(), kSmall.width());
    EXPECT_LE(Window().height(), 440);
    EXPECT_GE(Window().Crashes().height(),
              Window().Crashes().heightForWidth(Window().Crashes().width()));
}

TEST_F(SmallScreens, ANoticeOfAFileStandsBelowTheOneOfACrash)
{
    Pellux::FileNotice& notice = Window().Menus().Files().Notice();
    notice.Show(QStringLiteral("The file cannot be read."));
    Pellux::CrashedRun run;
    run.hasJournal = true;
    Window().Crashes().ShowRuns({run});
    QCoreApplication::processEvents();

    const auto frameOf = [this](const QWidget& widget) {
        return QRect(widget.mapTo(&Window(), QPoint()), widget.size());
    };
    ASSERT_TRUE(notice.isVisible());
    EXPECT_FALSE(frameOf(notice).intersects(frameOf(Window().Crashes())));
    EXPECT_TRUE(frameOf(Window().View()).contains(frameOf(notice)));
}

TEST_F(SmallScreens, PanelsOfTheirOwnFitTheScreen)
{
    const QSize room = Window().screen()->availableSize();
    const auto shown = [this]() -> const QWidget* {
        for (const QWidget* const widget : QApplication::topLevelWidgets())
            if (widget->isVisible() && widget != &Window() && widget->parent() == &Window())
                return widget;
        return nullptr;
    };
    for (const char* const name : {"commands", "keys", "about", "journal", "preferences"}) {
        ASSERT_TRUE(Do(("(app:show-panel \"" + std::string(name) + "\" #t)").c_str()));
        const QWidget* const panel = shown();
        ASSERT_NE(panel, nullptr);
        EXPECT_LE(panel->height(), room.height()) << name;
        EXPECT_LE(panel->minimumSizeHint().width(), kSmall.width()) << name;
        EXPECT_LE(panel->minimumSizeHint().height(), kSmall.height()) << name;
        ASSERT_TRUE(Do(("(app:show-panel \"" + std::string(name) + "\" #f)").c_str()));
    }
}

} // namespace
