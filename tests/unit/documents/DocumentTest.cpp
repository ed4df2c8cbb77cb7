#include "OrvikCore/Document.h"

#include "FakeContent.h"
#include "FakeSession.h"

#include "OrvikCore/AContentFactory.h"
#include "OrvikCore/SessionMgr.h"

#include <TambVizCore/EntityId.h>
#include <TambVizCore/Ray.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

using OrvikCore::AContent;
using OrvikCore::Document;
using OrvikCore::SessionMgr;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::PartKind;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::ThrowsMessage;

namespace {

#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wnon-virtual-dtor"

CallLog factoryLog;

// Factories carry no data: their contents write to one log.
class FakeFactory final : public OrvikCore::AContentFactory
{
public:
    AContent* CreateContent(Document& document) override
    {
        return new FakeContent(document, "made", factoryLog);
    }
};

class NullFactory final : public OrvikCore::AContentFactory
{
public:
    AContent* CreateContent(Document&) override { return nullptr; }
};

#pragma GCC diagnostic pop

struct DocumentTest : testing::Test
{
    FakeContent& add(const std::string& name)
    {
        auto* const content = new FakeContent(m_document, name, m_log);
        m_document.AddContent(*content);
        return *content;
    }
    void addNull() { m_document.CreateContent(&m_nullFactory); }

    CallLog m_log;
    NullFactory m_nullFactory;
    Document m_document{nullptr};
};

const EntityId kBody(7, 1, EntityType::Body);

} // namespace

TEST_F(DocumentTest, SessionIsTheOneGivenToTheConstructor)
{
    FakeSession session;

    EXPECT_EQ(&Document(&session).Session(), &session);
}

TEST_F(DocumentTest, WithoutSessionAskingForItThrows)
{
    EXPECT_THAT([&] { m_document.Session(); }, ThrowsMessage<std::runtime_error>("null session"));
}

TEST_F(DocumentTest, AddedContentsKeepTheirOrder)
{
    FakeContent& first = add("first");
    FakeContent& second = add("second");

    EXPECT_THAT(m_document.GetContentList(), ElementsAre(&first, &second));
}

TEST_F(DocumentTest, AddingAContentTwiceChangesNothing)
{
    FakeContent& content = add("content");

    m_document.AddContent(content);

    EXPECT_THAT(m_document.GetContentList(), ElementsAre(&content));
}

TEST_F(DocumentTest, CreateContentAppendsWhatTheFactoryMakes)
{
    FakeFactory factory;

    AContent* const content = m_document.CreateContent(&factory);

    ASSERT_NE(content, nullptr);
    EXPECT_EQ(&content->GetDocument(), &m_document);
    EXPECT_THAT(m_document.GetContentList(), ElementsAre(content));
}

TEST_F(DocumentTest, CreateContentAppendsANullResultToo)
{
    EXPECT_EQ(m_document.CreateContent(&m_nullFactory), nullptr);
    EXPECT_THAT(m_document.GetContentList(), ElementsAre(nullptr));
}

TEST_F(DocumentTest, CreateContentUsesTheDefaultFactoryWithoutOne)
{
    SessionMgr::Instance().AddContentFactory(nullptr);
    SessionMgr::Instance().AddContentFactory(new FakeFactory);

    EXPECT_NE(m_document.CreateContent(nullptr), nullptr);
}

TEST_F(DocumentTest, CreateContentThrowsWithoutAnyFactory)
{
    EXPECT_THAT([&] { m_document.CreateContent(nullptr); },
                ThrowsMessage<std::runtime_error>("could not get default content factory"));
    EXPECT_THAT(m_document.GetContentList(), IsEmpty());
}

TEST_F(DocumentTest, DeleteContentDeletesRemovesAndNullsThePointer)
{
    FakeContent& first = add("first");
    AContent* second = &add("second");

    m_document.DeleteContent(second);

    EXPECT_EQ(second, nullptr);
    EXPECT_THAT(m_document.GetContentList(), ElementsAre(&first));
    EXPECT_THAT(m_log, ElementsAre("second.deleted"));
}

TEST_F(DocumentTest, DeletingNullThrows)
{
    AContent* nothing = nullptr;

    EXPECT_THAT([&] { m_document.DeleteContent(nothing); },
                ThrowsMessage<std::invalid_argument>("Attempting to delete a null content!"));
}

