#include "OrvikCore/ViewObjectManager.h"

#include "RecordingViewObject.h"
#include "VirtualSlot.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Node.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>

using OrvikCore::AViewObject;
using OrvikCore::ViewObjectManager;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

/// An object that comes back to the manager while it is cleared and destroyed.
class SelfishObject : public RecordingViewObject
{
public:
    using RecordingViewObject::RecordingViewObject;
    ~SelfishObject() override
    {
        if (m_onEnd) {
            m_onEnd();
        }
    }

    std::function<void()> m_onClear;
    std::function<void()> m_onEnd;

protected:
    void doClear() override
    {
        RecordingViewObject::doClear();
        if (m_onClear) {
            m_onClear();
        }
    }
};

struct ViewObjectManagerTest : testing::Test
{
    RecordingViewObject* add(const std::string& name)
    {
        auto* const object = new RecordingViewObject(name, m_log);
        m_manager->Add(name, object);
        return object;
    }

    CallLog m_log;
    TambVizCore::Node m_root{1};
    std::unique_ptr<ViewObjectManager> m_manager = std::make_unique<ViewObjectManager>(m_root);
};

} // namespace

TEST_F(ViewObjectManagerTest, MakesANodeOfItsOwn)
{
    ASSERT_EQ(m_root.ChildCount(), 1u);
    TambVizCore::Node* const node = m_root.ChildAt(0);

    EXPECT_EQ(m_manager->GetNode(), node);
    EXPECT_EQ(node->Id(), 60000u);
    EXPECT_EQ(node->Name(), "VIEW_OBJECTS");
    EXPECT_NE(node->AsGeoNode(), nullptr);
}

TEST_F(ViewObjectManagerTest, ObjectIdsAreUniqueAcrossManagers)
{
    TambVizCore::Node otherRoot(2);
    ViewObjectManager other(otherRoot);
    RecordingViewObject* const first = add("first");
    auto* const second = new RecordingViewObject("second", m_log);
    other.Add("second", second);

    EXPECT_EQ(first->Id(), 60001u);
    EXPECT_EQ(second->Id(), 60002u);
    EXPECT_EQ(other.GetNode()->Id(), 60000u);
}

TEST_F(ViewObjectManagerTest, FindsObjectsByName)
{
    RecordingViewObject* const object = add("axes");

    EXPECT_EQ(m_manager->Get("axes"), object);
    EXPECT_TRUE(m_manager->Contains("axes"));
    EXPECT_EQ(m_manager->Get("Axes"), nullptr);
    EXPECT_FALSE(m_manager->Contains("Axes"));
    EXPECT_EQ(m_manager->Count(), 1);
}

TEST_F(ViewObjectManagerTest, AddingNullDoesNothing)
{
    m_manager->Add("nothing", nullptr);

    EXPECT_EQ(m_manager->Count(), 0);
}

TEST_F(ViewObjectManagerTest, AddingTheSameObjectUnderItsNameDoesNothing)
{
    RecordingViewObject* const object = add("axes");

    m_manager->Add("axes", object);

    EXPECT_EQ(m_manager->Get("axes"), object);
    EXPECT_THAT(m_log, IsEmpty());
}

TEST(ViewObjectManager, AddWithTakenNameDestroysThePresentObjectAndEntersNothing)
{
    CallLog log;
    TambVizCore::Node root(1);
    ViewObjectManager manager(root);
    auto* const present = new RecordingViewObject("present", log);
    manager.Add("axes", present);
    manager.Render();
    const auto other = std::make_unique<RecordingViewObject>("other", log);

    manager.Add("axes", other.get());

    EXPECT_THAT(log, ElementsAre("present.render", "present.clear", "present.deleted"));
    EXPECT_FALSE(manager.Contains("axes"));
    EXPECT_EQ(manager.Count(), 0);
}

TEST_F(ViewObjectManagerTest, TheEntryOfATakenNameOutlivesItsObject)
{
    auto* const present = new SelfishObject("present", m_log);
    std::string atTheEnd;
    present->m_onEnd = [&] {
        atTheEnd = m_manager->ToString();
        EXPECT_EQ(m_manager->Get("axes"), nullptr);
    };
    m_manager->Add("axes", present);
    const auto other = std::make_unique<RecordingViewObject>("other", m_log);

    m_manager->Add("axes", other.get());

    EXPECT_EQ(atTheEnd, "axes");
    EXPECT_EQ(m_manager->ToString(), "");
}

