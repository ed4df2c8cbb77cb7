#include "WindowFixture.h"

#include <OrvikCore/ASession.h>
#include <OrvikCore/SessionMgr.h>

#include <actions/ContextMenu.h>

#include <QMenu>

namespace {

class ContextMenu : public WindowFixture
{
protected:
    ContextMenu()
    {
        Open();
        Runner().Run(QStringLiteral("(doc:load \"%1\")").arg(WriteCube()));
    }

    /// The entity that a script selects.
    TambVizCore::EntityId selected(const char* script)
    {
        EXPECT_TRUE(Do(script));
        const auto all = OrvikCore::SessionMgr::Instance().CurrentSession().GetPickedEntities();
        return all.empty() ? TambVizCore::EntityId() : all.front();
    }
};

TEST_F(ContextMenu, OffersWhatIsMadeForTheKindOfRow)
{
    Pellux::MenuPlace place;
    place.style = OrvikCore::TreeBuilder::TreeItemStyles::Body;
    QMenu body;
    EXPECT_GE(Pellux::FillContextMenu(body, Runner(), place), 2);
    place.style = OrvikCore::TreeBuilder::TreeItemStyles::Scene;
    QMenu scene;
    EXPECT_EQ(Pellux::FillContextMenu(scene, Runner(), place), 0);
}

TEST_F(ContextMenu, HidesABodyAndSaysByWhichCommand)
{
    Pellux::MenuPlace place;
    const TambVizCore::EntityId body =
        selected("(sel:set (entity:body (car (sel:by-kind \"face\"))))");
    ASSERT_TRUE(Pellux::FindMenuPlace(body, place));
    // The item is for bodies; the row of a mesh has a kind of its own.
    place.style = OrvikCore::TreeBuilder::TreeItemStyles::Body;
    QMenu menu;
    ASSERT_GE(Pellux::FillContextMenu(menu, Runner(), place), 2);
    echoed.clear();

    menu.actions().front()->trigger();

    ASSERT_EQ(echoed.size(), 1);
    EXPECT_TRUE(echoed.front().startsWith(QStringLiteral("(view:hide (entity:by-id ")));
    EXPECT_TRUE(Do("(view:undo)"));
    EXPECT_EQ(printed.last().trimmed(), QStringLiteral("#t"));
}

TEST_F(ContextMenu, SaysWhenAnItemFails)
{
    Pellux::MenuPlace place;
    place.style = OrvikCore::TreeBuilder::TreeItemStyles::Body;
    QMenu menu;
    Pellux::FillContextMenu(menu, Runner(), place);
    echoed.clear();
    menu.actions().front()->trigger();
    EXPECT_EQ(echoed, QStringList());
    EXPECT_EQ(errors, QStringList(QStringLiteral("The menu item \"&Hide node\" failed.")));
}

} // namespace
