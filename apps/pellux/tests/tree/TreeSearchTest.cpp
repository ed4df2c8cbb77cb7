#include "TreeWindow.h"

#include <QLineEdit>
#include <QListView>

namespace {

class TreeSearchWindow : public TreeWindow
{
protected:
    QLineEdit& field() { return *Panel().findChild<QLineEdit*>(); }
    QListView& results() { return *Panel().findChild<QListView*>(); }

    void search(const char* pattern)
    {
        field().setText(QString::fromLatin1(pattern));
        EXPECT_TRUE(Until([this] { return !Panel().Search().IsRunning(); }));
    }

    QStringList found()
    {
        QStringList names;
        for (int i = 0; i < results().model()->rowCount(); ++i)
            names << results().model()->index(i, 0).data().toString();
        return names;
    }
};

TEST_F(TreeSearchWindow, FindsRowsThatAreNotBuiltAndLeavesThemSo)
{
    OpenCube();

    search("face ?");

    EXPECT_EQ(found().size(), 6);
    EXPECT_TRUE(Model().canFetchMore(Body()));
}

TEST_F(TreeSearchWindow, FindsRowsThatAreBuilt)
{
    OpenCube();
    Model().fetchMore(Body());

    search("edge 11");

    EXPECT_EQ(found(), QStringList{QStringLiteral("edge 11 \u2014 cube")});
}

TEST_F(TreeSearchWindow, ComesBackToTheTreeWhenTheFieldIsEmptied)
{
    OpenCube();
    search("face");
    EXPECT_TRUE(results().isVisible());

    QTest::keyClick(&field(), Qt::Key_Escape);

    EXPECT_FALSE(results().isVisible());
    EXPECT_TRUE(View().isVisible());
    EXPECT_TRUE(found().isEmpty());
}

TEST_F(TreeSearchWindow, SelectsWhatIsChosenAndOpensTheTreeThere)
{
    OpenCube();
    search("face 4");

    results().setCurrentIndex(results().model()->index(0, 0));
    Settle();

    EXPECT_EQ(echoed,
              QStringList{QStringLiteral("(sel:set (entity:by-id \"face 4 of mesh 1 in 1\"))")});
    EXPECT_EQ(SelectedTexts(), QStringList{QStringLiteral("face 4")});
    EXPECT_TRUE(View().isExpanded(Body()));
}

TEST_F(TreeSearchWindow, StopsWhenItIsToldTo)
{
    OpenCube();
    field().setText(QStringLiteral("face"));
    ASSERT_TRUE(Panel().Search().IsRunning());

    Panel().Search().Stop();

    EXPECT_FALSE(Panel().Search().IsRunning());
    Settle();
    EXPECT_TRUE(found().isEmpty());
}

TEST_F(TreeSearchWindow, EndsWhenTheRowsGo)
{
    OpenCube();
    field().setText(QStringLiteral("face"));

    EXPECT_TRUE(Do("(doc:clear)"));

    EXPECT_FALSE(Panel().Search().IsRunning());
    EXPECT_TRUE(found().isEmpty());
}

TEST_F(TreeSearchWindow, WorksALittleAtATime)
{
    OpenCube();
    Pellux::TreeSearch& tree = Panel().Search();
    tree.Start(Pellux::WildcardPattern(QStringLiteral("*")));

    tree.Work(0);

    // The scene row is no entity; the cube has fewer rows than one look at the clock takes.
    EXPECT_EQ(tree.Results().rowCount(), 28);
    EXPECT_FALSE(tree.IsRunning());
}

} // namespace