TEST_F(ViewObjectManagerTest, AnObjectThatRemovesItselfAtItsEndIsDestroyedOnce)
{
    auto* const present = new SelfishObject("present", m_log);
    present->m_onEnd = [this, present] {
        m_manager->Remove(present);
        m_manager->Remove("axes");
    };
    m_manager->Add("axes", present);
    const auto other = std::make_unique<RecordingViewObject>("other", m_log);

    m_manager->Add("axes", other.get());

    EXPECT_THAT(m_log, ElementsAre("present.deleted"));
    EXPECT_EQ(m_manager->Count(), 0);
}

TEST_F(ViewObjectManagerTest, AnObjectRemovedInItsClearStepStaysAlive)
{
    const auto present = std::make_unique<SelfishObject>("present", m_log);
    present->m_onClear = [&] { m_manager->Remove(present.get()); };
    m_manager->Add("axes", present.get());
    m_manager->Render();
    const auto other = std::make_unique<RecordingViewObject>("other", m_log);

    m_manager->Add("axes", other.get());

    EXPECT_THAT(m_log, ElementsAre("present.render", "present.clear"));
    EXPECT_EQ(m_manager->Count(), 0);
}

TEST_F(ViewObjectManagerTest, AnObjectMayLeaveItsNameToAnotherAtItsEnd)
{
    auto* const present = new SelfishObject("present", m_log);
    auto* const heir = new RecordingViewObject("heir", m_log);
    present->m_onEnd = [this, heir] { m_manager->Add("axes", heir); };
    m_manager->Add("axes", present);
    const auto other = std::make_unique<RecordingViewObject>("other", m_log);

    m_manager->Add("axes", other.get());

    EXPECT_THAT(m_log, ElementsAre("present.deleted"));
    EXPECT_EQ(m_manager->Get("axes"), heir);
}

TEST_F(ViewObjectManagerTest, AnObjectOfTwoNamesIsDestroyedOnceByATakenName)
{
    RecordingViewObject* const present = add("present");
    m_manager->Add("again", present);
    const auto other = std::make_unique<RecordingViewObject>("other", m_log);

    m_manager->Add("again", other.get());

    EXPECT_THAT(m_log, ElementsAre("present.deleted"));
    EXPECT_EQ(m_manager->Count(), 0);
}

TEST_F(ViewObjectManagerTest, AddAfterATakenNameEntersAgain)
{
    add("axes");
    auto* const other = new RecordingViewObject("other", m_log);
    m_manager->Add("axes", other);

    m_manager->Add("axes", other);

    EXPECT_EQ(m_manager->Get("axes"), other);
}

TEST_F(ViewObjectManagerTest, RemoveByNameHandsTheObjectBack)
{
    const std::unique_ptr<AViewObject> object(add("axes"));
    m_manager->Render();

    m_manager->Remove("axes");
    m_manager->Remove("unknown");

    EXPECT_EQ(m_manager->Count(), 0);
    EXPECT_THAT(m_log, ElementsAre("axes.render"));
}

