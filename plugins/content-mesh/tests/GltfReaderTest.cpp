#include "GltfFiles.h"
#include "gltf/GltfMaterial.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;
using Corner = std::array<float, 3>;

namespace {

/// One node that shows one primitive.
GltfResult readPrimitive(GltfText& text, const std::string& members)
{
    text.AddMesh("\"name\":\"part\",\"primitives\":[{" + members + "}]");
    text.AddNode("\"mesh\":0");
    return ReadGltfBytes(text.Binary());
}

std::string accessorOf(std::size_t view, int component, std::size_t count, const char* type,
                       const std::string& more = "")
{
    return "\"bufferView\":" + std::to_string(view) +
           ",\"componentType\":" + std::to_string(component) +
           ",\"count\":" + std::to_string(count) + ",\"type\":\"" + type + "\"" + more;
}

std::vector<std::uint32_t> segmentsOf(const TambVizCore::Geometry& geometry)
{
    const auto all = geometry.Segments().Span();
    return {all.begin(), all.end()};
}

std::vector<std::uint32_t> trianglesOf(const TambVizCore::Geometry& geometry)
{
    const auto all = geometry.Triangles().Span();
    return {all.begin(), all.end()};
}

std::vector<int> colorsOf(const TambVizCore::Geometry& geometry)
{
    const auto all = geometry.Colors().Span();
    return {all.begin(), all.end()};
}

const std::vector<float> kSquare = {0, 0, 0, 1, 0, 0, 0, 1, 0, 1, 1, 0};

} // namespace

TEST(GltfReader, ReadsBinaryAndEmbeddedFormsAlike)
{
    const GltfText text = OneTriangle();

    for (const std::string& bytes : {text.Binary(), text.Embedded()}) {
        const GltfResult result = ReadGltfBytes(bytes);
        ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
        EXPECT_THAT(result.warnings, IsEmpty());
        EXPECT_EQ(result.Node(0).name, L"only");
        EXPECT_EQ(result.Node(0).kind, OrvikModel::NodeKind::Mesh);
        EXPECT_THAT(CornersOf(result.Shape(0)),
                    ElementsAre(Corner{0, 0, 0}, Corner{1, 0, 0}, Corner{0, 1, 0}));
    }
}

TEST(GltfReader, ReadsIndicesOfEachSize)
{
    for (const int component : {5121, 5123, 5125}) {
        GltfText text;
        text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
        const std::string bytes = component == 5121   ? BytesOf<std::uint8_t>({2, 1, 0})
                                  : component == 5123 ? BytesOf<std::uint16_t>({2, 1, 0})
                                                      : BytesOf<std::uint32_t>({2, 1, 0});
        text.AddAccessor(accessorOf(text.AddView(bytes), component, 3, "SCALAR"));
        const GltfResult result =
            readPrimitive(text, "\"attributes\":{\"POSITION\":0},\"indices\":1");
        ASSERT_TRUE(result.ok);
        EXPECT_THAT(trianglesOf(result.Shape(0)), ElementsAre(2u, 1u, 0u)) << component;
    }
}

TEST(GltfReader, UnfoldsStripsAndFansWithTheirWinding)
{
    GltfText strip;
    strip.AddFloats(kSquare, 3);
    const GltfResult asStrip = readPrimitive(strip, "\"mode\":5,\"attributes\":{\"POSITION\":0}");
    GltfText fan;
    fan.AddFloats(kSquare, 3);
    const GltfResult asFan = readPrimitive(fan, "\"mode\":6,\"attributes\":{\"POSITION\":0}");

    ASSERT_TRUE(asStrip.ok && asFan.ok);
    EXPECT_THAT(trianglesOf(asStrip.Shape(0)), ElementsAre(0u, 1u, 2u, 1u, 3u, 2u));
    EXPECT_THAT(trianglesOf(asFan.Shape(0)), ElementsAre(1u, 2u, 0u, 2u, 3u, 0u));
}

TEST(GltfReader, ReadsLinesLoopsAndStripsAsWires)
{
    const std::vector<std::vector<std::uint32_t>> expected = {
        {0, 1, 2, 3}, {0, 1, 1, 2, 2, 3, 3, 0}, {0, 1, 1, 2, 2, 3}};
    for (int mode = 1; mode <= 3; ++mode) {
        GltfText text;
        text.AddFloats(kSquare, 3);
        const GltfResult result = readPrimitive(text, "\"mode\":" + std::to_string(mode) +
                                                          ",\"attributes\":{\"POSITION\":0}");
        ASSERT_TRUE(result.ok);
        EXPECT_EQ(result.Node(0).kind, OrvikModel::NodeKind::Wire);
        EXPECT_EQ(segmentsOf(result.Shape(0)), expected[static_cast<std::size_t>(mode - 1)]);
    }
}

