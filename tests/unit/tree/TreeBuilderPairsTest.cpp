#include "RecordingViewTree.h"

#include "OrvikCore/ATreeItemStyle.h"
#include "OrvikCore/TreeBuilder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <string>

using OrvikCore::ATreeItemStyle;
using OrvikCore::TreeBuilder;
using testing::ElementsAre;

namespace {

using Begin = void (TreeBuilder::*)(std::uint64_t const&, std::wstring const&);
using End = void (TreeBuilder::*)();

struct Pair
{
    const char* name;
    Begin begin;
    End end;
    int style;
    std::uint64_t id = 7;
};

std::ostream& operator<<(std::ostream& out, const Pair& pair)
{
    return out << pair.name;
}

const Pair kPairs[] = {
    {"Scene", &TreeBuilder::SceneBegin, &TreeBuilder::SceneEnd, 1},
    {"Container", &TreeBuilder::ContainerBegin, &TreeBuilder::ContainerEnd, 2},
    {"Body", &TreeBuilder::BodyBegin, &TreeBuilder::BodyEnd, 4},
    {"Assembly", &TreeBuilder::AssemblyBegin, &TreeBuilder::AssemblyEnd, 13},
    {"AssemblyReference", &TreeBuilder::AssemblyReferenceBegin, &TreeBuilder::AssemblyReferenceEnd,
     14},
    {"PointCloud", &TreeBuilder::PointCloudBegin, &TreeBuilder::PointCloudEnd, 15},
    {"PMI", &TreeBuilder::PMIBegin, &TreeBuilder::PMIEnd, 16},
    {"PMIType10100", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 17, 10100},
    {"PMIType10101", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 21, 10101},
    {"PMIType10102", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 30, 10102},
    {"PMIType10103", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 23, 10103},
    {"PMIType10104", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 32, 10104},
    {"PMIType10105", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 28, 10105},
    {"PMIType10106", &TreeBuilder::PMITypeBegin, &TreeBuilder::PMITypeEnd, 17, 10106},
    {"PolyBody", &TreeBuilder::PolyBodyBegin, &TreeBuilder::PolyBodyEnd, 18},
    {"Views", &TreeBuilder::ViewsBegin, &TreeBuilder::ViewsEnd, 34},
    {"View", &TreeBuilder::ViewBegin, &TreeBuilder::ViewEnd, 35},
    {"Captures", &TreeBuilder::CapturesBegin, &TreeBuilder::CapturesEnd, 36},
    {"Capture", &TreeBuilder::CaptureBegin, &TreeBuilder::CaptureEnd, 37},
    {"FTAGeometry", &TreeBuilder::FTAGeometryBegin, &TreeBuilder::FTAGeometryEnd, 39},
    {"Geometry", &TreeBuilder::GeometryBegin, &TreeBuilder::GeometryEnd, 19},
    {"Mesh", &TreeBuilder::MeshBegin, &TreeBuilder::MeshEnd, 18},
    {"Wire", &TreeBuilder::WireBegin, &TreeBuilder::WireEnd, 20},
    {"PointSet", &TreeBuilder::PointSetBegin, &TreeBuilder::PointSetEnd, 74},
};

class TreeBuilderPairs : public testing::TestWithParam<Pair>
{
protected:
    RecordingViewTree m_tree;
    std::unique_ptr<TreeBuilder> m_builder{TreeBuilder::CreateTreeBuilder(&m_tree)};
};

} // namespace

TEST_P(TreeBuilderPairs, BeginOpensARowInItsStyleAndEndClosesIt)
{
    const Pair& pair = GetParam();
    auto* const style = new ATreeItemStyle(true, false);
    m_builder->AddStyle(static_cast<TreeBuilder::TreeItemStyles>(pair.style), style);

    (m_builder.get()->*pair.begin)(pair.id, L"row");
    EXPECT_EQ(m_tree.m_lastStyle, style);
    EXPECT_EQ(m_tree.m_lastName, L"row");
    (m_builder.get()->*pair.end)();

    EXPECT_THAT(m_tree.m_calls, ElementsAre("OpenNode " + std::to_string(pair.id), "CloseNode"));
}

TEST_P(TreeBuilderPairs, NeitherDoesAnythingWithoutAView)
{
    const Pair& pair = GetParam();
    const std::unique_ptr<TreeBuilder> builder(TreeBuilder::CreateTreeBuilder(nullptr));
    TambVizCore::RenderId path;

    (builder.get()->*pair.begin)(pair.id, L"row");
    EXPECT_FALSE(builder->GetCurrentRenderId(path));
    (builder.get()->*pair.end)();
}

INSTANTIATE_TEST_SUITE_P(Kinds, TreeBuilderPairs, testing::ValuesIn(kPairs),
                         [](const auto& instance) { return std::string(instance.param.name); });