TEST_F(ViewObjectManagerTest, RemoveByObjectTakesEveryEntryOfIt)
{
    const std::unique_ptr<AViewObject> object(add("axes"));
    m_manager->Add("again", object.get());
    RecordingViewObject* const other = add("other");

    m_manager->Remove(object.get());

    EXPECT_EQ(m_manager->Count(), 1);
    EXPECT_EQ(m_manager->Get("other"), other);
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(ViewObjectManagerTest, PositionsFollowTheNames)
{
    RecordingViewObject* const b = add("b");
    RecordingViewObject* const a = add("a");

    EXPECT_EQ((*m_manager)[0], a);
    EXPECT_EQ((*m_manager)[1], b);
    EXPECT_EQ((*m_manager)[2], nullptr);
    EXPECT_EQ((*m_manager)[-1], nullptr);
}

TEST_F(ViewObjectManagerTest, IteratorsRunThroughTheNames)
{
    RecordingViewObject* const b = add("b");
    RecordingViewObject* const a = add("a");

    auto entry = m_manager->Begin();
    EXPECT_EQ(entry->second, a);
    ++entry;
    EXPECT_EQ(entry->first, "b");
    EXPECT_EQ(entry->second, b);
    EXPECT_EQ(++entry, m_manager->End());
}

TEST_F(ViewObjectManagerTest, TextListsTheNamesInOrder)
{
    EXPECT_EQ(m_manager->ToString(), "");
    add("b");
    EXPECT_EQ(m_manager->ToString(), "b");
    add("a");
    EXPECT_EQ(m_manager->ToString(), "a, b");
}

TEST_F(ViewObjectManagerTest, RendersVisibleObjectsInNameOrder)
{
    add("b");
    add("a");
    RecordingViewObject* const hidden = add("c");
    hidden->SetIsVisible(false);
    hidden->Clear();
    m_log.clear();

    m_manager->Render();

    EXPECT_THAT(m_log, ElementsAre("a.render", "b.render"));
}

TEST_F(ViewObjectManagerTest, ClearKeepsTheEntries)
{
    add("b");
    add("a");
    m_manager->Render();
    m_log.clear();

    m_manager->Clear();

    EXPECT_THAT(m_log, ElementsAre("a.clear", "b.clear"));
    EXPECT_EQ(m_manager->Count(), 2);
}

TEST_F(ViewObjectManagerTest, ClearReachesHiddenObjects)
{
    add("a")->SetIsVisible(false);
    m_log.clear();

    m_manager->Clear();

    EXPECT_THAT(m_log, ElementsAre("a.clear"));
}

TEST_F(ViewObjectManagerTest, DisplaysInNameOrder)
{
    add("b");
    add("a");
    m_manager->Render();
    m_log.clear();

    m_manager->Display();

    EXPECT_THAT(m_log, ElementsAre("a.display", "b.display"));
}

TEST_F(ViewObjectManagerTest, IsEnabledAtFirst)
{
    EXPECT_TRUE(m_manager->IsEnabled());
    m_manager->SetIsEnabled(false);
    EXPECT_FALSE(m_manager->IsEnabled());
    m_manager->SetIsEnabled(true);
    EXPECT_TRUE(m_manager->IsEnabled());
}

TEST_F(ViewObjectManagerTest, DisablingStopsOnlyDisplay)
{
    add("a");
    m_manager->SetIsEnabled(false);

    m_manager->Render();
    m_manager->Display();
    m_manager->Clear();

    EXPECT_THAT(m_log, ElementsAre("a.render", "a.clear"));
}

TEST_F(ViewObjectManagerTest, DestructorClearsAndDeletesEachObjectInNameOrder)
{
    add("b");
    add("a");
    m_manager->Render();
    m_log.clear();

    m_manager.reset();

    EXPECT_THAT(m_log, ElementsAre("a.clear", "a.deleted", "b.clear", "b.deleted"));
    EXPECT_EQ(m_root.ChildCount(), 1u);
}

TEST_F(ViewObjectManagerTest, DestructorDeletesAnObjectOfTwoNamesOnce)
{
    m_manager->Add("again", add("a"));

    m_manager.reset();

    EXPECT_THAT(m_log, ElementsAre("a.deleted"));
}

TEST_F(ViewObjectManagerTest, ObjectsMayRemoveThemselvesAndOthersDuringTheDestructor)
{
    auto* const a = new SelfishObject("a", m_log);
    const std::unique_ptr<AViewObject> b(add("b"));
    ViewObjectManager* const manager = m_manager.get();
    a->m_onEnd = [&, manager] {
        manager->Remove(a);
        manager->Remove(b.get());
    };
    m_manager->Add("a", a);

    m_manager.reset(); // Forgets the pointer before it deletes.

    EXPECT_THAT(m_log, ElementsAre("a.deleted"));
}

TEST(ViewObjectManager, VirtualOperationsKeepTheirOrder)
{
    using RemoveObject = void (ViewObjectManager::*)(AViewObject*);
    using RemoveName = void (ViewObjectManager::*)(std::string const&);

    EXPECT_EQ(VirtualSlot(&ViewObjectManager::GetNode), 2);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Add), 3);
    EXPECT_EQ(VirtualSlot(static_cast<RemoveObject>(&ViewObjectManager::Remove)), 4);
    EXPECT_EQ(VirtualSlot(static_cast<RemoveName>(&ViewObjectManager::Remove)), 5);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Count), 6);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Get), 7);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Contains), 8);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Render), 9);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Clear), 10);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::Display), 11);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::SetIsEnabled), 12);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::IsEnabled), 13);
    EXPECT_EQ(VirtualSlot(&ViewObjectManager::ToString), -1);
}
