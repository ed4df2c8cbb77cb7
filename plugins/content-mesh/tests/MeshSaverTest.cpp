#include "content/MeshSaver.h"

#include "FakeContent.h"
#include "MeshFiles.h"
#include "Models.h"
#include "content/MeshLoader.h"

#include "OrvikCore/Document.h"

#include <OrvikOs/Utf8.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/VizBox.h>

#include <OrvikModel/ModelContent.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

using OrvikCore::Document;
using OrvikCore::PlacedShape;
using OrvikMesh::MeshLoader;
using OrvikMesh::MeshSaver;
using OrvikModel::ModelContent;

namespace {

/// What a file comes to in a document.
struct Loaded
{
    std::wstring error;
    std::size_t bodies = 0;
    std::size_t triangles = 0;
    std::size_t points = 0;
    TambVizCore::VizBox box;
};

Loaded load(const std::wstring& path)
{
    Document document(nullptr);
    MeshLoader loader(MeshLoader::Mode::Load);
    loader.Load(path, document);
    Loaded loaded;
    loaded.error = loader.GetErrorMessage();
    if (!document.HasContent())
        return loaded;
    const auto& content = dynamic_cast<ModelContent&>(*document.GetContentList().front());
    std::vector<PlacedShape> shapes;
    content.GetShapes({}, shapes);
    content.GetBoundingBox(loaded.box);
    loaded.bodies = shapes.size();
    for (const PlacedShape& shape : shapes) {
        loaded.triangles += shape.geometry->TriangleCount();
        loaded.points += shape.geometry->PointCount();
    }
    return loaded;
}

/// A content whose only shape is a line, or that has none.
class OddContent : public ModelContent
{
public:
    OddContent(Document& owner, bool hasLine) : ModelContent(owner, CubeModel(), "Mesh")
    {
        if (!hasLine)
            return;
        std::string error;
        m_shape.geometry =
            TambVizCore::GeometryBuilder()
                .SetPositions(TambVizCore::SharedArray<float>(std::vector<float>{0, 0, 0, 1, 0, 0}))
                .SetSegments(
                    TambVizCore::SharedArray<std::uint32_t>(std::vector<std::uint32_t>{0, 1}))
                .Build(error);
    }
    bool GetShapes(const TambVizCore::EntityId&, std::vector<PlacedShape>& shapes) const override
    {
        if (m_shape.geometry == nullptr)
            return false;
        shapes.assign(2, m_shape);
        return true;
    }

private:
    PlacedShape m_shape;
};

} // namespace

TEST(MeshSaver, WhatIsSavedIsLoadedTheSame)
{
    const TempFolder folder;
    Document document(nullptr);
    ModelContent content(document, CubeModel(2), "Mesh");
    MeshSaver saver;

    for (const char* extension : {"stl", "obj", "ply", "off"}) {
        const std::wstring path = folder.PathOf(std::string("cubes.") + extension);
        ASSERT_TRUE(saver.Save(path, &content)) << extension;
        const Loaded loaded = load(path);

        EXPECT_EQ(saver.GetErrorMessage(), L"") << extension;
        EXPECT_EQ(loaded.error, L"") << extension;
        EXPECT_EQ(loaded.triangles, 24u) << extension;
        EXPECT_EQ(loaded.box, TambVizCore::VizBox(0, 0, 0, 3, 1, 1)) << extension;
    }
}

TEST(MeshSaver, BodiesAreWrittenWhereTheyStand)
{
    const TempFolder folder;
    Document document(nullptr);
    auto model = CubeModel();
    model->nodes.front()->transform =
        std::vector<double>{1, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 5, 6, 7, 1};
    model->NumberNodes();
    ModelContent content(document, model, "Mesh");
    MeshSaver saver;

    saver.Save(folder.PathOf("moved.ply"), &content);

    EXPECT_EQ(load(folder.PathOf("moved.ply")).box, TambVizCore::VizBox(5, 6, 7, 6, 7, 8));
}

