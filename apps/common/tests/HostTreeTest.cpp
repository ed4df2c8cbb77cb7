#include "../HostTree.h"

#include <OrvikCore/TreeBuilder.h>

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>
#include <vector>

namespace {

using OrvikCore::TreeBuilder;
using Pellux::HostTree;
using Pellux::HostTreeRow;
using TambVizCore::RenderId;

RenderId path(std::initializer_list<std::uint64_t> ids)
{
    RenderId id(RenderId::kOriginTree);
    for (const std::uint64_t value : ids)
        id.AddValue(value);
    return id;
}

/// Counts what a window would do.
class CountingObserver : public Pellux::IHostTreeObserver
{
public:
    void RowsChanged() override { ++m_rowChanges; }
    void HighlightChanged() override { ++m_highlightChanges; }
    void ShowRow(const HostTreeRow& row) override { m_shown.push_back(row.Text()); }

    int m_rowChanges = 0;
    int m_highlightChanges = 0;
    std::vector<std::wstring> m_shown;
};

/// A container with an assembly of two bodies, each with three faces that come when it is filled.
class Rows : public testing::Test
{
protected:
    Rows()
    {
        m_builder.ConstructionBegin();
        m_builder.ContainerBegin(1, L"file");
        m_builder.AssemblyBegin(2, L"assembly");
        for (const std::uint64_t id : {3, 4}) {
            m_builder.BodyBegin(id, L"body " + std::to_wstring(id));
            m_builder.BodyEnd();
        }
        m_builder.AssemblyEnd();
        m_builder.ContainerEnd();
        m_builder.ConstructionEnd();
        m_tree.SetObserver(&m_observer);
    }

    bool fill(const RenderId& row)
    {
        m_filled.push_back(row);
        if (row.Length() != 3)
            return false;
        m_tree.ConstructionBegin(/*incremental=*/true);
        for (int i = 0; i < row.Length(); ++i)
            m_tree.OpenNode(row[i], L"another text", nullptr);
        for (const std::uint64_t id : {101, 102, 103}) {
            m_tree.OpenNode(id, L"face", nullptr);
            m_tree.CloseNode();
        }
        m_tree.ConstructionEnd();
        return true;
    }

    std::vector<RenderId> m_filled;
    HostTree m_tree{[this](const RenderId& row) { return fill(row); }};
    TreeBuilder& m_builder = *m_tree.GetTreeBuilder();
    CountingObserver m_observer;
};

TEST_F(Rows, AreWhereTheBuilderOpenedThem)
{
    const HostTreeRow* const row = m_tree.Find(path({1, 2, 4}));

    ASSERT_NE(row, nullptr);
    EXPECT_EQ(row->Text(), L"body 4");
    EXPECT_STREQ(row->KindWord(), "body");
    EXPECT_EQ(row->Position(), 1u);
    EXPECT_EQ(row->Path(), path({1, 2, 4}));
    EXPECT_EQ(m_tree.Root().ChildCount(), 1u);
}

TEST_F(Rows, BelowABodyComeWhenItIsFilled)
{
    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 2, 3})), 0);

    m_tree.Fill(path({1, 2, 3}));

    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 2, 3})), 3);
    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 2, 4})), 0);
    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 2})), 2);
}

TEST_F(Rows, KeepTheirTextWhenRowsAreAddedBelowThem)
{
    m_tree.Fill(path({1, 2, 3}));

    EXPECT_EQ(m_tree.Find(path({1, 2, 3}))->Text(), L"body 3");
    EXPECT_STREQ(m_tree.Find(path({1, 2, 3}))->KindWord(), "body");
}

TEST_F(Rows, AreFilledOnce)
{
    m_tree.Fill(path({1, 2, 3}));
    m_tree.Fill(path({1, 2, 3}));

    EXPECT_EQ(m_filled, std::vector<RenderId>{path({1, 2, 3})});
}

TEST_F(Rows, AreAllFilledTogether)
{
    m_tree.FillAll();

    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 2, 3})), 3);
    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 2, 4})), 3);
    EXPECT_EQ(m_filled.size(), 10u);
}

TEST_F(Rows, OfAnUnknownPathAreNone)
{
    EXPECT_EQ(m_tree.Find(path({1, 7})), nullptr);
    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({1, 7})), -1);
    EXPECT_EQ(m_tree.GetChildrenCountForNode(path({})), 1);
}

TEST_F(Rows, TakeANewTextWhenTheyAreOpenedAgain)
{
    m_builder.ConstructionBegin();
    m_builder.ContainerBegin(1, L"renamed");
    m_builder.ContainerEnd();
    m_builder.ConstructionEnd();

    EXPECT_EQ(m_tree.Root().ChildCount(), 1u);
    EXPECT_EQ(m_tree.Find(path({1}))->Text(), L"renamed");
    EXPECT_NE(m_tree.Find(path({1, 2, 3})), nullptr);
}

TEST_F(Rows, OfANestedConstructionBeginAtTheTop)
{
    m_builder.ConstructionBegin();
    m_builder.ContainerBegin(5, L"outer");
    m_builder.ConstructionBegin();
    m_builder.ContainerBegin(6, L"inner");
    m_builder.ContainerEnd();
    m_builder.ConstructionEnd();
    m_tree.OpenNode(7, L"below outer", nullptr);
    m_builder.ConstructionEnd();

    EXPECT_NE(m_tree.Find(path({6})), nullptr);
    EXPECT_NE(m_tree.Find(path({5, 7})), nullptr);
}