TEST_F(DocumentTest, DeletingAnUnknownContentThrowsAndLeavesEverything)
{
    FakeContent& known = add("known");
    FakeContent unknown(m_document, "unknown", m_log);
    AContent* pointer = &unknown;

    EXPECT_THAT(
        [&] { m_document.DeleteContent(pointer); },
        ThrowsMessage<std::invalid_argument>("Cannot find the content you are trying to delete!"));
    EXPECT_EQ(pointer, &unknown);
    EXPECT_THAT(m_document.GetContentList(), ElementsAre(&known));
    EXPECT_THAT(m_log, IsEmpty());
}

TEST_F(DocumentTest, ClearContentsDeletesInListOrder)
{
    add("first");
    addNull();
    add("second");

    m_document.ClearContents();

    EXPECT_THAT(m_log, ElementsAre("first.deleted", "second.deleted"));
    EXPECT_THAT(m_document.GetContentList(), IsEmpty());
}

TEST_F(DocumentTest, DestructorDeletesTheContents)
{
    auto document = std::make_unique<Document>(nullptr);
    document->AddContent(*new FakeContent(*document, "content", m_log));

    document.reset();

    EXPECT_THAT(m_log, ElementsAre("content.deleted"));
}

TEST_F(DocumentTest, OnlyEntriesThatAreNotNullCountAsContent)
{
    EXPECT_FALSE(m_document.HasContent());
    addNull();
    EXPECT_FALSE(m_document.HasContent());
    add("content");
    EXPECT_TRUE(m_document.HasContent());
}

TEST_F(DocumentTest, ACopySharesTheThreeFields)
{
    FakeSession session;
    FakeFactory factory;
    Document original(&session);
    original.CreateContent(&factory);
    original.SetOpenedModelName(L"model");
    auto* const copy = new Document(original);

    EXPECT_EQ(&copy->Session(), &session);
    EXPECT_EQ(copy->GetContentList(), original.GetContentList());
    EXPECT_EQ(copy->GetOpenedModelName(), L"model");

    // Both would delete the shared content: the copy takes it, the original is made empty first.
    original = Document(nullptr);
    delete copy;
}

TEST_F(DocumentTest, NoteStateReachesEveryContentInOrder)
{
    add("first");
    addNull();
    add("second");

    m_document.NoteState();

    EXPECT_THAT(m_log, ElementsAre("first.NoteState", "second.NoteState"));
}

TEST_F(DocumentTest, ClearSelectionReachesEveryContentInOrder)
{
    add("first");
    addNull();
    add("second");

    m_document.ClearSelection();

    EXPECT_THAT(m_log, ElementsAre("first.ClearSelection", "second.ClearSelection"));
}

TEST_F(DocumentTest, UndoReachesEveryContentAndThenTheSession)
{
    FakeSession session;
    Document& document = session.Document();
    document.AddContent(*new FakeContent(document, "first", session.m_calls));
    document.CreateContent(&m_nullFactory);
    document.AddContent(*new FakeContent(document, "second", session.m_calls));

    document.Undo();

    EXPECT_THAT(session.m_calls, ElementsAre("first.Undo", "second.Undo", "UpdateAfterUndoRedo"));
    document.ClearContents();
}

TEST_F(DocumentTest, RedoReachesEveryContentAndThenTheSession)
{
    FakeSession session;
    Document& document = session.Document();
    document.AddContent(*new FakeContent(document, "first", session.m_calls));
    document.AddContent(*new FakeContent(document, "second", session.m_calls));

    document.Redo();

    EXPECT_THAT(session.m_calls, ElementsAre("first.Redo", "second.Redo", "UpdateAfterUndoRedo"));
    document.ClearContents();
}

TEST_F(DocumentTest, UndoWithoutSessionThrowsAfterTheContentsWentBack)
{
    add("content");

    EXPECT_THAT([&] { m_document.Undo(); }, ThrowsMessage<std::runtime_error>("null session"));
    EXPECT_THAT(m_log, ElementsAre("content.Undo"));
}

