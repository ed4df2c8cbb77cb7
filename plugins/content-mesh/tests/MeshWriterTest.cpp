#include "writers/MeshWriter.h"

#include "MeshFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

using OrvikMesh::BodyToWrite;
using OrvikMesh::MeshColor;
using OrvikMesh::MeshToWrite;
using OrvikMesh::ReadMessages;
using OrvikMesh::WriteOptions;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::Pointwise;

namespace {

/// Arrays that a body points to.
struct Arrays
{
    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<std::uint8_t> colors;
    std::vector<std::uint32_t> triangles;

    BodyToWrite Body(const std::wstring& name) const
    {
        BodyToWrite body;
        body.name = name;
        body.positions = positions;
        body.normals = normals;
        body.colors = colors;
        body.triangles = triangles;
        return body;
    }
};

Arrays quad()
{
    Arrays arrays;
    arrays.positions = {0, 0, 0, 1, 0, 0, 1, 1, 0, 0, 1, 0};
    arrays.triangles = {0, 1, 2, 0, 2, 3};
    return arrays;
}

/// A strip of triangles with coordinates that need all their digits.
Arrays strip(bool hasNormals, bool hasColors)
{
    std::mt19937 random(7);
    std::uniform_real_distribution<float> number(-1000.0f, 1000.0f);
    Arrays arrays;
    for (std::uint32_t i = 0; i < 300; ++i) {
        for (int k = 0; k < 3; ++k)
            arrays.positions.push_back(number(random) * std::pow(10.0f, static_cast<float>(k - 1)));
        if (hasNormals) {
            const float angle = number(random);
            for (const float component : {std::cos(angle), std::sin(angle), 0.0f})
                arrays.normals.push_back(component);
        }
        for (int k = 0; k < 4 && hasColors; ++k)
            arrays.colors.push_back(k == 3 ? 255 : static_cast<std::uint8_t>(random()));
        if (i >= 2)
            for (const std::uint32_t corner : {i - 2, i - 1, i})
                arrays.triangles.push_back(corner);
    }
    // Hard ones.
    arrays.positions[0] = 0.1f;
    arrays.positions[1] = std::numeric_limits<float>::denorm_min();
    arrays.positions[2] = -16777217.0f;
    arrays.positions[3] = 3.4e38f;
    return arrays;
}

struct WriteResult
{
    bool ok = false;
    std::wstring error;
    std::vector<std::wstring> warnings;
};

WriteResult write(const std::wstring& path, const MeshToWrite& mesh,
                  const WriteOptions& options = {})
{
    const std::wstring extension = path.substr(path.rfind(L'.') + 1);
    ReadMessages messages(path);
    WriteResult result;
    for (const OrvikMesh::WritableFormat& format : OrvikMesh::WritableFormats()) {
        std::wstring lower = format.extension;
        for (wchar_t& letter : lower)
            letter = static_cast<wchar_t>(letter - L'A' + L'a');
        if (lower == extension)
            result.ok = format.write(path, mesh, options, messages);
    }
    result.error = messages.Error();
    result.warnings = messages.Warnings();
    return result;
}

class EachFormat : public testing::TestWithParam<const char*>
{
protected:
    std::wstring path() const { return m_folder.PathOf(std::string("mesh.") + GetParam()); }
    std::size_t fileCount() const
    {
        return static_cast<std::size_t>(
            std::distance(std::filesystem::directory_iterator(m_folder.Path()), {}));
    }

    TempFolder m_folder;
};

void expectSameCorners(const ReadResult& read, const Arrays& arrays)
{
    ASSERT_EQ(read.mesh.TriangleCount() * 3, arrays.triangles.size());
    for (std::size_t i = 0; i < arrays.triangles.size(); ++i) {
        const Point point = read.Vertex(read.mesh.triangles[i]);
        for (std::size_t k = 0; k < 3; ++k)
            ASSERT_EQ(point[k], arrays.positions[arrays.triangles[i] * 3 + k]) << i;
    }
}

} // namespace

