#include "WindowFixture.h"

#include <OrvikCore/JobDispatcher.h>

#include <properties/PropertiesPanel.h>
#include <properties/PropertyTexts.h>

#include <QAction>
#include <QClipboard>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QTreeView>

namespace {

using Pellux::PropertyList;

class PropertiesWindow : public WindowFixture
{
protected:
    void openCube()
    {
        Open();
        ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1\")").arg(WriteCube()))));
    }

    Pellux::PropertiesPanel& panel() { return *Window().findChild<Pellux::PropertiesPanel*>(); }

    QTreeView& view() { return *panel().findChild<QTreeView*>(); }

    /// Selects, and waits for all answers.
    void select(const char* entities)
    {
        EXPECT_TRUE(Do(qPrintable(QStringLiteral("(sel:set %1)").arg(QLatin1String(entities)))));
        EXPECT_TRUE(Until([this] { return !panel().IsAsking(); }));
    }

    int rowOf(const char* label)
    {
        const PropertyList& list = panel().List();
        for (int row = 0; row < list.rowCount(); ++row)
            if (list.index(row, PropertyList::Label).data().toString() == QLatin1String(label))
                return row;
        return -1;
    }

    QString value(const char* label, PropertyList::Column column = PropertyList::Value)
    {
        const int row = rowOf(label);
        return row < 0 ? QString() : panel().List().index(row, column).data().toString();
    }

    /// @return the values of which the rows do not show all.
    QStringList cutValues()
    {
        QStringList cut;
        const int width = view().columnWidth(PropertyList::Value);
        for (int row = 0; row < panel().List().rowCount(); ++row) {
            const QModelIndex cell = panel().List().index(row, PropertyList::Value);
            const QRect text = view().fontMetrics().boundingRect(
                QRect(0, 0, width, 1000), Qt::TextWordWrap, cell.data().toString());
            if (text.width() > width || text.height() > view().visualRect(cell).height())
                cut << cell.data().toString();
        }
        return cut;
    }

    QImage picture()
    {
        const QString file =
            QFileInfo(WriteCube("beside.stl")).path() + QStringLiteral("/picture.png");
        EXPECT_TRUE(Do(qPrintable(QStringLiteral("(view:save-image \"%1\" 200 150)").arg(file))));
        return QImage(file);
    }

    void trigger(const char* text)
    {
        for (QAction* action : view().actions())
            if (action->text() == QLatin1String(text))
                return action->trigger();
        FAIL() << text;
    }
};

constexpr char kTop[] = "(app:pick-face 5 5 100 0 0 -1 0.1)";

TEST_F(PropertiesWindow, TellWhatAFaceIs)
{
    openCube();

    select(kTop);

    EXPECT_EQ(value("Type"), QStringLiteral("face"));
    EXPECT_EQ(value("Surface"), QStringLiteral("plane"));
    EXPECT_EQ(value("Area"), QStringLiteral("100 units\u00B2"));
    EXPECT_EQ(value("Area", PropertyList::How), QStringLiteral("triangles"));
    EXPECT_EQ(value("Normal"), QStringLiteral("0, 0, 1"));
    EXPECT_EQ(value("Centre"), QStringLiteral("5, 5, 10 units"));
    EXPECT_EQ(rowOf("Radius"), -1);
}

TEST_F(PropertiesWindow, AreExactForSolids)
{
    Open();
    ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1/data/hole_plate.step\")")
                                  .arg(QLatin1String(ORVIK_TEST_FOLDER)))));

    select("(sel:by-kind \"body\")");

    EXPECT_EQ(value("Volume", PropertyList::How), QStringLiteral("exact"));
    EXPECT_TRUE(value("Volume").endsWith(QStringLiteral(" mm\u00B3")))
        << qPrintable(value("Volume"));
}

