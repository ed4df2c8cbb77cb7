#include "TreeWindow.h"

#include <OrvikCore/MessageType.h>

#include <runtime/QtText.h>

#include <QLineEdit>
#include <QListView>
#include <QScrollBar>
#include <QTextDocument>

namespace {

const char* const kBody = "(entity:by-id \"mesh 1 in 1\")";

QString calls(const char* command, const QString& arguments)
{
    return QStringLiteral("(%1 %2)").arg(QString::fromLatin1(command), arguments);
}

class TreePanelWindow : public TreeWindow
{
protected:
    void clickCheckBox(const QModelIndex& index)
    {
        View().scrollTo(index);
        QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier,
                          View().CheckBoxRect(index).center());
        Settle();
    }
};

class SavedViewRows : public TreePanelWindow
{
protected:
    /// The first row of a text, from the top; an invalid one when there is none.
    QModelIndex rowNamed(const QString& text, const QModelIndex& below = {})
    {
        if (Model().canFetchMore(below))
            Model().fetchMore(below);
        for (int i = 0; i < Model().rowCount(below); ++i) {
            const QModelIndex row = Model().index(i, 0, below);
            if (row.data().toString() == text)
                return row;
            if (const QModelIndex found = rowNamed(text, row); found.isValid())
                return found;
        }
        return {};
    }
};

TEST_F(TreePanelWindow, SelectsByScriptWhatIsClicked)
{
    OpenCube();

    Click(Body());

    EXPECT_EQ(echoed, QStringList{calls("sel:set", QString::fromLatin1(kBody))});
    EXPECT_EQ(Session().GetPickedEntities().size(), 1u);
    EXPECT_EQ(SelectedTexts(), QStringList{Body().data().toString()});
}

TEST_F(TreePanelWindow, ScrollsSidewaysInsteadOfCuttingNames)
{
    OpenCube();
    View().expandAll();
    View().setFixedWidth(90);
    Settle();

    EXPECT_GE(View().columnWidth(0),
              View().visualRect(Body()).left() +
                  View().fontMetrics().horizontalAdvance(Body().data().toString()));
    EXPECT_GT(View().horizontalScrollBar()->maximum(), 0);
}

TEST_F(TreePanelWindow, SelectsAWholeFileByScript)
{
    OpenCube();

    Click(RowAt({0, 0}));

    ASSERT_EQ(echoed.size(), 1) << qPrintable(errors.join(u'\n'));
    EXPECT_EQ(Session().GetPickedEntities().size(), 1u);
    EXPECT_EQ(SelectedTexts(), QStringList{QStringLiteral("cube.stl")});
}

TEST_F(TreePanelWindow, SelectsSeveralRows)
{
    OpenCube();
    View().expand(Body());

    Click(RowAt({0, 0, 0, 0}));
    Click(RowAt({0, 0, 0, 2}), Qt::ShiftModifier);

    EXPECT_EQ(Session().GetPickedEntities().size(), 3u);
    EXPECT_EQ(SelectedTexts().size(), 3);
}

TEST_F(TreePanelWindow, ClearsTheSelectionByScript)
{
    OpenCube();
    Click(Body());
    echoed.clear();

    View().clearSelection();
    Settle();

    EXPECT_EQ(echoed, QStringList{QStringLiteral("(sel:clear)")});
    EXPECT_TRUE(Session().GetPickedEntities().empty());
}

TEST_F(TreePanelWindow, ShowsWhatIsPickedAndOpensTheWayToIt)
{
    OpenCube();
    View().collapseAll();

    EXPECT_TRUE(Do("(app:pick-face 5 5 100 0 0 -1 0.1)"));
    EXPECT_TRUE(Do("(sel:set (app:pick-face 5 5 100 0 0 -1 0.1))"));
    Settle();

    ASSERT_EQ(SelectedTexts().size(), 1);
    EXPECT_TRUE(SelectedTexts()[0].startsWith(QStringLiteral("face ")));
    EXPECT_TRUE(View().isExpanded(Body()));
    const QModelIndex row = View().selectionModel()->selectedIndexes()[0];
    EXPECT_TRUE(View().viewport()->rect().contains(View().visualRect(row).center()));
    EXPECT_EQ(View().currentIndex(), row);
}

TEST_F(TreePanelWindow, RunsNoCommandForWhatItOnlyFollows)
{
    OpenCube();

    EXPECT_TRUE(Do("(sel:set (sel:by-kind \"mesh\"))"));
    Settle();

    EXPECT_EQ(echoed.size(), 1);
    EXPECT_EQ(SelectedTexts(), QStringList{Body().data().toString()});
}

TEST_F(TreePanelWindow, HidesAndShowsByScript)
{
    OpenCube();

    clickCheckBox(Body());
    EXPECT_EQ(echoed, QStringList{calls("view:hide", QString::fromLatin1(kBody))});
    clickCheckBox(Body());

    EXPECT_EQ(echoed.back(), calls("view:show", QString::fromLatin1(kBody)));
    EXPECT_EQ(Body().data(Qt::CheckStateRole).toInt(), Qt::Checked);
    EXPECT_TRUE(SelectedTexts().isEmpty());
}

TEST_F(TreePanelWindow, HidesAllSelectedRowsAtOnce)
{
    OpenCube();
    View().expand(Body());
    Click(RowAt({0, 0, 0, 0}));
    Click(RowAt({0, 0, 0, 1}), Qt::ControlModifier);
    echoed.clear();

    clickCheckBox(RowAt({0, 0, 0, 0}));

    ASSERT_EQ(echoed.size(), 1);
    EXPECT_EQ(echoed[0].count(QStringLiteral("entity:by-id")), 2);
    EXPECT_EQ(RowAt({0, 0, 0, 1}).data(Qt::CheckStateRole).toInt(), Qt::Unchecked);
}