TEST_P(EachFormat, WhatIsSavedAndLoadedAgainIsTheSame)
{
    const Arrays arrays = strip(false, false);

    ASSERT_TRUE(write(path(), {{arrays.Body(L"strip")}}).ok);
    const ReadResult read = ReadFile(path());

    ASSERT_TRUE(read.ok) << read.error.c_str();
    EXPECT_THAT(read.warnings, IsEmpty());
    EXPECT_EQ(read.mesh.VertexCount(), 300u);
    expectSameCorners(read, arrays);
    EXPECT_EQ(fileCount(), 1u);
}

TEST_P(EachFormat, NormalsAndColorsThatItHoldsComeBack)
{
    const std::string format = GetParam();
    const Arrays arrays = strip(true, true);

    ASSERT_TRUE(write(path(), {{arrays.Body(L"strip")}}).ok);
    const ReadResult read = ReadFile(path());

    expectSameCorners(read, arrays);
    EXPECT_EQ(read.mesh.normals.IsEmpty(), format == "stl");
    EXPECT_EQ(read.mesh.colors.IsEmpty(), format == "stl");
    for (std::size_t i = 0; i < arrays.triangles.size() && format != "stl"; ++i) {
        const std::uint32_t written = arrays.triangles[i];
        const std::uint32_t vertex = read.mesh.triangles[i];
        for (std::size_t k = 0; k < 3; ++k)
            ASSERT_NEAR(read.Normal(vertex)[k], arrays.normals[written * 3 + k], 1e-6f);
        for (std::size_t k = 0; k < 4; ++k)
            ASSERT_EQ(read.Color(vertex)[k], arrays.colors[written * 4 + k]);
    }
}

TEST_P(EachFormat, TransformsMoveAndMirrorsTurnTriangles)
{
    const Arrays arrays = quad();
    BodyToWrite body = arrays.Body(L"quad");
    body.transform = {-2, 0, 0, 0, 0, 1, 0, 0, 0, 0, 1, 0, 10, 20, 30, 1};

    ASSERT_TRUE(write(path(), {{body}}).ok);
    const ReadResult read = ReadFile(path());

    EXPECT_THAT(read.At(0, 0), ElementsAre(10, 20, 30));
    EXPECT_THAT(read.At(0, 1), ElementsAre(8, 21, 30));
    EXPECT_THAT(read.At(0, 2), ElementsAre(8, 20, 30));
}

TEST_P(EachFormat, SeveralBodiesComeOneAfterTheOther)
{
    const Arrays arrays = quad();
    BodyToWrite second = arrays.Body(L"second");
    second.transform[14] = 5;

    ASSERT_TRUE(write(path(), {{arrays.Body(L"first"), second}}).ok);
    const ReadResult read = ReadFile(path());

    ASSERT_EQ(read.mesh.TriangleCount(), 4u);
    EXPECT_EQ(read.mesh.VertexCount(), 8u);
    EXPECT_THAT(read.At(1, 2), ElementsAre(0, 1, 0));
    EXPECT_THAT(read.At(3, 2), ElementsAre(0, 1, 5));
}

TEST_P(EachFormat, NothingToWriteIsAnErrorThatLeavesTheFile)
{
    const std::wstring file = m_folder.Write(std::string("mesh.") + GetParam(), "old");

    const WriteResult result = write(file, {});

    EXPECT_FALSE(result.ok);
    EXPECT_THAT(result.error, testing::AnyOf(EndsWith(L": there is no triangle to write"),
                                             EndsWith(L": there is no triangle, line or point to "
                                                      L"write"),
                                             EndsWith(L": there is neither a triangle nor a point "
                                                      L"to write")));
    EXPECT_EQ(std::filesystem::file_size(m_folder.Path() / (std::string("mesh.") + GetParam())),
              3u);
}