TEST_F(DocumentTest, RayPickStopsAtTheFirstContentThatIsHit)
{
    add("first");
    add("second").m_hit = kBody;
    add("third").m_hit = EntityId(8, 1, EntityType::Body);
    EntityId hit;

    EXPECT_TRUE(m_document.RayPick(TambVizCore::Ray(), hit));
    EXPECT_EQ(hit, kBody);
    EXPECT_THAT(m_log, ElementsAre("first.RayPick", "second.RayPick"));
}

TEST_F(DocumentTest, RayPickIsFalseWhenNothingIsHit)
{
    add("content");
    EntityId hit;

    EXPECT_FALSE(m_document.RayPick(TambVizCore::Ray(), hit));
    EXPECT_TRUE(hit.IsEmpty());
}

TEST_F(DocumentTest, RayPickThrowsAtANullEntryMetBeforeAHit)
{
    add("first");
    addNull();
    add("second").m_hit = kBody;
    EntityId hit;

    EXPECT_THAT([&] { m_document.RayPick(TambVizCore::Ray(), hit); },
                ThrowsMessage<std::invalid_argument>("NULL content found in the document!"));
}

TEST_F(DocumentTest, RayPickNeverSeesANullEntryBehindAHit)
{
    add("first").m_hit = kBody;
    addNull();
    EntityId hit;

    EXPECT_TRUE(m_document.RayPick(TambVizCore::Ray(), hit));
}

TEST_F(DocumentTest, RayPickKindAsksOnlyContentsThatPickByKind)
{
    add("plain").m_hit = kBody;
    auto* const kinds = new FakeKindContent(m_document, "kinds", m_log);
    kinds->m_kind = PartKind::Edge;
    kinds->m_hit = EntityId(9, 1, EntityType::Body);
    m_document.AddContent(*kinds);
    EntityId hit;

    EXPECT_TRUE(m_document.RayPickKind(TambVizCore::Ray(), PartKind::Edge, hit));
    EXPECT_EQ(hit, kinds->m_hit);
    EXPECT_THAT(m_log, ElementsAre("kinds.RayPickKind"));
}

TEST_F(DocumentTest, RayPickKindIsFalseWhenTheKindIsNotHit)
{
    auto* const kinds = new FakeKindContent(m_document, "kinds", m_log);
    kinds->m_kind = PartKind::Edge;
    m_document.AddContent(*kinds);
    EntityId hit;

    EXPECT_FALSE(m_document.RayPickKind(TambVizCore::Ray(), PartKind::Face, hit));
}

TEST_F(DocumentTest, RayPickKindThrowsAtANullEntry)
{
    addNull();
    EntityId hit;

    EXPECT_THAT([&] { m_document.RayPickKind(TambVizCore::Ray(), PartKind::Face, hit); },
                ThrowsMessage<std::invalid_argument>("NULL content found in the document!"));
}

TEST_F(DocumentTest, ContentIdsAreJoinedByAnd)
{
    FakeContent& first = add("first");
    first.m_shortId = L"a";
    first.m_longId = L"/a";
    FakeContent& second = add("second");
    second.m_shortId = L"b";
    second.m_longId = L"/b";

    EXPECT_EQ(m_document.GetContentIdsShort(), L"a and b");
    EXPECT_EQ(m_document.GetContentIdsLong(), L"/a and /b");
}

TEST_F(DocumentTest, ContentIdsLoseOnlyTheBlanksAtBothEnds)
{
    add("content").m_shortId = L"  a b\t ";

    EXPECT_EQ(m_document.GetContentIdsShort(), L"a b\t");
}

TEST_F(DocumentTest, ContentIdsOfBlanksAndOfNothingAreEmpty)
{
    EXPECT_EQ(m_document.GetContentIdsShort(), L"");
    add("content").m_shortId = L"   ";
    EXPECT_EQ(m_document.GetContentIdsShort(), L"");
}

TEST_F(DocumentTest, EmptyIdsStillLeaveTheirAnd)
{
    add("first");
    add("second").m_longId = L"b";

    EXPECT_EQ(m_document.GetContentIdsLong(), L"and b");
}

TEST_F(DocumentTest, ModelNameIsEmptyUntilSet)
{
    EXPECT_EQ(m_document.GetOpenedModelName(), L"");
    m_document.SetOpenedModelName(L"engine");
    EXPECT_EQ(m_document.GetOpenedModelName(), L"engine");
}
