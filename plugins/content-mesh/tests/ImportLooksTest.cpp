// How models of the long tail look: their colours, which side is up, what is a row of the tree.

#include "ImportFiles.h"
#include "MeshFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

using TambVizCore::RGBAColor;
using testing::ElementsAre;

namespace {

/// The sample of a format with one piece of its text exchanged.
std::string sampleWith(const std::string& extension, const std::string& old,
                       const std::string& replacement)
{
    std::string text = ImportSampleOf(extension);
    const std::size_t at = text.find(old);
    EXPECT_NE(at, std::string::npos) << old;
    return text.replace(at, old.size(), replacement);
}

constexpr char kFbxAxes[] = "GlobalSettings:  {\n"
                            "\tVersion: 1000\n"
                            "\tProperties70:  {\n"
                            "\t\tP: \"UpAxis\", \"int\", \"Integer\", \"\",%U\n"
                            "\t\tP: \"UpAxisSign\", \"int\", \"Integer\", \"\",1\n"
                            "\t\tP: \"FrontAxis\", \"int\", \"Integer\", \"\",1\n"
                            "\t\tP: \"FrontAxisSign\", \"int\", \"Integer\", \"\",-1\n"
                            "\t\tP: \"CoordAxis\", \"int\", \"Integer\", \"\",0\n"
                            "\t\tP: \"CoordAxisSign\", \"int\", \"Integer\", \"\",1\n"
                            "\t}\n"
                            "}\n"
                            "Objects:  {\n";

std::string fbxWithUpAxis(const std::string& axis)
{
    std::string axes = kFbxAxes;
    axes.replace(axes.find("%U"), 2, axis);
    return sampleWith("fbx", "Objects:  {\n", axes);
}

/// Where the transforms from the top down to a node put its origin.
std::array<double, 3> placeOf(const OrvikModel::ModelNode& top, const OrvikModel::ModelNode& below)
{
    const auto& outer = *top.transform;
    const auto& inner = *below.transform;
    std::array<double, 3> place{};
    for (std::size_t row = 0; row < 3; ++row)
        for (std::size_t column = 0; column < 4; ++column)
            place[row] += outer[column * 4 + row] * inner[12 + column];
    return place;
}

} // namespace

TEST(ImportLooks, NffFilesHaveTheColoursOfTheirFillLines)
{
    const TempFolder folder;

    const GltfResult red = ReadImportedFile(folder.Write("a.nff", ImportSampleOf("nff")));
    const GltfResult white =
        ReadImportedFile(folder.Write("w.nff", sampleWith("nff", "f 1 0 0", "f 1 1 1")));

    ASSERT_TRUE(red.ok && white.ok);
    EXPECT_EQ(red.Node(0).color, RGBAColor(255, 0, 0));
    EXPECT_EQ(white.Node(0).color, RGBAColor(255, 255, 255));
}

TEST(ImportLooks, WhatHasNoColourInItsFileHasNone)
{
    const TempFolder folder;

    const GltfResult nff =
        ReadImportedFile(folder.Write("a.nff", sampleWith("nff", "f 1 0 0 1 0 0 0 1\n", "")));
    const GltfResult ac = ReadImportedFile(folder.Write("a.ac", ImportSampleOf("ac")));
    const GltfResult amf = ReadImportedFile(folder.Write("a.amf", ImportSampleOf("amf")));

    ASSERT_TRUE(nff.ok && ac.ok && amf.ok);
    EXPECT_EQ(nff.Node(0).color, std::nullopt);
    EXPECT_EQ(ac.Node(0).color, std::nullopt);
    EXPECT_EQ(amf.Node(0).color, std::nullopt);
}

TEST(ImportLooks, ColoursWithAlphaAreTransparent)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(
        folder.Write("a.x", sampleWith("x", "1.0;0.0;0.0;1.0;; 1.0;", "1.0;0.0;0.0;0.5;; 1.0;")));

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).color, RGBAColor(255, 0, 0, 128));
}

TEST(ImportLooks, DxfFilesHaveNoColours)
{
    const TempFolder folder;

    const GltfResult result =
        ReadImportedFile(folder.Write("a.dxf", sampleWith("dxf", "layer1\n", "layer1\n 62\n3\n")));

    ASSERT_TRUE(result.ok);
    const OrvikModel::ModelNode& body = result.Node(0);
    EXPECT_EQ(body.color, std::nullopt);
    EXPECT_EQ(body.shape->Present()->Colors().Size(), 0u);
}

TEST(ImportLooks, ThreeDsFilesHaveNoNormals)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("a.3ds", ImportSampleOf("3ds")));

    ASSERT_TRUE(result.ok);
    EXPECT_EQ(result.Node(0).children.at(0)->shape->Present()->Normals().Size(), 0u);
}

TEST(ImportLooks, FbxFilesAreTurnedSoThatTheirUpIsY)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write("a.fbx", fbxWithUpAxis("2")));

    ASSERT_TRUE(result.ok) << testing::PrintToString(result.error);
    ASSERT_TRUE(result.Node(0).transform);
    EXPECT_THAT(placeOf(result.Node(0), *result.Node(0).children.at(0)), ElementsAre(1, 3, -2));
}

TEST(ImportLooks, FbxFilesWithAxesThatMakeNoSenseStayAsTheyAre)
{
    const TempFolder folder;
    for (const std::string axis : {"1", "0", "7", "-3"}) {
        const GltfResult result = ReadImportedFile(folder.Write("a.fbx", fbxWithUpAxis(axis)));

        ASSERT_TRUE(result.ok);
        EXPECT_EQ(result.Node(0).name, L"left") << axis;
        EXPECT_EQ((*result.Node(0).transform)[13], 2.0) << axis;
    }
}

TEST(ImportLooks, CamerasAndLightsAreNoRows)
{
    const TempFolder folder;

    const GltfResult result = ReadImportedFile(folder.Write(
        "a.nff", "v\nfrom 0 0 10\nat 0 0 0\nup 0 1 0\nangle 45\nresolution 9 9\nl 5 5 5 1 1 1\n" +
                     ImportSampleOf("nff")));

    ASSERT_TRUE(result.ok);
    ASSERT_EQ(result.model.nodes.size(), 1u);
    EXPECT_TRUE(result.Node(0).children.empty());
    EXPECT_TRUE(result.Node(0).shape);
}
