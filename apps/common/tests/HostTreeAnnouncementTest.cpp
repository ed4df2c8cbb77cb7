#include "../HostTree.h"

#include <OrvikCore/TreeBuilder.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

using OrvikCore::TreeBuilder;
using Pellux::HostTree;
using Pellux::HostTreeRow;
using TambVizCore::RenderId;

/// Writes down what it is told, with the number of rows that count at that moment.
class RecordingObserver : public Pellux::IHostTreeObserver
{
public:
    explicit RecordingObserver(HostTree& tree) : m_tree(tree) {}

    void RowsChanged() override {}
    void HighlightChanged() override {}
    void ShowRow(const HostTreeRow&) override {}

    void RowsAboutToBeAnnounced(const HostTreeRow& parent, std::size_t first,
                                std::size_t last) override
    {
        m_parent = &parent;
        note(std::to_string(first) + "-" + std::to_string(last) + " below " +
             std::to_string(parent.Id()));
    }

    void RowsAnnounced() override
    {
        note("now");
        m_parent = nullptr;
    }

    void RowsAboutToBeCleared() override { note("clear"); }
    void RowsCleared() override { note("cleared"); }

    std::vector<std::string> m_notes;

private:
    void note(const std::string& what)
    {
        const HostTreeRow& row = m_parent != nullptr ? *m_parent : m_tree.Root();
        m_notes.push_back(what + ": " + std::to_string(row.AnnouncedCount()));
    }

    HostTree& m_tree;
    const HostTreeRow* m_parent = nullptr;
};

/// A scene with one body, whose faces come when it is filled.
class Announcements : public testing::Test
{
protected:
    Announcements() { build(1); }

    void build(std::uint64_t bodies)
    {
        TreeBuilder& builder = *m_tree.GetTreeBuilder();
        builder.ConstructionBegin();
        builder.SceneBegin(7, L"scene");
        for (std::uint64_t id = 1; id <= bodies; ++id) {
            builder.BodyBegin(id, L"body");
            builder.BodyEnd();
        }
        builder.SceneEnd();
        builder.ConstructionEnd();
    }

    bool fill(const RenderId& row)
    {
        m_tree.ConstructionBegin(/*incremental=*/true);
        for (int i = 0; i < row.Length(); ++i)
            m_tree.OpenNode(row[i], L"", nullptr);
        for (std::uint64_t face = 1; face <= 3; ++face)
            m_tree.CreateNode(face, L"face", nullptr);
        m_tree.ConstructionEnd();
        return true;
    }

    void watch() { m_tree.SetObserver(&m_observer); }

    HostTree m_tree{[this](const RenderId& row) { return fill(row); }};
    RecordingObserver m_observer{m_tree};
};

TEST_F(Announcements, ComeBeforeAndAfterTheRowsCount)
{
    watch();
    build(3);

    EXPECT_EQ(m_observer.m_notes, (std::vector<std::string>{"1-2 below 7: 1", "now: 3"}));
}

TEST_F(Announcements, NameOnlyTheTopmostNewRows)
{
    m_tree.ClearAll();
    watch();
    build(2);

    EXPECT_EQ(m_observer.m_notes, (std::vector<std::string>{"0-0 below 0: 0", "now: 1"}));
    EXPECT_EQ(m_tree.Root().ChildAt(0).AnnouncedCount(), 2u);
}

TEST_F(Announcements, ComeForRowsThatAreFilled)
{
    watch();
    RenderId body(RenderId::kOriginTree);
    body.AddValue(7);
    body.AddValue(1);
    m_tree.Fill(body);

    EXPECT_EQ(m_observer.m_notes, (std::vector<std::string>{"0-2 below 1: 0", "now: 3"}));
}

TEST_F(Announcements, ComeBeforeAndAfterTheRowsGo)
{
    watch();
    m_tree.ClearAll();

    EXPECT_EQ(m_observer.m_notes, (std::vector<std::string>{"clear: 1", "cleared: 0"}));
}

TEST_F(Announcements, LeaveNothingOverForALaterObserver)
{
    build(5);
    watch();
    build(5);

    EXPECT_TRUE(m_observer.m_notes.empty());
}

TEST_F(Announcements, TellWhichRowsAreHighlighted)
{
    build(2);
    RenderId body(RenderId::kOriginTree);
    body.AddValue(7);
    body.AddValue(2);
    m_tree.HighlightNode(body);

    ASSERT_EQ(m_tree.HighlightedRows().size(), 1u);
    EXPECT_EQ(m_tree.HighlightedRows()[0]->Id(), 2u);
}

} // namespace
