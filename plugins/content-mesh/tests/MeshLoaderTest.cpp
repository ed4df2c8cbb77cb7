#include "content/MeshLoader.h"

#include "FakeSession.h"
#include "GltfFiles.h"
#include "Models.h"

#include "OrvikCore/Document.h"
#include "OrvikCore/LoadModes.h"

#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>

#include <OrvikModel/ModelContent.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using OrvikCore::Document;
using OrvikMesh::MeshLoader;
using OrvikModel::ModelContent;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;

namespace {

class MeshLoaderTest : public testing::Test
{
protected:
    const ModelContent& contentAt(std::size_t i) const
    {
        return dynamic_cast<const ModelContent&>(*m_document.GetContentList().at(i));
    }

    TempFolder m_folder;
    Document m_document{nullptr};
    MeshLoader m_loader{MeshLoader::Mode::Load};
};

} // namespace

TEST_F(MeshLoaderTest, NamesItsTypeAndExtensions)
{
    EXPECT_EQ(m_loader.TypeName(), "OrvikMesh::MeshLoader");
    EXPECT_FALSE(m_loader.IsImporter());
    EXPECT_TRUE(m_loader.CanLoad(L"STL"));
    EXPECT_TRUE(m_loader.CanLoad(L"OBJ"));
    EXPECT_TRUE(m_loader.CanLoad(L"PLY"));
    EXPECT_TRUE(m_loader.CanLoad(L"OFF"));
    EXPECT_FALSE(m_loader.CanLoad(L"STP"));
}

TEST_F(MeshLoaderTest, ImporterIsOneAndReadsTheSame)
{
    const MeshLoader importer(MeshLoader::Mode::Import);

    EXPECT_EQ(importer.TypeName(), "OrvikMesh::MeshImporter");
    EXPECT_TRUE(importer.IsImporter());
    EXPECT_TRUE(importer.CanLoad(L"STL"));
}

TEST_F(MeshLoaderTest, RefusesFilesWhileOnlyTheProductStructureIsWanted)
{
    OrvikCore::LoadModes::SetForceProductStructure(true);

    EXPECT_FALSE(m_loader.CanLoad(L"STL"));
    EXPECT_FALSE(m_loader.CanLoad(L"GLB"));
    EXPECT_FALSE(MeshLoader(MeshLoader::Mode::Import).CanLoad(L"STL"));
}

TEST_F(MeshLoaderTest, LoadsMeshesInTheGraphicalModeToo)
{
    OrvikCore::LoadModes::SetForceGraphical(true);

    EXPECT_TRUE(m_loader.CanLoad(L"STL"));
}

TEST_F(MeshLoaderTest, AddsAContentForTheFile)
{
    m_loader.Load(m_folder.Write("cube.stl", BinaryStl(Cube())), m_document);

    ASSERT_EQ(m_document.GetContentList().size(), 1u);
    EXPECT_EQ(contentAt(0).GetModel()->nodes[0]->name, L"cube");
    EXPECT_EQ(contentAt(0).GetModel()->nodes[0]->shape->Present()->TriangleCount(), 12u);
    EXPECT_EQ(m_loader.GetErrorMessage(), L"");
    EXPECT_THAT(m_loader.GetWarningMessages(), IsEmpty());
}

TEST_F(MeshLoaderTest, ChoosesTheReaderByTheExtension)
{
    const char rows[] = "0 0 0\n1 0 0\n0 1 0\n3 0 1 2\n";
    m_loader.Load(m_folder.Write("a.off", std::string("OFF\n3 1 0\n") + rows), m_document);
    m_loader.Load(m_folder.Write("a.ply", std::string("ply\nformat ascii 1.0\nelement vertex 3\n"
                                                      "property float x\nproperty float y\n"
                                                      "property float z\nelement face 1\n"
                                                      "property list uchar int vertex_indices\n"
                                                      "end_header\n") +
                                              rows),
                  m_document);

    ASSERT_EQ(m_document.GetContentList().size(), 2u);
    EXPECT_EQ(contentAt(1).GetModel()->nodes[0]->shape->Present()->TriangleCount(), 1u);
}

TEST_F(MeshLoaderTest, ReadsAGltfFileAsATree)
{
    m_loader.Load(m_folder.Write("all.glb", AllSorts().Binary()), m_document);

    ASSERT_EQ(m_document.GetContentList().size(), 1u) << m_loader.GetErrorMessage();
    const OrvikModel::ModelNode& top = *contentAt(0).GetModel()->nodes.at(0);
    EXPECT_EQ(top.children.at(0)->kind, OrvikModel::NodeKind::PolyBody);
    EXPECT_EQ(top.children.at(0)->shape, top.children.at(1)->shape);
    EXPECT_EQ(top.children.at(2)->children.at(1)->kind, OrvikModel::NodeKind::Wire);
    EXPECT_GT(top.children.at(2)->children.at(2)->pointSizePixels, 1.0f);
}

