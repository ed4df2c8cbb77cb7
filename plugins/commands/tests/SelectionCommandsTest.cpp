#include "../Wildcards.h"
#include "FakeRenderer.h"
#include "ModelFixture.h"
#include "RecordingViewTree.h"

namespace {

using Ids = std::vector<TambVizCore::EntityId>;

class SelectionCommands : public ModelFixture
{
};

TEST_F(SelectionCommands, SetReplacesAndAddGathers)
{
    run("sel:set", {entity(m_face)});
    run("sel:set", {entity(m_edge)});
    run("sel:add", {entity(m_face), entity(m_edge)});

    EXPECT_EQ(idsIn(run("sel:get")), (Ids{m_edge, m_face}));
}

TEST_F(SelectionCommands, ListsAndMissesAreTaken)
{
    run("sel:set", {List{entity(m_face), false}, false, entity(m_edge)});

    EXPECT_EQ(idsIn(run("sel:get")), (Ids{m_face, m_edge}));
}

TEST_F(SelectionCommands, ClearSelectsNothing)
{
    run("sel:set", {entity(m_face)});
    run("sel:clear");

    EXPECT_EQ(run("sel:get"), Value(List{}));
}

TEST_F(SelectionCommands, ClosingTheDocumentSelectsNothing)
{
    run("sel:set", {entity(m_face)});
    run("doc:clear");

    EXPECT_EQ(run("sel:get"), Value(List{}));
}

TEST_F(SelectionCommands, WhatIsNoEntityIsRefused)
{
    EXPECT_EQ(errorOf("sel:set", {L"face"}),
              "sel:set: parameter \"entities\": expected entities, lists of entities, or #f, got "
              "the string \"face\".");
    EXPECT_EQ(errorOf("sel:add", {true}),
              "sel:add: parameter \"entities\": expected entities, lists of entities, or #f, got "
              "true.");
}

TEST_F(SelectionCommands, WhatIsSelectedIsHighlightedInTheTree)
{
    TambVizCore::RenderId inView(TambVizCore::RenderId::kOriginView3D);
    inView.AddValue(3);
    TambVizCore::RenderId inTree(TambVizCore::RenderId::kOriginTree);
    inTree.AddValue(8);
    Fake3DRenderer renderer(&m_bolts);
    renderer.m_pairs = {{inView, m_firstBody}};
    RecordingViewTree tree;
    FakeTreeRenderer treeRenderer(&m_bolts, &tree);
    treeRenderer.m_pairs = {{inTree, m_firstBody}};
    m_session.AddRenderer(&renderer, true);
    m_session.AddRenderer(&treeRenderer, true);
    m_session.SetViewTree(&tree);

    run("sel:set", {entity(m_firstBody)});
    EXPECT_EQ(tree.m_highlighted, std::vector<TambVizCore::RenderId>{inTree});
    run("sel:clear");
    m_session.SetViewTree(nullptr);

    EXPECT_TRUE(tree.m_highlighted.empty());
}

TEST_F(SelectionCommands, WhatIsNotDrawnIsSelectedQuietly)
{
    run("sel:set", {entity(m_assembly)});

    EXPECT_EQ(idsIn(run("sel:get")), Ids{m_assembly});
    EXPECT_TRUE(m_output.Messages().empty());
}

TEST_F(SelectionCommands, NamesFitPatterns)
{
    EXPECT_EQ(idsIn(run("sel:by-name", {L"bolt ?"})), (Ids{m_firstReference, m_secondReference}));
    EXPECT_EQ(idsIn(run("sel:by-name", {L"p*"})), (Ids{m_assembly, m_plate}));
    EXPECT_EQ(idsIn(run("sel:by-name", {L"bolt*", L"body"})), (Ids{m_firstBody, m_secondBody}));
    EXPECT_EQ(idsIn(run("sel:get")), (Ids{m_firstBody, m_secondBody}));
}

TEST_F(SelectionCommands, ANameThatNothingHasSelectsNothing)
{
    run("sel:set", {entity(m_face)});

    EXPECT_EQ(run("sel:by-name", {L"nut"}), Value(List{}));
    EXPECT_EQ(run("sel:get"), Value(List{}));
}

TEST_F(SelectionCommands, NamesOfBodiesAreFoundWithoutLookingAtTheirParts)
{
    run("sel:by-name", {L"*"});

    for (const TambVizCore::EntityId& asked : m_bolts.m_childrenAsked)
        EXPECT_NE(asked, m_firstBody);
}

TEST_F(SelectionCommands, KindsAreThoseOfTheType)
{
    EXPECT_EQ(idsIn(run("sel:by-kind", {L"body"})), (Ids{m_firstBody, m_secondBody}));
    EXPECT_EQ(idsIn(run("sel:by-kind", {L"mesh"})), Ids{m_plate});
    EXPECT_EQ(run("sel:by-kind", {L"face"}).AsList().size(), 4u);
    EXPECT_EQ(run("sel:by-kind", {L"vertex"}).AsList().size(), 2u);
    EXPECT_EQ(run("sel:by-kind", {L"view"}), Value(List{}));
}

TEST_F(SelectionCommands, AnUnknownKindIsRefused)
{
    const std::string text = errorOf("sel:by-kind", {L"fase"});

    EXPECT_EQ(
        text.find("sel:by-kind: parameter \"kind\": expected one of face, edge, vertex, body"), 0u);
    EXPECT_NE(text.find(", got the string \"fase\"."), std::string::npos);
}

TEST_F(SelectionCommands, ABoxTouchesOrEncloses)
{
    const List low = {-1, -1, -1};
    const List high = {20, 20, 45};

    EXPECT_EQ(idsIn(run("sel:by-box", {low, high})), (Ids{m_firstBody, m_plate}));
    EXPECT_EQ(idsIn(run("sel:by-box", {high, low, L"enclosed"})), Ids{m_firstBody});
    EXPECT_EQ(idsIn(run("sel:by-box", {low, List{20, 20, 1}, L"touching", L"face"})), Ids{m_face});
    EXPECT_EQ(run("sel:by-box", {List{900, 900, 900}, List{901, 901, 901}}), Value(List{}));
}

TEST_F(SelectionCommands, ABoxTouchesOrEnclosesNothingElse)
{
    EXPECT_EQ(errorOf("sel:by-box", {List{0, 0, 0}, List{1, 1, 1}, L"near"}),
              "sel:by-box: parameter \"how\": expected touching or enclosed, got the string "
              "\"near\".");
}

TEST(Wildcards, StarIsAnyTextAndQuestionMarkOneCharacter)
{
    using OrvikCommands::MatchesPattern;

    EXPECT_TRUE(MatchesPattern(L"", L""));
    EXPECT_TRUE(MatchesPattern(L"", L"**"));
    EXPECT_FALSE(MatchesPattern(L"", L"?"));
    EXPECT_TRUE(MatchesPattern(L"bolt M8x30", L"bolt*30"));
    EXPECT_TRUE(MatchesPattern(L"aXbXc", L"a*X?"));
    EXPECT_FALSE(MatchesPattern(L"aXbXc", L"a*X"));
    EXPECT_FALSE(MatchesPattern(L"Bolt", L"bolt"));
    EXPECT_TRUE(MatchesPattern(L"a*b", L"a?b"));
    EXPECT_FALSE(MatchesPattern(L"bolt", L"bol"));
    EXPECT_TRUE(MatchesPattern(L"ababab", L"*ab"));
}

TEST(Wildcards, ManyStarsTakeNoLongTime)
{
    const std::wstring text(20000, L'a');
    std::wstring pattern;
    for (int i = 0; i < 500; ++i)
        pattern += L"a*";

    EXPECT_FALSE(OrvikCommands::MatchesPattern(text, pattern + L"b"));
}

} // namespace
