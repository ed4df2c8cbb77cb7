#include "WindowFixture.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderingOptions.h>

#include <controls/ControlsPanel.h>
#include <controls/ExplodeControl.h>
#include <controls/SectionControl.h>

#include <QCheckBox>
#include <QComboBox>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

namespace {

class ControlsWindow : public WindowFixture
{
protected:
    void openCube()
    {
        Open();
        load(WriteCube());
    }

    void openAssembly()
    {
        Open();
        load(QLatin1String(ORVIK_TEST_FOLDER "/data/assembly_ap214.step"));
    }

    void load(const QString& file)
    {
        ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(file))));
        echoed.clear();
    }

    Pellux::SectionControl& section(int number)
    {
        return *Window().findChildren<Pellux::SectionControl*>()[number - 1];
    }

    Pellux::ExplodeControl& explode() { return *Window().findChild<Pellux::ExplodeControl*>(); }

    static QSlider& slider(QWidget& control) { return *control.findChild<QSlider*>(); }

    std::vector<TambVizCore::ClipPlane> planes()
    {
        return OrvikCore::SessionMgr::Instance()
            .CurrentSession()
            .View3D()
            ->GetView3DAdapter()
            ->GetRenderingOptions()
            ->GetClipPlanes();
    }

    /// Drags a slider over some values; the pictures in between are drawn.
    static void drag(QSlider& moved, std::initializer_list<int> values)
    {
        moved.setSliderDown(true);
        for (const int value : values) {
            moved.setSliderPosition(value);
            QTest::qWait(1);
        }
    }
};

TEST_F(ControlsWindow, OpenAndCloseWhatIsCut)
{
    openCube();
    auto& caps = *Window().findChild<QCheckBox*>(QStringLiteral("section-caps"));
    EXPECT_TRUE(caps.isChecked());

    caps.click();

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(view:section-caps #f)")});
    EXPECT_FALSE(caps.isChecked());
    EXPECT_TRUE(Do("(view:section-caps #t)"));
    EXPECT_TRUE(caps.isChecked());
}

TEST_F(ControlsWindow, SwitchASectionOnInTheMiddleAndOff)
{
    openCube();

    section(1).setChecked(true);
    EXPECT_EQ(echoed, QStringList{QStringLiteral("(view:section '(0 0 5) '(0 0 1) 1)")});
    EXPECT_EQ(planes().size(), 1u);
    section(1).setChecked(false);

    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section-off 1)"));
    EXPECT_TRUE(planes().empty());
}

TEST_F(ControlsWindow, ShowWhatADragGivesAndRunOneCommandAtItsEnd)
{
    openCube();
    section(1).setChecked(true);
    echoed.clear();

    drag(slider(section(1)), {600, 700, 800});
    ASSERT_EQ(planes().size(), 1u);
    EXPECT_FLOAT_EQ(planes()[0].offset, 8.0f);
    EXPECT_TRUE(echoed.isEmpty());
    slider(section(1)).setSliderDown(false);

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(view:section '(0 0 8) '(0 0 1) 1)")});
    EXPECT_FLOAT_EQ(planes()[0].offset, 8.0f);
}

TEST_F(ControlsWindow, ADraggedSectionIsOneStepToUndo)
{
    openCube();
    section(1).setChecked(true);

    drag(slider(section(1)), {600, 500, 700, 800});
    slider(section(1)).setSliderDown(false);
    ASSERT_FLOAT_EQ(planes()[0].offset, 8.0f);
    EXPECT_TRUE(Do("(view:undo)"));

    ASSERT_EQ(planes().size(), 1u);
    EXPECT_FLOAT_EQ(planes()[0].offset, 5.0f);
    EXPECT_EQ(slider(section(1)).value(), 500);
    EXPECT_TRUE(Do("(view:undo)"));
    EXPECT_TRUE(planes().empty());
    EXPECT_FALSE(section(1).isChecked());
}

TEST_F(ControlsWindow, KeepPreviewsOutOfTheJournal)
{
    openCube();
    section(1).setChecked(true);
    drag(slider(section(1)), {600, 700});
    slider(section(1)).setSliderDown(false);
    printed.clear();

    EXPECT_TRUE(Do("(app:print (app:journal #t))"));

    const QString journal = printed.join(QLatin1Char('\n'));
    EXPECT_EQ(journal.count(QStringLiteral("(view:section ")), 2) << qPrintable(journal);
    EXPECT_TRUE(journal.contains(QStringLiteral("(view:section '(0 0 7) '(0 0 1) 1)")));
}

TEST_F(ControlsWindow, RunOneCommandWhenKeysRest)
{
    openCube();
    section(1).setChecked(true);
    echoed.clear();

    for (int i = 0; i < 5; ++i)
        QTest::keyClick(&slider(section(1)), Qt::Key_Right);

    EXPECT_TRUE(Until([this] { return !echoed.isEmpty(); }));
    EXPECT_EQ(echoed, QStringList{QStringLiteral("(view:section '(0 0 5.05) '(0 0 1) 1)")});
}