TEST_P(EachFormat, FullDiskIsAnErrorWithTheSystemsReason)
{
    std::filesystem::create_symlink("/dev/full",
                                    m_folder.Path() / (std::string("mesh.") + GetParam()));
    const Arrays arrays = quad();

    const WriteResult result = write(path(), {{arrays.Body(L"quad")}});

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, path() + L": No space left on device");
}

TEST_P(EachFormat, FolderThatIsNotThereIsAnErrorWithTheSystemsReason)
{
    const Arrays arrays = quad();
    const std::wstring file = m_folder.PathOf(std::string("none/mesh.") + GetParam());

    EXPECT_EQ(write(file, {{arrays.Body(L"quad")}}).error, file + L": No such file or directory");
}

TEST_P(EachFormat, CancellingLeavesTheFileAsItWas)
{
    const std::string name = std::string("mesh.") + GetParam();
    m_folder.Write(name, "old");
    const Arrays arrays = strip(true, true);
    WriteOptions options;
    options.isCancelled = [] { return true; };
    BodyToWrite body = arrays.Body(L"strip");
    body.color = MeshColor{1, 0, 0, 1};

    const WriteResult result = write(path(), {{body}}, options);

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, path() + L": saving was cancelled; the file is as it was");
    EXPECT_EQ(std::filesystem::file_size(m_folder.Path() / name), 3u);
    EXPECT_EQ(fileCount(), 1u);
}

TEST_P(EachFormat, TellsHowFarItIs)
{
    const Arrays arrays = quad();
    std::vector<double> shares;
    WriteOptions options;
    options.progress = [&](double share) { shares.push_back(share); };

    ASSERT_TRUE(write(path(), {{arrays.Body(L"quad")}}, options).ok);

    ASSERT_FALSE(shares.empty());
    EXPECT_EQ(shares.back(), 1.0);
}

INSTANTIATE_TEST_SUITE_P(Formats, EachFormat, testing::Values("stl", "obj", "ply", "off"),
                         [](const auto& format) { return std::string(format.param); });

TEST(ObjWriter, NamesAndColorsComeBack)
{
    const TempFolder folder;
    const Arrays arrays = quad();
    BodyToWrite red = arrays.Body(L"r\u00F6d \u6F22\nline\\");
    red.color = MeshColor{1.0f, 0.125f, 0.0f, 0.5f};
    BodyToWrite blue = arrays.Body(L"twin");
    blue.color = MeshColor{0.0f, 0.0f, 1.0f, 1.0f};
    const BodyToWrite plain = arrays.Body(L"twin");
    const std::wstring file = folder.PathOf("a b.obj");

    ASSERT_TRUE(write(file, {{red, blue, red, plain}}).ok);
    const ReadResult read = ReadFile(file);

    ASSERT_TRUE(read.ok) << read.error.c_str();
    EXPECT_THAT(read.warnings, IsEmpty());
    EXPECT_THAT(read.mesh.objects, ElementsAre(L"twin", L"r\u00F6d \u6F22 line", L"twin (2)",
                                               L"r\u00F6d \u6F22 line (2)"));
    ASSERT_EQ(read.mesh.ranges.size(), 4u);
    EXPECT_EQ(read.mesh.ranges[0].material, OrvikMesh::kNone);
    const OrvikMesh::MeshMaterial& material = read.mesh.materials[read.mesh.ranges[1].material];
    EXPECT_TRUE(material.hasColor);
    EXPECT_EQ(material.color.green, 0.125f);
    EXPECT_EQ(material.color.alpha, 0.5f);
    EXPECT_EQ(read.mesh.ranges[1].material, read.mesh.ranges[3].material);
    EXPECT_EQ(read.mesh.materials[read.mesh.ranges[2].material].color.blue, 1.0f);
}