TEST_F(TreePanelWindow, HidesAndShowsWithTheSpaceBar)
{
    OpenCube();
    Click(Body());
    echoed.clear();

    QTest::keyClick(&View(), Qt::Key_Space);

    EXPECT_EQ(echoed, QStringList{calls("view:hide", QString::fromLatin1(kBody))});
}

TEST_F(TreePanelWindow, FitsWhatIsDoubleClicked)
{
    OpenCube();
    const QRect row = View().visualRect(Body());
    const QPoint place(row.left() + 60, row.center().y());

    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    Settle();

    EXPECT_TRUE(Until([this] {
        return echoed.contains(calls("view:zoom-to", QString::fromLatin1(kBody)));
    })) << qPrintable(echoed.join(u'\n'));
}

TEST_F(SavedViewRows, AreShownByADoubleClick)
{
    Open();
    Load(QLatin1String(ORVIK_TEST_FOLDER "/data/views.step"));
    ASSERT_TRUE(Do("(view:animate #f)"));
    const QModelIndex saved = rowNamed(QStringLiteral("Iso view"));
    ASSERT_TRUE(saved.isValid());
    View().scrollTo(saved);
    const QPoint place = View().visualRect(saved).center();

    QTest::mouseClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, place);
    QTest::mouseDClick(View().viewport(), Qt::LeftButton, Qt::NoModifier, place);

    EXPECT_TRUE(Until([this] {
        return echoed.last().startsWith(QStringLiteral("(view:saved-view "));
    })) << qPrintable(echoed.join(u'\n'));
    ASSERT_TRUE(Do("(define there (view:camera))"));
    ASSERT_TRUE(Do("(view:front)"));
    ASSERT_TRUE(Do("(app:print (equal? there (view:camera)))"));
    EXPECT_EQ(printed.last(), QStringLiteral("#f"));
    ASSERT_TRUE(Do("(view:saved-view (car (view:saved-views)))"));
    ASSERT_TRUE(Do("(app:print (equal? there (view:camera)))"));
    EXPECT_EQ(printed.last(), QStringLiteral("#t"));
}

TEST_F(TreePanelWindow, AsksForTheMenuOfARow)
{
    OpenCube();
    QSignalSpy asked(&Panel(), &Pellux::TreePanel::MenuAsked);

    Q_EMIT View().customContextMenuRequested(View().visualRect(Body()).center());

    ASSERT_EQ(asked.size(), 1);
    EXPECT_EQ(asked[0][0].value<TambVizCore::RenderId>(), Model().RowAt(Body()).Path());
}

TEST_F(TreePanelWindow, TellsResultsApartAndAsksForTheirMenu)
{
    OpenCube();
    QSignalSpy asked(&Panel(), &Pellux::TreePanel::MenuAsked);
    auto* const field = Panel().findChild<QLineEdit*>();
    auto* const results = Panel().findChild<QListView*>();
    ASSERT_NE(results, nullptr);
    field->setText(QStringLiteral("face 1"));
    ASSERT_TRUE(Until([&] { return results->model()->rowCount() == 1; }));
    const QModelIndex first = results->model()->index(0, 0);
    EXPECT_EQ(first.data().toString(), QStringLiteral("face 1 \u2014 ") + Body().data().toString());
    Q_EMIT results->customContextMenuRequested(results->visualRect(first).center());

    ASSERT_EQ(asked.size(), 1);
    EXPECT_FALSE(asked[0][0].value<TambVizCore::RenderId>().IsEmpty());
}

TEST_F(TreePanelWindow, ShowsNamesAsTheyAre)
{
    EXPECT_EQ(Pellux::PlainToolTip(QStringLiteral("plate <1>")), QStringLiteral("plate <1>"));
    const QString shown = Pellux::PlainToolTip(QStringLiteral("<b>plate</b>"));
    QTextDocument document;
    document.setHtml(shown);

    EXPECT_EQ(document.toPlainText(), QStringLiteral("<b>plate</b>"));
}

TEST_F(TreePanelWindow, StaysOpenWhereRowsComeBack)
{
    OpenCube();
    View().expand(Body());
    View().resize(200, 120);
    View().verticalScrollBar()->setValue(40);

    EXPECT_TRUE(Do(qPrintable(QStringLiteral("(doc:import \"%1\")").arg(WriteCube("b.stl")))));
    Settle();

    EXPECT_TRUE(View().isExpanded(Body()));
    EXPECT_EQ(Model().rowCount(Body()), 26);
    EXPECT_EQ(View().verticalScrollBar()->value(), 40);
}

TEST_F(TreePanelWindow, OpensTheFirstLevelsOfANewModel)
{
    OpenCube();

    EXPECT_TRUE(View().isExpanded(RowAt({0})));
    EXPECT_TRUE(View().isExpanded(RowAt({0, 0})));
    EXPECT_FALSE(View().isExpanded(Body()));
}

TEST_F(TreePanelWindow, NamesItsPartsForThoseWhoListen)
{
    OpenCube();

    EXPECT_FALSE(View().accessibleName().isEmpty());
    for (const QLineEdit* field : Panel().findChildren<QLineEdit*>())
        EXPECT_FALSE(field->accessibleName().isEmpty());
}

} // namespace