TEST_F(PropertiesWindow, TellTheDiameterOfAHoleInMillimetres)
{
    Open();
    ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1/data/hole_plate.step\")")
                                  .arg(QLatin1String(ORVIK_TEST_FOLDER)))));

    select("(car (filter (lambda (face) (equal? (entity:surface face) \"cylinder\")) "
           "(sel:by-kind \"face\")))");

    EXPECT_EQ(value("Surface"), QStringLiteral("cylinder"));
    EXPECT_EQ(value("Diameter"), QStringLiteral("12 mm"));
    EXPECT_EQ(value("Radius"), QStringLiteral("6 mm"));
}

TEST_F(PropertiesWindow, OfTwoEntitiesTellDistanceAndAngle)
{
    openCube();

    select("(app:pick-face 5 5 100 0 0 -1 0.1) (app:pick-face 5 5 -100 0 0 1 0.1)");

    EXPECT_EQ(value("Distance"), QStringLiteral("10 units"));
    EXPECT_EQ(value("Angle"), QStringLiteral("0\u00B0"));
}

TEST_F(PropertiesWindow, OfTwoEntitiesLeaveNothingInThePicture)
{
    openCube();
    const QImage before = picture();

    select("(app:pick-face 5 5 100 0 0 -1 0.1) (app:pick-face 100 5 5 -1 0 0 0.1)");
    ASSERT_EQ(value("Angle"), QStringLiteral("90\u00B0"));
    select("");

    EXPECT_EQ(before.size(), QSize(200, 150));
    EXPECT_EQ(picture(), before);
}

TEST_F(PropertiesWindow, OfManyEntitiesAreSummedUp)
{
    openCube();

    select("(sel:by-kind \"face\")");

    EXPECT_EQ(value("Selected"), QStringLiteral("6 (6 \u00D7 face)"));
    EXPECT_EQ(value("Sum of areas"), QStringLiteral("600 units\u00B2"));
    EXPECT_EQ(rowOf("Sum of volumes"), -1);
}

TEST_F(PropertiesWindow, EmptyWithTheSelection)
{
    openCube();
    select(kTop);

    EXPECT_TRUE(Do("(sel:clear)"));

    EXPECT_TRUE(Until([this] { return panel().List().rowCount() == 0; }));
}

TEST_F(PropertiesWindow, StayWhileOtherCommandsRun)
{
    openCube();
    select(kTop);
    const int rows = panel().List().rowCount();
    ASSERT_GT(rows, 0);

    EXPECT_TRUE(Do("(view:iso)"));

    EXPECT_EQ(panel().List().rowCount(), rows);
}

TEST_F(PropertiesWindow, GiveWayToACommandAndComeBack)
{
    openCube();
    EXPECT_TRUE(Do("(sel:set (sel:by-kind \"face\"))"));
    while (!panel().IsAsking())
        QCoreApplication::processEvents();

    EXPECT_TRUE(Do("(view:iso)"));

    EXPECT_TRUE(Until([this] { return !panel().IsAsking(); }));
    EXPECT_EQ(value("Sum of areas"), QStringLiteral("600 units\u00B2"));
}

/// Each row's command is run and gives what the row shows.
TEST_F(PropertiesWindow, AreWhatTheirScriptsGive)
{
    openCube();
    select("(app:pick-edge 5 0 100 0 0 -1 0.5)");
    const int row = rowOf("Length");
    ASSERT_GE(row, 0);
    printed.clear();

    const QString script = panel().List().Script(row);
    EXPECT_TRUE(Do(qPrintable(QStringLiteral("(app:print %1)").arg(script))));

    EXPECT_EQ(value("Length"), QStringLiteral("10 units"));
    EXPECT_TRUE(printed.join(QLatin1Char('\n')).startsWith(QStringLiteral("10")))
        << qPrintable(printed.join(u'|'));
}

TEST_F(PropertiesWindow, EveryScriptRuns)
{
    openCube();
    for (const char* entities :
         {kTop, "(sel:by-kind \"mesh\")", "(sel:by-kind \"face\")",
          "(app:pick-face 5 5 100 0 0 -1 0.1) (app:pick-face 100 5 5 -1 0 0 0.1)"}) {
        select(entities);
        ASSERT_GT(panel().List().rowCount(), 0) << entities;
        for (int row = 0; row < panel().List().rowCount(); ++row) {
            const QString script = panel().List().Script(row);
            EXPECT_TRUE(Do(qPrintable(script))) << qPrintable(script);
        }
    }
}