TEST(GltfReader, ReadsPointsAsACloud)
{
    GltfText text;
    text.AddFloats(kSquare, 3);

    const GltfResult result = readPrimitive(text, "\"mode\":0,\"attributes\":{\"POSITION\":0}");

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).kind, OrvikModel::NodeKind::PointCloud);
    EXPECT_EQ(result.Shape(0).PointCount(), 4u);
}

TEST(GltfReader, ReadsInterleavedBuffers)
{
    GltfText text;
    const std::size_t view =
        text.AddView(BytesOf<float>({0, 0, 0, 0, 0, 2, 1, 0, 0, 0, 0, 2, 0, 1, 0, 0, 0, 2}),
                     ",\"byteStride\":24");
    text.AddAccessor(accessorOf(view, 5126, 3, "VEC3"));
    text.AddAccessor(accessorOf(view, 5126, 3, "VEC3", ",\"byteOffset\":12"));

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0,\"NORMAL\":1}");

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(CornersOf(result.Shape(0)),
                ElementsAre(Corner{0, 0, 0}, Corner{1, 0, 0}, Corner{0, 1, 0}));
    EXPECT_EQ(result.Shape(0).Normals()[2], 1.0f);
    EXPECT_EQ(result.Shape(0).Normals()[8], 1.0f);
}

TEST(GltfReader, ReadsQuantisedPositionsAndNormals)
{
    GltfText text;
    text.AddAccessor(
        accessorOf(text.AddView(BytesOf<std::int8_t>({0, 0, 0, 0, 127, 0, 0, 0, 0, -128, 0, 0}),
                                ",\"byteStride\":4"),
                   5120, 3, "VEC3", ",\"normalized\":true"));
    text.AddAccessor(accessorOf(
        text.AddView(BytesOf<std::int16_t>({0, 0, 32767, 0, 0, 0, 32767, 0, 0, 0, 32767, 0}),
                     ",\"byteStride\":8"),
        5122, 3, "VEC3", ",\"normalized\":true"));
    text.AddRootMember("\"extensionsRequired\":[\"KHR_mesh_quantization\"]");

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0,\"NORMAL\":1}");

    ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
    EXPECT_THAT(CornersOf(result.Shape(0)),
                ElementsAre(Corner{0, 0, 0}, Corner{1, 0, 0}, Corner{0, -1, 0}));
    EXPECT_EQ(result.Shape(0).Normals()[5], 1.0f);
}

TEST(GltfReader, ReadsSparseAccessorsWithAndWithoutABase)
{
    for (const bool hasBase : {true, false}) {
        GltfText text;
        const std::size_t base = text.AddView(BytesOf<float>({1, 1, 1, 1, 0, 0, 0, 1, 0}));
        const std::size_t places = text.AddView(BytesOf<std::uint16_t>({1, 2}));
        const std::size_t values = text.AddView(BytesOf<float>({7, 0, 0, 0, 8, 0}));
        text.AddAccessor(
            (hasBase ? "\"bufferView\":" + std::to_string(base) + "," : std::string()) +
            "\"componentType\":5126,\"count\":3,\"type\":\"VEC3\",\"sparse\":{"
            "\"count\":2,\"indices\":{\"bufferView\":" +
            std::to_string(places) +
            ",\"componentType\":5123},\"values\":{\"bufferView\":" + std::to_string(values) + "}}");
        const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0}");
        ASSERT_TRUE(result.ok);
        const float first = hasBase ? 1.0f : 0.0f;
        EXPECT_THAT(CornersOf(result.Shape(0)),
                    ElementsAre(Corner{first, first, first}, Corner{7, 0, 0}, Corner{0, 8, 0}));
    }
}

TEST(GltfReader, ShowsLinearBaseColoursInTheCurveOfScreens)
{
    EXPECT_EQ(OrvikMesh::ToShownByte(0.0f), 0);
    EXPECT_EQ(OrvikMesh::ToShownByte(1.0f), 255);
    EXPECT_EQ(OrvikMesh::ToShownByte(0.5f), 188);
    EXPECT_EQ(OrvikMesh::ToShownByte(0.0031308f), 10);
    EXPECT_EQ(OrvikMesh::ToShownByte(0.2158605f), 128);
    EXPECT_EQ(OrvikMesh::ToShownByte(std::nanf("")), 0);
    EXPECT_EQ(OrvikMesh::ToShownByte(7.0f), 255);
}

