#include "WindowFixture.h"

#include <HostRuntime.h>
#include <HostTree.h>
#include <actions/ActionTable.h>
#include <actions/WindowMenus.h>
#include <tree/TreePanel.h>
#include <view/ViewWidget.h>
#include <window/ContextMenus.h>

#include <QAction>
#include <QMenu>
#include <QTest>
#include <memory>

namespace {

class ContextMenusTest : public WindowFixture
{
protected:
    ContextMenusTest()
    {
        Open();
        EXPECT_TRUE(Do("(doc:load \"" ORVIK_SOURCE_FOLDER "/examples/frames.step\")"));
    }

    static QStringList Texts(const QMenu& menu)
    {
        QStringList texts;
        for (const QAction* const action : menu.actions())
            texts << action->text();
        return texts;
    }

    /// The path of the first row of a kind below a row; empty when there is none.
    static TambVizCore::RenderId FirstRow(const Pellux::HostTreeRow& row, const std::string& kind)
    {
        for (std::size_t i = 0; i < row.ChildCount(); ++i) {
            if (row.ChildAt(i).KindWord() == kind)
                return row.ChildAt(i).Path();
            if (const auto below = FirstRow(row.ChildAt(i), kind); !below.IsEmpty())
                return below;
        }
        return {};
    }
};

TEST_F(ContextMenusTest, ARowOfABodyOffersToHideItAndAFaceWhatItsBodyOffers)
{
    Pellux::HostTree& tree = *Run().Host().GetTree();
    tree.FillAll();
    const auto body = FirstRow(tree.Root(), "body");
    const auto face = FirstRow(tree.Root(), "geometry");
    ASSERT_FALSE(body.IsEmpty());
    ASSERT_FALSE(face.IsEmpty());

    const auto ofBody = Window().Context().MakeForRow(body);
    const auto ofFace = Window().Context().MakeForRow(face);

    ASSERT_NE(ofBody, nullptr);
    EXPECT_TRUE(Texts(*ofBody).contains(QStringLiteral("&Hide node")));
    ASSERT_NE(ofFace, nullptr);
    EXPECT_EQ(Texts(*ofFace), Texts(*ofBody));
}

TEST_F(ContextMenusTest, TheViewOffersTheMenuOfWhatIsUnderThePointer)
{
    EXPECT_TRUE(Do("(view:iso)(view:zoom-all)(sel:by-kind \"face\")"));
    const QSize size = Window().View().size() * Window().View().devicePixelRatioF();
    // The first click below makes ready what hovering needs.
    QTest::mouseClick(&Window().View(), Qt::LeftButton, Qt::NoModifier,
                      Window().View().rect().center());
    std::unique_ptr<QMenu> menu;
    for (int x = size.width() / 4; menu == nullptr && x < size.width() * 3 / 4; x += 5)
        menu = Window().Context().MakeForView(QPoint(x, size.height() / 2));

    ASSERT_NE(menu, nullptr);
    EXPECT_TRUE(Texts(*menu).contains(QStringLiteral("&Hide node")));
    EXPECT_EQ(Window().Context().MakeForView(QPoint(1, 1)), nullptr);
}

TEST_F(ContextMenusTest, ChoosingAnItemRunsItAndPrintsItsCommand)
{
    Pellux::HostTree& tree = *Run().Host().GetTree();
    tree.FillAll();
    const auto menu = Window().Context().MakeForRow(FirstRow(tree.Root(), "body"));
    ASSERT_NE(menu, nullptr);
    echoed.clear();

    for (QAction* const action : menu->actions())
        if (action->text() == QStringLiteral("&Hide node"))
            action->trigger();

    ASSERT_EQ(echoed.size(), 1);
    EXPECT_TRUE(echoed.front().startsWith(QStringLiteral("(view:hide (entity:by-id ")));
}

TEST_F(ContextMenusTest, TheMenuOfToolBarsAndTitlesHasTheSwitchesOfThePanels)
{
    const std::unique_ptr<QMenu> menu(Window().createPopupMenu());
    ASSERT_GE(menu->actions().size(), 4);
    echoed.clear();
    menu->actions().front()->trigger();

    ASSERT_EQ(echoed.size(), 1);
    EXPECT_TRUE(echoed.front().startsWith(QStringLiteral("(app:show-panel \"")));
}

TEST_F(ContextMenusTest, ThePreferencesAreInTheEditMenu)
{
    const QMenu* const edit = Window().Menus().Actions().Menu(Pellux::ActionTable::tr("&Edit"));
    EXPECT_TRUE(edit->actions().contains(Find<QAction>("edit.preferences")));
}

} // namespace