TEST_F(Rows, ThatWereNeverOpenedAreNotClosed)
{
    m_tree.CloseNode();
    m_tree.ConstructionEnd();
    m_tree.OpenNode(9, L"top", nullptr);

    EXPECT_NE(m_tree.Find(path({9})), nullptr);
}

TEST_F(Rows, AreDisabledWhileTheyAreBuilt)
{
    m_builder.ConstructionBegin();
    m_builder.ContainerBegin(1, L"file");
    m_builder.AnyTypeBegin(8, L"view", TreeBuilder::TreeItemStyles::View);
    m_builder.SetCurrentNodeEnabled(false);
    m_builder.AnyTypeEnd();
    m_builder.ConstructionEnd();

    EXPECT_FALSE(m_tree.Find(path({1, 8}))->IsEnabled());
    EXPECT_TRUE(m_tree.Find(path({1}))->IsEnabled());
}

TEST_F(Rows, HaveAStyleForEveryKind)
{
    using Kind = TreeBuilder::TreeItemStyles;
    const std::vector<Kind> kinds = {Kind::Scene,        Kind::Container,
                                     Kind::Body,         Kind::Assembly,
                                     Kind::PointCloud,   Kind::PMI,
                                     Kind::PMIType,      Kind::PolyBody,
                                     Kind::Geometry,     Kind::Wire,
                                     Kind::PMIType10101, Kind::PMIType10102,
                                     Kind::PMIType10103, Kind::PMIType10104,
                                     Kind::PMIType10105, Kind::Views,
                                     Kind::View,         Kind::Captures,
                                     Kind::Capture,      Kind::FTAGeometry,
                                     Kind::PointSet,     Kind::AssemblyReference};
    std::uint64_t id = 100;

    for (const Kind kind : kinds) {
        m_builder.AnyTypeBegin(++id, L"", kind);
        m_builder.AnyTypeEnd();
        EXPECT_STRNE(m_tree.Find(path({id}))->KindWord(), "row") << static_cast<int>(kind);
    }
}

TEST_F(Rows, ThatAreHighlightedGather)
{
    m_tree.HighlightNode(path({1, 2, 3}));
    m_tree.HighlightNode(path({1, 2, 4}));

    EXPECT_TRUE(m_tree.Find(path({1, 2, 3}))->IsHighlighted());
    EXPECT_TRUE(m_tree.Find(path({1, 2, 4}))->IsHighlighted());
    EXPECT_EQ(m_observer.m_highlightChanges, 2);

    m_tree.ClearHighlight();

    EXPECT_FALSE(m_tree.Find(path({1, 2, 3}))->IsHighlighted());
    EXPECT_FALSE(m_tree.Find(path({1, 2, 4}))->IsHighlighted());
}

TEST_F(Rows, ThatAreNotBuiltAreStoodForUntilTheyAre)
{
    m_tree.HighlightNode(path({1, 2, 3, 102}));

    EXPECT_TRUE(m_tree.Find(path({1, 2, 3}))->IsHighlighted());
    EXPECT_TRUE(m_filled.empty());

    m_tree.Fill(path({1, 2, 3}));

    EXPECT_FALSE(m_tree.Find(path({1, 2, 3}))->IsHighlighted());
    EXPECT_TRUE(m_tree.Find(path({1, 2, 3, 102}))->IsHighlighted());
}

TEST_F(Rows, OfAnUnknownPathAreNotHighlighted)
{
    m_tree.Fill(path({1, 2, 3}));

    m_tree.HighlightNode(path({1, 2, 3, 999}));
    m_tree.HighlightNode(path({77}));

    EXPECT_EQ(m_observer.m_highlightChanges, 0);
    EXPECT_FALSE(m_tree.Find(path({1, 2, 3}))->IsHighlighted());
}

TEST_F(Rows, AreHighlightedAgainWhenTheyAreBuiltAnew)
{
    m_tree.HighlightNode(path({1}));

    m_builder.ClearAll();
    EXPECT_EQ(m_tree.Root().ChildCount(), 0u);
    m_builder.ConstructionBegin();
    m_builder.ContainerBegin(1, L"file");
    m_builder.ContainerEnd();
    m_builder.ConstructionEnd();

    EXPECT_TRUE(m_tree.Find(path({1}))->IsHighlighted());
}

TEST_F(Rows, AreFilledOnTheWayToOneThatIsToBeSeen)
{
    m_tree.EnsureNodeVisible(path({1, 2, 4, 103}));

    EXPECT_EQ(m_observer.m_shown, std::vector<std::wstring>{L"face"});
    EXPECT_EQ(m_filled, std::vector<RenderId>{path({1, 2, 4})});
}

TEST_F(Rows, AreToldOfOnceForEachConstruction)
{
    m_builder.ConstructionBegin();
    m_builder.ContainerBegin(20, L"a");
    m_builder.ContainerEnd();
    m_builder.ContainerBegin(21, L"b");
    m_builder.ContainerEnd();
    m_builder.ConstructionEnd();

    EXPECT_EQ(m_observer.m_rowChanges, 1);
}

TEST_F(Rows, AreFoundAmongManySiblings)
{
    constexpr std::uint64_t kCount = 100000;
    m_builder.ConstructionBegin();
    for (std::uint64_t round = 0; round < 2; ++round)
        for (std::uint64_t id = 1000; id < 1000 + kCount; ++id) {
            m_builder.GeometryBegin(id, L"face");
            m_builder.GeometryEnd();
        }
    m_builder.ConstructionEnd();

    EXPECT_EQ(m_tree.Root().ChildCount(), kCount + 1);
    EXPECT_EQ(m_tree.Find(path({1000 + kCount - 1}))->Position(), kCount);
}

} // namespace