TEST(GltfReader, TakesAlphaOnlyFromMaterialsThatBlend)
{
    for (const bool blends : {true, false}) {
        GltfText text;
        text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
        text.AddMaterial(std::string("\"pbrMetallicRoughness\":{\"baseColorFactor\":[1,0,0,0.5]}") +
                         (blends ? ",\"alphaMode\":\"BLEND\"" : ""));
        const GltfResult result =
            readPrimitive(text, "\"attributes\":{\"POSITION\":0},\"material\":0");
        ASSERT_TRUE(result.ok);
        const int alpha = blends ? 128 : 255;
        EXPECT_EQ(result.Node(0).color,
                  TambVizCore::RGBAColor(255, 0, 0, static_cast<std::uint8_t>(alpha)));
    }
}

TEST(GltfReader, MultipliesVertexColoursOfEachTypeByTheBaseColour)
{
    const std::string bytes[] = {
        BytesOf<float>({1, 1, 1, 0.5f, 1, 1, 0, 0, 0}),
        BytesOf<std::uint8_t>({255, 255, 255, 128, 255, 255, 0, 0, 0}),
        BytesOf<std::uint16_t>({65535, 65535, 65535, 32768, 65535, 65535, 0, 0, 0})};
    const int components[] = {5126, 5121, 5123};
    for (std::size_t i = 0; i < 3; ++i) {
        GltfText text;
        text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
        text.AddAccessor(accessorOf(text.AddView(bytes[i]), components[i], 3, "VEC3",
                                    i == 0 ? "" : ",\"normalized\":true"));
        text.AddMaterial("\"pbrMetallicRoughness\":{\"baseColorFactor\":[1,0,1,1]}");
        const GltfResult result =
            readPrimitive(text, "\"attributes\":{\"POSITION\":0,\"COLOR_0\":1},\"material\":0");
        ASSERT_TRUE(result.ok);
        EXPECT_EQ(result.Node(0).color, std::nullopt);
        EXPECT_THAT(colorsOf(result.Shape(0)),
                    ElementsAre(255, 0, 255, 255, 188, 0, 255, 255, 0, 0, 0, 255))
            << components[i];
    }
}

TEST(GltfReader, LeavesOutTrianglesThatNameNoVertex)
{
    GltfText text;
    text.AddFloats(kSquare, 3);
    text.AddIndices({0, 1, 2, 2, 1, 4, 1, 3, 2});

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0},\"indices\":1");

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(trianglesOf(result.Shape(0)), ElementsAre(0u, 1u, 2u, 1u, 3u, 2u));
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: mesh 0 \"part\", primitive 0: index 4 is out of range, there "
                            L"are 4 vertices; triangles left out: 1"));
}

TEST(GltfReader, LeavesOutWhatIsNotFiniteAndItsVertices)
{
    const float endless = std::numeric_limits<float>::infinity();
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, endless, 1, 0, 1, 1, 0, std::nanf(""), 0, 0, 0, 5, 0}, 3);
    text.AddFloats({1, 0, 0, 1, 0, 0, 1, 0, 0, 0, 1, 0, 1, 0, 0, 0, 0, 1}, 3);
    text.AddIndices({0, 1, 2, 0, 1, 3, 1, 3, 4, 1, 3, 5});

    const GltfResult result =
        readPrimitive(text, "\"attributes\":{\"POSITION\":0,\"NORMAL\":1},\"indices\":2");

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(trianglesOf(result.Shape(0)), ElementsAre(0u, 1u, 2u, 1u, 2u, 3u));
    EXPECT_EQ(result.Shape(0).VertexCount(), 4u);
    EXPECT_EQ(result.Shape(0).Normals()[7], 1.0f);
    EXPECT_EQ(result.Shape(0).Normals()[11], 1.0f);
    EXPECT_THAT(result.warnings,
                ElementsAre(L"test: mesh 0 \"part\", primitive 0: a coordinate is not a finite "
                            L"number; triangles left out: 2"));
}

TEST(GltfReader, WhatLeftNothingIsTheError)
{
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, std::nanf(""), 1, 0}, 3);

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0}");

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, L"test: mesh 0 \"part\", primitive 0: a coordinate is not a finite "
                            L"number; triangles left out: 1");
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(GltfReader, AnEmptyPrimitiveIsTold)
{
    GltfText text;
    text.AddFloats({0, 0, 0}, 3);

    EXPECT_EQ(readPrimitive(text, "\"mode\":5,\"attributes\":{\"POSITION\":0}").error,
              L"test: mesh 0 \"part\", primitive 0: nothing of it can be shown");
}