TEST_F(MeshLoaderTest, OffersTheLongTailWithoutLoadingItsLibrary)
{
    EXPECT_TRUE(m_loader.CanLoad(L"GLTF"));
    EXPECT_TRUE(m_loader.CanLoad(L"DAE"));

    m_loader.Load(m_folder.Write("a.dae", ""), m_document);

    EXPECT_THAT(m_loader.GetErrorMessage(), EndsWith(L"a.dae: the file is empty"));
}

TEST_F(MeshLoaderTest, ReadsAnyCaseOfTheExtension)
{
    m_loader.Load(m_folder.Write("CUBE.Stl", BinaryStl(Cube())), m_document);

    EXPECT_EQ(m_document.GetContentList().size(), 1u);
}

TEST_F(MeshLoaderTest, SmallModelsHaveTheirEdgesFromTheStart)
{
    m_loader.Load(m_folder.Write("cube.stl", BinaryStl(Cube())), m_document);

    EXPECT_EQ(contentAt(0).GetModel()->nodes[0]->shape->Present()->SegmentCount(), 12u);
}

TEST_F(MeshLoaderTest, LargeModelsGetTheirEdgesOnFirstUse)
{
    m_loader.Load(m_folder.Write("torus.stl", BinaryStl(Torus(250000))), m_document);

    EXPECT_TRUE(contentAt(0).GetModel()->nodes[0]->shape->Present()->Parts().empty());
}

TEST_F(MeshLoaderTest, HostWithAWindowGetsTheIndexWithTheContent)
{
    FakeSessionHost host;
    OrvikCore::SessionMgr::Instance().SetApplication(&host);

    m_loader.Load(m_folder.Write("torus.stl", BinaryStl(Torus(250000))), m_document);
    OrvikCore::SessionMgr::Instance().SetApplication(nullptr);

    EXPECT_NE(contentAt(0).GetModel()->nodes[0]->shape->Present()->Index(), nullptr);
}

TEST_F(MeshLoaderTest, PointCloudsAreShown)
{
    m_loader.Load(m_folder.Write("scan.xyz", "0 0 0\n1 2 3\n"), m_document);

    ASSERT_EQ(m_document.GetContentList().size(), 1u);
    EXPECT_EQ(contentAt(0).GetModel()->nodes[0]->kind, OrvikModel::NodeKind::PointCloud);
    EXPECT_EQ(contentAt(0).GetModel()->nodes[0]->shape->Present()->PointCount(), 2u);
}

TEST_F(MeshLoaderTest, EachContentOfADocumentHasItsOwnNumber)
{
    const std::wstring path = m_folder.Write("cube.stl", BinaryStl(Cube()));

    m_loader.Load(path, m_document);
    m_loader.Load(path, m_document);

    EXPECT_EQ(contentAt(0).GetModel()->number, 1u);
    EXPECT_EQ(contentAt(1).GetModel()->number, 2u);
}

TEST_F(MeshLoaderTest, FileThatCannotBeReadLeavesAnErrorAndTheDocumentAsItWas)
{
    m_loader.Load(m_folder.Write("cube.stl", BinaryStl(Cube())), m_document);

    m_loader.Load(m_folder.Write("empty.stl", ""), m_document);

    EXPECT_THAT(m_loader.GetErrorMessage(), EndsWith(L"empty.stl: the file is empty"));
    EXPECT_EQ(m_document.GetContentList().size(), 1u);
}

TEST_F(MeshLoaderTest, WarningsAreHandedOn)
{
    const std::wstring path = m_folder.Write("cube.stl", BinaryStl(Cube(), 10));

    m_loader.Load(path, m_document);

    EXPECT_THAT(m_loader.GetWarningMessages(),
                ElementsAre(path + L": byte 80: the header announces 10 triangles; bytes after "
                                   L"them, left out: 100"));
}

TEST_F(MeshLoaderTest, RunningJobCanBeCancelled)
{
    TambCommandsInfra::CancelToken& token = TambCommandsInfra::CancelToken::Instance();
    const TambCommandsInfra::CancelScope job(token, token.NextJobNumber());
    token.CancelCurrent();

    m_loader.Load(m_folder.Write("cube.stl", BinaryStl(Cube())), m_document);

    EXPECT_THAT(m_loader.GetErrorMessage(), EndsWith(L"cube.stl: reading was cancelled"));
    EXPECT_TRUE(m_document.GetContentList().empty());
}

TEST_F(MeshLoaderTest, ProgressNamesTheFileAndEnds)
{
    std::vector<TambCommandsInfra::ProgressReport> reports;
    TambCommandsInfra::Progress::Instance().SetObserver(
        [&](const TambCommandsInfra::ProgressReport& report) { reports.push_back(report); });

    m_loader.Load(m_folder.Write("cube.stl", BinaryStl(Cube())), m_document);
    TambCommandsInfra::Progress::Instance().SetObserver(nullptr);

    ASSERT_GE(reports.size(), 2u);
    EXPECT_EQ(reports.front().phase, L"Reading cube.stl");
    EXPECT_TRUE(reports.back().isFinished);
}