TEST(MeshSaver, KeepsNamesAndColorsOfBodiesInObj)
{
    const TempFolder folder;
    Document document(nullptr);
    auto model = CubeModel(2);
    model->nodes.front()->color = TambVizCore::RGBAColor(51, 102, 255);
    ModelContent content(document, model, "Mesh");
    MeshSaver saver;
    saver.Save(folder.PathOf("named.obj"), &content);

    Document again(nullptr);
    MeshLoader loader(MeshLoader::Mode::Load);
    loader.Load(folder.PathOf("named.obj"), again);
    const auto& loaded = dynamic_cast<ModelContent&>(*again.GetContentList().front());
    std::vector<PlacedShape> shapes;
    loaded.GetShapes({}, shapes);

    // Bodies with a colour come last.
    ASSERT_EQ(shapes.size(), 2u);
    EXPECT_EQ(shapes[0].name, L"cube 1");
    EXPECT_EQ(shapes[1].name, L"cube 0");
    EXPECT_EQ(shapes[1].color, TambVizCore::RGBAColor(51, 102, 255));
}

TEST(MeshSaver, PointCloudsAreSavedAsPoints)
{
    const TempFolder folder;
    const std::wstring cloud = folder.Write("cloud.xyz", "0 0 0\n1 2 3\n4 5 6\n");
    Document document(nullptr);
    MeshLoader loader(MeshLoader::Mode::Load);
    loader.Load(cloud, document);
    MeshSaver saver;

    ASSERT_TRUE(saver.Save(folder.PathOf("cloud.ply"), document.GetContentList().front()));

    EXPECT_EQ(load(folder.PathOf("cloud.ply")).points, 3u);
    EXPECT_FALSE(saver.Save(folder.PathOf("cloud.stl"), document.GetContentList().front()));
    EXPECT_EQ(saver.GetErrorMessage(),
              folder.PathOf("cloud.stl") + L": there is no triangle to write");
}

TEST(MeshSaver, WiresAreLeftOutWithAWarning)
{
    const TempFolder folder;
    Document document(nullptr);
    OddContent content(document, /*hasLine=*/true);
    MeshSaver saver;

    EXPECT_FALSE(saver.Save(folder.PathOf("line.stl"), &content));

    EXPECT_EQ(saver.GetWarningMessages(),
              std::vector<std::wstring>{folder.PathOf("line.stl") +
                                        L": the format holds no lines; wires left out: 2"});
}

TEST(MeshSaver, NothingToSaveIsAnErrorAndNoFile)
{
    const TempFolder folder;
    Document document(nullptr);
    OddContent content(document, /*hasLine=*/false);
    MeshSaver saver;

    EXPECT_FALSE(saver.Save(folder.PathOf("none.ply"), &content));

    EXPECT_EQ(saver.GetErrorMessage(),
              folder.PathOf("none.ply") + L": there is neither a triangle nor a point to write");
    EXPECT_FALSE(std::filesystem::exists(folder.Path() / "none.ply"));
}

TEST(MeshSaver, AFolderThatIsNotThereIsAnError)
{
    const TempFolder folder;
    Document document(nullptr);
    ModelContent content(document, CubeModel(), "Mesh");
    MeshSaver saver;

    EXPECT_FALSE(saver.Save(folder.PathOf("absent/cube.stl"), &content));

    EXPECT_EQ(saver.GetErrorMessage().find(folder.PathOf("absent/cube.stl") + L": "), 0u);
}

TEST(MeshSaver, TakesContentsThatTellTheirShapes)
{
    CallLog log;
    Document document(nullptr);
    ModelContent content(document, CubeModel(), "Mesh");
    FakeContent other(document, "other", log);
    MeshSaver saver;

    for (const wchar_t* extension : {L"STL", L"OBJ", L"PLY", L"OFF"}) {
        EXPECT_TRUE(saver.CanSave(&content, extension));
        EXPECT_FALSE(saver.CanSave(&other, extension));
    }
    EXPECT_FALSE(saver.CanSave(&content, L"STEP"));
}
