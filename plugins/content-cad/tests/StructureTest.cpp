#include "CadTest.h"

#include <TambCommandsInfra/CancelToken.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <set>

namespace OrvikCad {
namespace {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::PartKind;
using TambVizCore::RGBAColor;

class MachineFiles : public testing::TestWithParam<const wchar_t*>
{
};

TEST_P(MachineFiles, KeepStructureAndNamesInEveryScript)
{
    const ReadResult read = ReadCad(GetParam());

    ASSERT_TRUE(read.isRead);
    ASSERT_EQ(read.model.nodes.size(), 1u);
    const ModelNode& machine = *read.model.nodes[0];
    EXPECT_EQ(machine.kind, NodeKind::Assembly);
    EXPECT_EQ(machine.name, L"machine");
    ASSERT_EQ(machine.children.size(), 2u);
    EXPECT_EQ(machine.children[1]->kind, NodeKind::AssemblyReference);
    EXPECT_EQ(machine.children[1]->name, L"frame above, \u03C0/2");
    ASSERT_EQ(machine.children[1]->children.size(), 1u);
    const ModelNode& frame = *machine.children[1]->children[0];
    EXPECT_EQ(frame.name, L"Rahmen \u00DC\u00DF");
    ASSERT_EQ(frame.children.size(), 5u);
    EXPECT_EQ(frame.children[1]->name, L"\u87BA\u6813 1");
    EXPECT_EQ(frame.children[1]->children.at(0)->kind, NodeKind::Body);
    EXPECT_EQ(frame.children[1]->children.at(0)->name, L"\u87BA\u6813 M6");
}

TEST_P(MachineFiles, ShareShapesAmongTenPlaces)
{
    const ReadResult read = ReadCad(GetParam());

    std::set<const void*> shapes;
    for (const ModelNode* body : NodesOf(read.model, NodeKind::Body))
        shapes.insert(body->shape.get());
    EXPECT_EQ(NodesOf(read.model, NodeKind::Body).size(), 10u);
    EXPECT_EQ(shapes.size(), 2u);
}

TEST_P(MachineFiles, StandWhereTheFilePutsThem)
{
    const ReadResult read = ReadCad(GetParam());

    // Two plates of 100 x 60 x 10, the upper one turned by a right angle; shanks of 20 below.
    EXPECT_NEAR(read.model.box.Lo()[2], 5.0 + 10.0 - 20.0, 0.01);
    double world[16];
    GetWorldTransform(*NodesOf(read.model, NodeKind::Body)[5], world);
    EXPECT_NEAR(world[12], 60.0, 1e-9);
    EXPECT_NEAR(world[13], 1.0, 1e-9);
    EXPECT_NEAR(world[14], 100.0, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Step, MachineFiles,
                         testing::Values(L"assembly_ap203.step", L"assembly_ap214.step",
                                         L"assembly_ap242.step"));

TEST(StepReading, KeepsColoursLayersAndTransparency)
{
    const ReadResult read = ReadCad(L"assembly_ap214.step");

    const auto bodies = NodesOf(read.model, NodeKind::Body);
    EXPECT_EQ(bodies.at(0)->color, RGBAColor(0x45, 0x82, 0xB5));
    EXPECT_EQ(bodies.at(1)->color, RGBAColor(0xCC, 0x99, 0x33, 0x80));
    EXPECT_EQ(bodies.at(0)->layers, std::vector<std::wstring>{L"Plates"});
    EXPECT_EQ(bodies.at(1)->layers, std::vector<std::wstring>{L"Fasteners"});
    ASSERT_EQ(bodies.at(0)->partColors.size(), 1u);
    EXPECT_EQ(bodies.at(0)->partColors[0].second, RGBAColor(255, 0, 0));
    OrvikCore::MeasureResult surface;
    ASSERT_TRUE(bodies.at(0)->shape->MeasureExact(bodies.at(0)->partColors[0].first,
                                                  OrvikCore::EntityMeasure::Surface, surface));
    EXPECT_EQ(surface.word, "cylinder");
}

TEST(StepReading, ColoursOnePlacementAlone)
{
    const ReadResult read = ReadCad(L"instance_color.step");

    int green = 0;
    for (const ModelNode* body : NodesOf(read.model, NodeKind::Body))
        green += body->color == RGBAColor(0, 0x99, 0) ? 1 : 0;
    EXPECT_EQ(green, 1);
    EXPECT_EQ(NodesOf(read.model, NodeKind::Body).at(8)->color, RGBAColor(0, 0x99, 0));
}

TEST(StepReading, TurnsUnitsIntoMillimetres)
{
    for (const wchar_t* file : {L"units_inch.step", L"units_metre.step"}) {
        const ReadResult read = ReadCad(file);

        ASSERT_TRUE(read.isRead);
        const double size[3] = {25.4, 50.8, 76.2};
        for (int i = 0; i < 3; ++i)
            EXPECT_NEAR(read.model.box.Hi()[i] - read.model.box.Lo()[i], size[i], 1e-4);
    }
}

TEST(StepReading, ReadsShellsWiresAndPointsThatBelongToNoSolid)
{
    const ReadResult read = ReadCad(L"free_shapes.step");

    ASSERT_EQ(read.model.nodes.size(), 3u);
    EXPECT_EQ(read.model.nodes[0]->kind, NodeKind::Body);
    EXPECT_FALSE(read.model.nodes[0]->shape->Present()->IsClosed());
    EXPECT_EQ(read.model.nodes[1]->kind, NodeKind::Wire);
    EXPECT_EQ(read.model.nodes[1]->shape->Present()->SegmentCount(), 3u);
    EXPECT_EQ(read.model.nodes[2]->kind, NodeKind::PointSet);
    EXPECT_EQ(read.model.nodes[2]->shape->Present()->PointCount(), 3u);
}

TEST(StepReading, NamesFilesThatAreMissingAndReadsThoseThatAreThere)
{
    const ReadResult read = ReadCad(L"references.step");

    ASSERT_TRUE(read.isRead);
    EXPECT_TRUE(
        read.WarnsOf(L"the file refers to \"references_absent.stp\", which cannot be read"));
    EXPECT_FALSE(read.WarnsOf(L"references_present.stp"));
    ASSERT_EQ(NodesOf(read.model, NodeKind::Body).size(), 1u);
    EXPECT_EQ(NodesOf(read.model, NodeKind::Body)[0]->name, L"present");
}

TEST(StepReading, FindsFilesBesideAFileThatIsNamedByARelativePath)
{
    std::filesystem::current_path(ORVIK_TEST_DATA);

    EXPECT_TRUE(ReadCad(L"./references.step").isRead);
}

TEST(StepReading, LooksForNoFileOutsideOfTheFolder)
{
    std::string text = TestModelText("references.step");
    const std::string name = "references_present.stp";
    for (std::size_t at = text.find(name); at != text.npos; at = text.find(name, at + 1))
        text.replace(at, name.size(), "../elsewhere/secret.st");

    const ReadResult read = ReadCadText(text, "a.step");

    EXPECT_TRUE(read.WarnsOf(L"\"../elsewhere/secret.st\", which lies outside of its folder"));
}

TEST(StepReading, ReadsNamesOfOlderSystemsByteByByte)
{
    std::string text = TestModelText("hole_plate.step");
    const std::string name = "'hole plate'";
    for (std::size_t at = text.find(name); at != text.npos; at = text.find(name, at + 1))
        text.replace(at, name.size(), "'Geh\xE4use'");

    const ReadResult read = ReadCadText(text, "a.step");

    ASSERT_TRUE(read.isRead);
    EXPECT_EQ(read.model.nodes[0]->name, L"Geh\u00E4use");
}

TEST(IgesReading, KeepsNamesAndColours)
{
    const ReadResult read = ReadCad(L"colors.iges");

    ASSERT_TRUE(read.isRead);
    const auto bodies = NodesOf(read.model, NodeKind::Body);
    ASSERT_EQ(bodies.size(), 3u);
    EXPECT_EQ(bodies[0]->name, L"PLATE 1");
    EXPECT_EQ(bodies[0]->color, RGBAColor(0, 0, 255));
    EXPECT_EQ(bodies[1]->color, RGBAColor(255, 255, 0));
}

TEST(BrepReading, TakesCompoundsApart)
{
    const ReadResult read = ReadCad(L"solids.brep");

    ASSERT_TRUE(read.isRead);
    EXPECT_EQ(read.model.nodes.at(0)->name, L"solids");
    EXPECT_EQ(NodesOf(read.model, NodeKind::Body).size(), 2u);
    EXPECT_EQ(NodesOf(read.model, NodeKind::Wire).size(), 1u);
}

TEST(CadReading, WritesNothingToStandardOutput)
{
    testing::internal::CaptureStdout();

    ReadCad(L"assembly_ap214.step");
    ReadCad(L"colors.iges");
    ReadCad(L"references.step");

    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
}

TEST(CadReading, StopsWhenTheJobIsCancelled)
{
    TambCommandsInfra::CancelToken& token = TambCommandsInfra::CancelToken::Instance();
    const std::uint64_t job = token.NextJobNumber();
    const TambCommandsInfra::CancelScope scope(token, job);
    token.Cancel(job);

    for (const wchar_t* file : {L"assembly_ap214.step", L"colors.iges", L"solids.brep"}) {
        const ReadResult read = ReadCad(file);

        EXPECT_FALSE(read.isRead);
        EXPECT_NE(read.error.find(L": reading was cancelled"), std::wstring::npos);
        EXPECT_TRUE(read.model.nodes.empty());
    }
}

} // namespace
} // namespace OrvikCad