TEST_F(ControlsWindow, TurnAndFlipASection)
{
    openCube();
    section(1).setChecked(true);

    auto& axis = *section(1).findChild<QComboBox*>();
    axis.setCurrentIndex(0);
    Q_EMIT axis.activated(0);
    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section '(5 0 0) '(1 0 0) 1)"));
    section(1).findChild<QCheckBox*>()->click();

    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section '(5 0 0) '(-1 0 0) 1)"));
}

TEST_F(ControlsWindow, FollowTheSectionsOfScripts)
{
    openCube();

    EXPECT_TRUE(Do("(view:section '(0 2.5 0) '(0 -1 0))"));

    EXPECT_TRUE(section(1).isChecked());
    EXPECT_EQ(section(1).findChild<QComboBox*>()->currentIndex(), 1);
    EXPECT_TRUE(section(1).findChild<QCheckBox*>()->isChecked());
    EXPECT_EQ(slider(section(1)).value(), 250);
    EXPECT_EQ(echoed.size(), 1);
    EXPECT_TRUE(Do("(view:section-off)"));
    EXPECT_FALSE(section(1).isChecked());
}

TEST_F(ControlsWindow, OfferTheNextSectionOnly)
{
    openCube();
    EXPECT_TRUE(section(1).isEnabled());
    EXPECT_FALSE(section(2).isEnabled());

    section(1).setChecked(true);

    EXPECT_TRUE(section(2).isEnabled());
    EXPECT_FALSE(section(3).isEnabled());
}

TEST_F(ControlsWindow, SwitchOffTheSectionThatWasUntickedAndNoOther)
{
    openCube();
    EXPECT_TRUE(Do("(view:section '(4 0 0) '(1 0 0) 1)"));
    EXPECT_TRUE(Do("(view:section '(0 6 0) '(0 1 0) 2)"));
    EXPECT_TRUE(Do("(view:section '(0 0 7) '(0 0 1) 3)"));
    echoed.clear();

    section(1).setChecked(false);
    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section-off 1)"));
    EXPECT_FALSE(section(1).isChecked());
    EXPECT_TRUE(section(2).isChecked());
    EXPECT_EQ(section(2).findChild<QComboBox*>()->currentIndex(), 1);
    EXPECT_TRUE(section(3).isChecked());
    EXPECT_EQ(slider(section(3)).value(), 700);

    section(2).setChecked(false);
    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section-off 1)"));
    drag(slider(section(3)), {800});
    slider(section(3)).setSliderDown(false);
    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section '(0 0 8) '(0 0 1) 1)"));
    ASSERT_EQ(planes().size(), 1u);
    EXPECT_FLOAT_EQ(planes()[0].offset, 8.0f);
}

TEST_F(ControlsWindow, ASectionComesBackWhereItWas)
{
    openCube();
    EXPECT_TRUE(Do("(view:section '(4 0 0) '(1 0 0) 1)"));
    EXPECT_TRUE(Do("(view:section '(0 6 0) '(0 1 0) 2)"));
    section(1).setChecked(false);

    section(1).setChecked(true);
    EXPECT_EQ(echoed.back(), QStringLiteral("(view:section '(4 0 0) '(1 0 0) 2)"));
    EXPECT_TRUE(section(2).isChecked());
    EXPECT_EQ(section(2).findChild<QComboBox*>()->currentIndex(), 1);
}

TEST_F(ControlsWindow, TakeAssembliesApartAsOneStep)
{
    openAssembly();

    drag(slider(explode()), {20, 40, 60});
    EXPECT_TRUE(echoed.isEmpty());
    slider(explode()).setSliderDown(false);

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(view:explode 0.6)")});
    EXPECT_EQ(slider(explode()).value(), 60);
    EXPECT_TRUE(Do("(view:undo)"));
    EXPECT_EQ(slider(explode()).value(), 0);
    printed.clear();
    EXPECT_TRUE(Do("(app:print (view:undo))"));
    EXPECT_EQ(printed.value(0).trimmed(), QStringLiteral("#f")) << qPrintable(printed.join(u'|'));
}

TEST_F(ControlsWindow, FollowTheExplosionOfScripts)
{
    openAssembly();

    EXPECT_TRUE(Do("(view:explode 0.25)"));

    EXPECT_EQ(slider(explode()).value(), 25);
}

TEST_F(ControlsWindow, ChooseHowManyLevelsComeApart)
{
    openAssembly();
    EXPECT_TRUE(Do("(view:explode 0.5)"));

    explode().findChild<QSpinBox*>()->setValue(1);

    EXPECT_EQ(echoed.back(), QStringLiteral("(view:explode 0.5 1)"));
}

TEST_F(ControlsWindow, NameTheirPartsForThoseWhoListen)
{
    Open();

    for (const QSlider* moved : Window().findChildren<QSlider*>())
        EXPECT_FALSE(moved->accessibleName().isEmpty());
}

} // namespace
