#include "CommandFixture.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/ViewDoUndoStrategy.h>

#include <cmath>
#include <string>

namespace {

using TambVizCore::GeometryBuilder;
using TambVizCore::GeoNode;
using TambVizCore::Node;
using TambVizCore::SharedArray;

/// A file with two pairs of plates. The first pair lies at 0 and 4 along x; the second, a quarter
/// turn around z, is placed at 20 along x and has its plates at 0 and 8 along y of the world.
class ExplodeCommand : public CommandFixture
{
protected:
    ExplodeCommand()
    {
        m_view.m_adapter.m_strategy = &m_strategy;
        Node* const file = m_view.m_root.CreateChildNode(1);
        Node* const top = file->CreateChildNode(2);
        m_firstPair = top->CreateChildNode(3)->CreateChildNode(4);
        m_secondPair = top->CreateChildNode(5);
        const double turned[16] = {0, 1, 0, 0, -1, 0, 0, 0, 0, 0, 1, 0, 20, 0, 0, 1};
        m_secondPair->SetTransform(turned);
        m_a = addPlate(*m_firstPair, 6, 0);
        m_b = addPlate(*m_firstPair, 7, 4);
        m_c = addPlate(*m_secondPair, 8, 0);
        m_d = addPlate(*m_secondPair, 9, 8);
    }

    /// A square with the side 2 around a place on the x axis of its parent.
    static GeoNode* addPlate(Node& parent, std::uint64_t number, double x)
    {
        std::string error;
        GeometryBuilder builder;
        builder.SetPositions(SharedArray<float>(std::vector<float>{-1, -1, 0, 1, -1, 0, 1, 1, 0}))
            .SetTriangles(SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1, 2}));
        GeoNode* const node = parent.CreateChildGeoNode(number);
        node->SetGeometry(builder.Build(error));
        const double place[16] = {1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, x, 0, 0, 1};
        node->SetTransform(place);
        return node;
    }

    /// @return the middle of a plate in the world, "x y".
    static std::string at(const Node* plate)
    {
        float middle[3];
        plate->WorldBounds().GetCenter(middle);
        std::string text;
        for (int i = 0; i < 2; ++i)
            text += (i > 0 ? " " : "") + std::to_string(std::lround(middle[i] * 10));
        return text;
    }
    std::string all() const { return at(m_a) + ", " + at(m_b) + ", " + at(m_c) + ", " + at(m_d); }

    const std::string m_home = "0 0, 40 0, 200 0, 200 80";
    TambVizCore::ViewDoUndoStrategy m_strategy{m_view.m_root};
    Node* m_firstPair = nullptr;
    Node* m_secondPair = nullptr;
    GeoNode* m_a = nullptr;
    GeoNode* m_b = nullptr;
    GeoNode* m_c = nullptr;
    GeoNode* m_d = nullptr;
};

// The whole reaches from -1 to 21 and from -1 to 9: its middle is (10, 4). That of the first pair
// is (2, 0), that of the second (20, 4).

TEST_F(ExplodeCommand, MovesTheOutermostAssembliesApart)
{
    EXPECT_EQ(run("view:explode", {Value(1.0), Value(1)}), Value(true));

    EXPECT_EQ(all(), "-80 -40, -40 -40, 300 0, 300 80");
}

TEST_F(ExplodeCommand, MovesAssembliesOfEveryLevelApart)
{
    EXPECT_EQ(run("view:explode", {Value(1.0)}), Value(true));

    EXPECT_EQ(all(), "-100 -40, -20 -40, 300 -40, 300 120");
}

TEST_F(ExplodeCommand, NodesWithOneChildAreNoLevel)
{
    run("view:explode", {Value(0.5), Value(2)});

    EXPECT_EQ(all(), "-50 -20, 10 -20, 250 -20, 250 100");
}

TEST_F(ExplodeCommand, ASecondExplosionReplacesTheFirst)
{
    run("view:explode", {Value(3.0)});
    run("view:explode", {Value(1.0), Value(1)});

    EXPECT_EQ(all(), "-80 -40, -40 -40, 300 0, 300 80");
}

TEST_F(ExplodeCommand, ZeroPutsEverythingBack)
{
    run("view:explode", {Value(3.0)});

    EXPECT_EQ(run("view:explode", {Value(0)}), Value(true));
    EXPECT_EQ(all(), m_home);
    EXPECT_EQ(run("view:explode", {Value(0)}), Value(false));
}

TEST_F(ExplodeCommand, IsToldHowFarItIs)
{
    EXPECT_EQ(run("view:explosion"), Value(0.0));
    run("view:explode", {Value(0.75), Value(1)});

    EXPECT_NEAR(run("view:explosion").AsReal(), 0.75, 1e-12);
}

TEST_F(ExplodeCommand, IsToldWithTheDigitsItWasGiven)
{
    for (const double amount : {0.51, 0.1, 0.3, 1.7, 9999.0}) {
        run("view:explode", {amount});
        EXPECT_EQ(run("view:explosion"), Value(amount));
    }
}

TEST_F(ExplodeCommand, IsUndoneAndDoneAgain)
{
    run("view:explode", {Value(1.0), Value(1)});
    run("view:explode", {Value(1.0)});

    run("view:undo");
    EXPECT_EQ(all(), "-80 -40, -40 -40, 300 0, 300 80");
    run("view:undo");
    EXPECT_EQ(all(), m_home);
    run("view:redo");
    EXPECT_EQ(all(), "-80 -40, -40 -40, 300 0, 300 80");
}

TEST_F(ExplodeCommand, WhatIsHiddenCountsAllTheSame)
{
    m_secondPair->SetVisible(false);

    run("view:explode", {Value(1.0), Value(1)});

    m_secondPair->SetVisible(true);
    EXPECT_EQ(all(), "-80 -40, -40 -40, 300 0, 300 80");
}

TEST_F(ExplodeCommand, AnnotationsDoNotCountAsBodies)
{
    GeoNode* const note = addPlate(*m_firstPair, 20, 1000);
    note->SetCategory(GeoNode::Category::PMI);

    run("view:explode", {Value(1.0), Value(1)});

    EXPECT_EQ(all(), "-80 -40, -40 -40, 300 0, 300 80");
    EXPECT_EQ(at(note), "9920 -40");
}

TEST_F(ExplodeCommand, WhatIsDrawnBesideTheModelStays)
{
    Node* const beside = m_view.m_root.CreateChildNode(100);
    beside->SetAuxiliary(true);
    addPlate(*beside, 1, 0);
    addPlate(*beside, 2, 50);

    run("view:explode", {Value(1.0)});

    EXPECT_FALSE(beside->ChildAt(1)->IsDisplaced());
}

TEST_F(ExplodeCommand, ArgumentsAreNamedInErrors)
{
    EXPECT_NE(errorOf("view:explode", {Value(-0.5)}).find("\"amount\""), std::string::npos);
    EXPECT_NE(errorOf("view:explode", {Value(1.0), Value(0)}).find("\"levels\""),
              std::string::npos);
    EXPECT_NE(errorOf("view:explode", {Value(L"far")}).find("\"amount\""), std::string::npos);
}

} // namespace