TEST(GltfReader, KeepsOfASharedPoolOnlyWhatAPrimitiveUses)
{
    GltfText text;
    std::vector<float> pool(3000, 9.0f);
    std::copy_n(kSquare.begin(), 12, pool.begin() + 1500);
    text.AddFloats(pool, 3);
    text.AddIndices({502, 500, 501});

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0},\"indices\":1");

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Shape(0).VertexCount(), 3u);
    EXPECT_THAT(CornersOf(result.Shape(0)),
                ElementsAre(Corner{0, 1, 0}, Corner{0, 0, 0}, Corner{1, 0, 0}));
}

TEST(GltfReader, LeavesOutNormalsWhoseNumberDoesNotFit)
{
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
    text.AddFloats({0, 0, 1, 0, 0, 1}, 3);

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":0,\"NORMAL\":1}");

    ASSERT_TRUE(result.ok);
    EXPECT_TRUE(result.Shape(0).Normals().IsEmpty());
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: mesh 0 \"part\", primitive 0: NORMAL of 2 elements does not fit "
                    L"the 3 positions and was left out"));
}

TEST(GltfReader, SaysWhyTheOnlyPrimitiveCannotBeRead)
{
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
    text.AddAccessor(accessorOf(0, 5126, 4, "VEC3"));

    const GltfResult result = readPrimitive(text, "\"attributes\":{\"POSITION\":1}");

    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, L"test: mesh 0 \"part\", primitive 0: accessor 1 reaches beyond the 36 "
                            L"bytes of buffer view 0");
}

TEST(GltfReader, IgnoresLookThatItDoesNotShow)
{
    GltfText text = OneTriangle();
    text.AddMaterial("\"extensions\":{\"KHR_materials_unlit\":{}}");
    text.AddRootMember("\"extensionsUsed\":[\"KHR_materials_unlit\",\"EXT_of_somebody\"]");
    text.AddRootMember("\"extensionsRequired\":[\"KHR_materials_unlit\"]");

    const GltfResult result = ReadGltfBytes(text.Binary());

    EXPECT_TRUE(result.ok);
    EXPECT_THAT(result.warnings, IsEmpty());
}

TEST(GltfReader, TellsWhatItLeavesOut)
{
    GltfText text = OneTriangle();
    text.AddMaterial("\"pbrMetallicRoughness\":{\"baseColorTexture\":{\"index\":0}}");
    text.AddMaterial("\"extensions\":{\"KHR_materials_pbrSpecularGlossiness\":{\"diffuseTexture\":"
                     "{\"index\":0}}}");
    text.AddMaterial("\"normalTexture\":{\"index\":0}");
    text.AddMesh("\"primitives\":[{\"attributes\":{},\"targets\":[{}]}]");
    text.AddRootMember("\"animations\":[{},{},{}]");

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    EXPECT_THAT(
        result.warnings,
        ElementsAre(L"test: animations are left out: 3; everything is shown where the nodes "
                    L"place it",
                    L"test: morph targets are left out; meshes shown in their basic shape: 1",
                    L"test: pictures on surfaces are left out; materials shown in their "
                    L"plain base colour: 2"));
}

TEST(GltfReader, NamesARequiredExtensionThatItDoesNotKnow)
{
    for (const char* name : {"KHR_draco_mesh_compression", "EXT_meshopt_compression", "ACME_x"}) {
        GltfText text = OneTriangle();
        text.AddRootMember(std::string("\"extensionsRequired\":[\"") + name + "\"]");
        const GltfResult result = ReadGltfBytes(text.Binary());
        const std::string narrow = name;
        EXPECT_FALSE(result.ok);
        EXPECT_EQ(result.error, L"test: the required extension \"" +
                                    std::wstring(narrow.begin(), narrow.end()) +
                                    L"\" is not supported");
    }
}

TEST(GltfReader, ReportsProgressAndStopsWhenCancelled)
{
    double last = 0.0;
    OrvikMesh::ReadOptions options;
    options.progress = [&](double share) { last = share; };
    EXPECT_TRUE(ReadGltfBytes(AllSorts().Binary(), options).ok);
    EXPECT_EQ(last, 1.0);

    options.isCancelled = [] { return true; };
    const GltfResult result = ReadGltfBytes(AllSorts().Binary(), options);
    EXPECT_FALSE(result.ok);
    EXPECT_EQ(result.error, L"test: reading was cancelled");
}