TEST(PlyWriter, PointCloudsAndColorsOfBodiesComeBack)
{
    for (const char* name : {"a.ply", "a.off"}) {
        const TempFolder folder;
        Arrays arrays = quad();
        arrays.triangles.clear();
        BodyToWrite cloud = arrays.Body(L"cloud");
        cloud.isPointCloud = true;
        cloud.color = MeshColor{0.0f, 1.0f, 0.2f, 0.4f};

        ASSERT_TRUE(write(folder.PathOf(name), {{cloud}}).ok);
        const ReadResult read = ReadFile(folder.PathOf(name));

        ASSERT_TRUE(read.ok) << read.error.c_str();
        EXPECT_TRUE(read.mesh.isPointCloud);
        EXPECT_EQ(read.mesh.VertexCount(), 4u);
        EXPECT_THAT(read.Vertex(2), ElementsAre(1, 1, 0));
        EXPECT_THAT(read.Color(3), ElementsAre(0, 255, 51, 102));
    }
}

TEST(MeshWriter, TellsWhichBodiesItLeavesOut)
{
    const TempFolder folder;
    const Arrays arrays = quad();
    BodyToWrite cloud = arrays.Body(L"cloud");
    cloud.triangles = {};
    cloud.isPointCloud = true;
    const MeshToWrite mesh{{cloud, arrays.Body(L"quad")}};

    EXPECT_THAT(
        write(folder.PathOf("a.stl"), mesh).warnings,
        ElementsAre(EndsWith(L"a.stl: the format holds no points; point clouds left out: 1")));
    EXPECT_THAT(write(folder.PathOf("a.off"), mesh).warnings,
                ElementsAre(EndsWith(L"a.off: the format holds no points beside triangles; point "
                                     L"clouds left out: 1")));
    EXPECT_EQ(ReadFile(folder.PathOf("a.off")).mesh.VertexCount(), 4u);
}

TEST(ObjWriter, LinesAndPointsComeBackBesideTriangles)
{
    const TempFolder folder;
    const Arrays arrays = quad();
    BodyToWrite lines = arrays.Body(L"lines");
    const std::vector<std::uint32_t> segments = {0, 1, 1, 2, 3, 0};
    lines.triangles = {};
    lines.segments = segments;
    BodyToWrite points = arrays.Body(L"points");
    points.triangles = {};
    points.isPointCloud = true;

    ASSERT_TRUE(write(folder.PathOf("a.obj"), {{lines, arrays.Body(L"quad"), points}}).ok);
    const ReadResult read = ReadFile(folder.PathOf("a.obj"));

    EXPECT_EQ(read.mesh.TriangleCount(), 2u);
    ASSERT_EQ(read.mesh.thin.size(), 2u);
    EXPECT_EQ(read.mesh.objects[read.mesh.thin[0].object], L"lines");
    EXPECT_THAT(std::vector<std::uint32_t>(read.mesh.thin[0].segments.begin(),
                                           read.mesh.thin[0].segments.end()),
                ElementsAre(0, 1, 1, 2, 3, 0));
    EXPECT_EQ(read.mesh.thin[0].runs.Size(), 2u);
    EXPECT_EQ(read.mesh.thin[1].VertexCount(), 4u);
    EXPECT_TRUE(read.warnings.empty());
}

TEST(MeshWriter, NormalsFollowATransformThatStretches)
{
    const TempFolder folder;
    Arrays arrays = quad();
    const float half = std::sqrt(0.5f);
    for (int i = 0; i < 4; ++i)
        arrays.normals.insert(arrays.normals.end(), {half, half, 0.0f});
    BodyToWrite body = arrays.Body(L"quad");
    // Stretched along x, mirrored along z.
    body.transform = {2, 0, 0, 0, 0, 1, 0, 0, 0, 0, -1, 0, 0, 0, 0, 1};

    ASSERT_TRUE(write(folder.PathOf("a.ply"), {{body}}).ok);
    const Point normal = ReadFile(folder.PathOf("a.ply")).Normal(0);

    EXPECT_NEAR(normal[0], 1.0f / std::sqrt(5.0f), 1e-6f);
    EXPECT_NEAR(normal[1], 2.0f / std::sqrt(5.0f), 1e-6f);
    EXPECT_NEAR(normal[2], 0.0f, 1e-6f);
}
