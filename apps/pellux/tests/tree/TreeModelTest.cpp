#include "TreeWindow.h"

#include <QAbstractItemModelTester>

namespace {

/// Ends the test program at the first thing that a model may not do.
constexpr auto kFatal = QAbstractItemModelTester::FailureReportingMode::Fatal;

class TreeModelRows : public TreeWindow
{
};

TEST_F(TreeModelRows, KeepTheRulesOfModelsWhileTheyComeAndGo)
{
    Open();
    QAbstractItemModelTester tester(&Model(), kFatal);
    // It would fetch while it is told of new rows, which no view does.
    tester.setUseFetchMore(false);

    Load(WriteCube());
    Model().fetchMore(Body());
    EXPECT_TRUE(Do(qPrintable(QStringLiteral("(doc:import \"%1\")").arg(WriteCube("b.stl")))));
    Settle();
    EXPECT_EQ(Model().rowCount(RowAt({0})), 2);
    EXPECT_TRUE(Do("(doc:clear)"));

    EXPECT_EQ(Model().rowCount(), 0);
}

TEST_F(TreeModelRows, KeepTheRulesOfModelsWhileTheViewOpensThem)
{
    OpenCube();
    QAbstractItemModelTester tester(&Model(), kFatal);
    // It would fetch while it is told of new rows, which no view does.
    tester.setUseFetchMore(false);

    View().expand(Body());
    Settle();

    EXPECT_EQ(Model().rowCount(Body()), 26);
}

TEST_F(TreeModelRows, BelowABodyComeWhenTheyAreFetched)
{
    OpenCube();

    EXPECT_TRUE(Model().hasChildren(Body()));
    EXPECT_EQ(Model().rowCount(Body()), 0);
    ASSERT_TRUE(Model().canFetchMore(Body()));
    Model().fetchMore(Body());

    EXPECT_EQ(Model().rowCount(Body()), 26);
    EXPECT_FALSE(Model().canFetchMore(Body()));
    EXPECT_EQ(RowAt({0, 0, 0, 0}).data().toString(), QStringLiteral("face 0"));
    EXPECT_FALSE(Model().hasChildren(RowAt({0, 0, 0, 0})));
}

TEST_F(TreeModelRows, LookAsTheirKindDoes)
{
    OpenCube();

    EXPECT_TRUE(RowAt({0}).data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(Body().data(Qt::FontRole).value<QFont>().bold());
    EXPECT_FALSE(Body().data(Qt::DecorationRole).value<QIcon>().pixmap(16).isNull());
    EXPECT_EQ(Body().data(Qt::AccessibleDescriptionRole).toString(), QStringLiteral("mesh"));
}

TEST_F(TreeModelRows, ShowFacesEdgesAndVerticesInDifferentWays)
{
    OpenCube();
    Model().fetchMore(Body());
    const auto picture = [this](int position) {
        return RowAt({0, 0, 0, position})
            .data(Qt::DecorationRole)
            .value<QIcon>()
            .pixmap(16)
            .toImage();
    };

    EXPECT_EQ(picture(0), picture(1));  // Faces 0 and 1.
    EXPECT_NE(picture(0), picture(6));  // An edge.
    EXPECT_NE(picture(6), picture(18)); // A vertex.
    EXPECT_NE(picture(0), picture(18));
}

TEST_F(TreeModelRows, TellWhereTheirFileIs)
{
    OpenCube();

    EXPECT_TRUE(
        RowAt({0, 0}).data(Qt::ToolTipRole).toString().contains(QStringLiteral("cube.stl")));
}

TEST_F(TreeModelRows, FollowWhatScriptsHideAndUndo)
{
    OpenCube();
    const auto state = [this](std::initializer_list<int> row) {
        return RowAt(row).data(Qt::CheckStateRole).toInt();
    };
    EXPECT_EQ(state({0, 0, 0}), Qt::Checked);

    EXPECT_TRUE(Do("(view:hide (car (sel:by-kind \"mesh\")))"));
    EXPECT_EQ(state({0, 0, 0}), Qt::Unchecked);
    EXPECT_EQ(state({0, 0}), Qt::PartiallyChecked);

    EXPECT_TRUE(Do("(view:undo)"));
    EXPECT_EQ(state({0, 0, 0}), Qt::Checked);
    EXPECT_EQ(state({0, 0}), Qt::Checked);
}

TEST_F(TreeModelRows, AreDimmedWhenSomethingAboveHidesThem)
{
    OpenCube();
    EXPECT_FALSE(RowAt({0, 0, 0, 0}).data(Qt::ForegroundRole).isValid());

    EXPECT_TRUE(Do("(view:hide (car (sel:by-kind \"mesh\")))"));

    EXPECT_TRUE(RowAt({0, 0, 0, 0}).data(Qt::ForegroundRole).isValid());
    EXPECT_EQ(RowAt({0, 0, 0, 0}).data(Qt::CheckStateRole).toInt(), Qt::Checked);
}

TEST_F(TreeModelRows, OfTheSceneHaveNoCheckBoxAndAreNotSelected)
{
    OpenCube();

    EXPECT_FALSE(RowAt({0}).data(Qt::CheckStateRole).isValid());
    EXPECT_FALSE(RowAt({0}).flags().testFlag(Qt::ItemIsSelectable));
    EXPECT_TRUE(Body().flags().testFlag(Qt::ItemIsSelectable));
}

} // namespace