TEST_F(PropertiesWindow, ShowFewDigitsAndCopyAll)
{
    Open();
    ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1/data/hole_plate.step\")")
                                  .arg(QLatin1String(ORVIK_TEST_FOLDER)))));
    select("(sel:by-kind \"body\")");
    const int row = rowOf("Volume");
    ASSERT_GE(row, 0);
    view().setCurrentIndex(panel().List().index(row, 0));
    trigger("&Copy");

    const QString copied = QGuiApplication::clipboard()->text().section(u'\t', 1, 1);
    EXPECT_LT(value("Volume").size(), copied.size());
    EXPECT_NEAR(value("Volume").section(u' ', 0, 0).toDouble(),
                copied.section(u' ', 0, 0).toDouble(), 1.0);
    const QModelIndex cell = panel().List().index(row, PropertyList::Value);
    EXPECT_TRUE(cell.data(Qt::ToolTipRole).toString().startsWith(copied));
}

TEST_F(PropertiesWindow, CanBeReadInANarrowPanel)
{
    openCube();
    ASSERT_TRUE(Do("(doc:clear)"));
    ASSERT_TRUE(Do(qPrintable(QStringLiteral("(doc:load \"%1/data/hole_plate.step\")")
                                  .arg(QLatin1String(ORVIK_TEST_FOLDER)))));
    Window().resize(710, 410);
    select("(sel:by-kind \"body\")");

    // Higher rows may need a scroll bar, which takes width from them again.
    EXPECT_TRUE(Until([this] { return cutValues().isEmpty(); }))
        << qPrintable(cutValues().join(QLatin1Char('\n')));
    const int oneLine = view().fontMetrics().height() * 3 / 2;
    EXPECT_GT(view().visualRect(panel().List().index(rowOf("Box"), 0)).height(), oneLine);
}

TEST_F(PropertiesWindow, AreCopiedAsTextAndAsScript)
{
    openCube();
    select(kTop);
    view().setCurrentIndex(panel().List().index(rowOf("Area"), 0));

    trigger("&Copy");
    EXPECT_EQ(QGuiApplication::clipboard()->text(),
              QStringLiteral("Area\t100 units\u00B2\ttriangles"));
    trigger("Copy as &script");

    EXPECT_EQ(QGuiApplication::clipboard()->text(), panel().List().Script(rowOf("Area")));
    EXPECT_TRUE(panel().List().Script(rowOf("Area")).startsWith(QStringLiteral("(entity:area ")));
}

TEST_F(PropertiesWindow, RunAsScriptInTheConsole)
{
    openCube();
    select(kTop);
    view().setCurrentIndex(panel().List().index(rowOf("Area"), 0));
    const QString script = panel().List().Script(rowOf("Area"));
    echoed.clear();

    trigger("&Run as script");

    EXPECT_EQ(echoed, QStringList{script});
}

TEST_F(PropertiesWindow, LeaveNothingBehindWhenTheWindowClosesMeanwhile)
{
    openCube();
    EXPECT_TRUE(Do("(sel:set (sel:by-kind \"face\"))"));

    EXPECT_EQ(Close(), 0);
}

TEST(PropertyTexts, HideTheLastBitsOfASum)
{
    EXPECT_EQ(Pellux::NumberText(0.1 + 0.2, Pellux::Unit::Length), QStringLiteral("0.3 units"));
    const auto few = [](double number) {
        return Pellux::NumberText(number, Pellux::Unit::None, Pellux::LengthUnit::Unknown,
                                  Pellux::Digits::Few)
            .toStdString();
    };
    EXPECT_EQ(few(36793.76937), "36793.8");
    EXPECT_EQ(few(-0.000123456789), "-0.000123457");
    EXPECT_EQ(few(123456789.5), "123456790");
    EXPECT_EQ(few(1.5e20), "1.5e+20");
    EXPECT_EQ(few(0.0), "0");
    EXPECT_EQ(few(100.0), "100");
}

} // namespace
