#include "GltfFiles.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>
#include <random>

using testing::HasSubstr;
using testing::StartsWith;

namespace {

void expectSoundNode(const OrvikModel::ModelNode& node)
{
    if (node.transform) {
        ASSERT_EQ(node.transform->size(), 16u);
        for (const double number : *node.transform)
            ASSERT_TRUE(std::isfinite(number));
    }
    for (const auto& child : node.children)
        expectSoundNode(*child);
}

/// A reading either gives a sound model, or says why not. That indices are in range and coordinates
/// finite is checked by whoever makes the geometry.
void expectSound(const GltfResult& result)
{
    if (!result.ok) {
        EXPECT_GT(result.error.size(), std::wstring(L"test: ").size());
        return;
    }
    EXPECT_GT(result.shapesMade, 0u);
    for (const auto& node : result.model.nodes)
        expectSoundNode(*node);
}

/// One node that shows one primitive of that accessor.
GltfResult readAccessor(const std::string& accessor, const std::string& view = "")
{
    GltfText text;
    text.AddView(BytesOf<float>({0, 0, 0, 1, 0, 0, 0, 1, 0}), view);
    text.AddAccessor(accessor);
    text.AddMesh("\"primitives\":[{\"attributes\":{\"POSITION\":0}}]");
    text.AddNode("\"mesh\":0");
    return ReadGltfBytes(text.Binary());
}

std::string nested(std::size_t depth, char open, char close)
{
    return "{\"asset\":{\"version\":\"2.0\"},\"extras\":" + std::string(depth, open) +
           std::string(depth, close) + "}";
}

struct Form
{
    const char* name;
    std::string bytes;
};

void PrintTo(const Form& form, std::ostream* out)
{
    *out << form.name;
}

class HostileGltf : public testing::TestWithParam<Form>
{
};

} // namespace

TEST_P(HostileGltf, CutAtEveryTenthIsReadOrRefused)
{
    const std::string& bytes = GetParam().bytes;
    for (std::size_t tenth = 0; tenth < 10; ++tenth)
        expectSound(ReadGltfBytes(std::string_view(bytes).substr(0, bytes.size() * tenth / 10)));
}

TEST_P(HostileGltf, WithFlippedBytesIsReadOrRefused)
{
    for (unsigned seed = 0; seed < 50; ++seed) {
        std::mt19937 random(seed);
        std::string bytes = GetParam().bytes;
        for (int i = 0; i < 8; ++i)
            bytes[random() % bytes.size()] = static_cast<char>(random());
        SCOPED_TRACE(seed);
        expectSound(ReadGltfBytes(bytes));
    }
}

TEST_P(HostileGltf, WithOtherDigitsIsReadOrRefused)
{
    for (unsigned seed = 0; seed < 200; ++seed) {
        std::mt19937 random(seed);
        std::string bytes = GetParam().bytes;
        for (int i = 0; i < 200; ++i) {
            char& byte = bytes[random() % bytes.size()];
            if (byte >= '0' && byte <= '9' && random() % 8 == 0)
                byte = static_cast<char>('0' + random() % 10);
        }
        SCOPED_TRACE(seed);
        expectSound(ReadGltfBytes(bytes));
    }
}

INSTANTIATE_TEST_SUITE_P(Forms, HostileGltf,
                         testing::Values(Form{"Binary", AllSorts().Binary()},
                                         Form{"Embedded", AllSorts().Embedded()}),
                         [](const testing::TestParamInfo<Form>& form) {
                             return std::string(form.param.name);
                         });

TEST(GltfHostile, CountsNearTheLimitsOfIntegersAreRefused)
{
    for (const char* count : {"4294967294", "4294967295", "4294967296", "9007199254740992",
                              "18446744073709551615", "1e300", "-1", "1.5", "\"3\""}) {
        const GltfResult result = readAccessor(
            std::string("\"bufferView\":0,\"componentType\":5126,\"type\":\"VEC3\",\"count\":") +
            count);
        EXPECT_FALSE(result.ok) << count;
        EXPECT_FALSE(result.error.empty());
    }
}

TEST(GltfHostile, OffsetsNearTheLimitsOfIntegersAreRefused)
{
    for (const char* offset :
         {"1", "36", "4294967295", "9007199254740992", "18446744073709551580"}) {
        const GltfResult result =
            readAccessor(std::string("\"bufferView\":0,\"componentType\":5126,\"type\":\"VEC3\","
                                     "\"count\":3,\"byteOffset\":") +
                         offset);
        EXPECT_FALSE(result.ok) << offset;
    }
}

TEST(GltfHostile, StridesNearTheLimitsOfIntegersAreRefused)
{
    for (const char* stride : {"13", "65537", "9007199254740992", "18446744073709551615"}) {
        const GltfResult result =
            readAccessor("\"bufferView\":0,\"componentType\":5126,\"type\":\"VEC3\",\"count\":3",
                         std::string(",\"byteStride\":") + stride);
        EXPECT_FALSE(result.ok) << stride;
    }
}

TEST(GltfHostile, ZerosWithoutBytesAreLimitedByTheSizeOfTheFile)
{
    const GltfResult result =
        readAccessor("\"componentType\":5126,\"type\":\"VEC3\",\"count\":4000000000");

    EXPECT_EQ(result.error,
              L"test: mesh 0, primitive 0: it would unfold to more memory than a file "
              L"of this size honestly needs");
}

TEST(GltfHostile, TheSameBytesOverAndOverAreLimitedByTheSizeOfTheFile)
{
    GltfText text;
    std::vector<float> pool(300000);
    for (std::size_t i = 0; i < pool.size(); ++i)
        pool[i] = static_cast<float>(i % 977);
    const std::string view = std::to_string(text.AddView(BytesOf(pool)));
    for (int i = 0; i < 300; ++i) {
        text.AddAccessor("\"bufferView\":" + view + ",\"componentType\":5126,\"type\":\"VEC3\"," +
                         "\"count\":90000,\"byteOffset\":" + std::to_string(4 * i));
        text.AddMesh("\"primitives\":[{\"mode\":5,\"attributes\":{\"POSITION\":" +
                     std::to_string(i) + "}}]");
        text.AddNode("\"mesh\":" + std::to_string(i));
    }

    const GltfResult result = ReadGltfBytes(text.Binary());

    ASSERT_TRUE(result.ok);
    EXPECT_LT(result.shapesMade, 60u);
    EXPECT_EQ(result.warnings.back().find(L"test: further warnings of this kind: 2"), 0u);
}

TEST(GltfHostile, ManyInstancesOfManyPrimitivesAreLimitedByTheSizeOfTheFile)
{
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
    std::string primitives = "{\"attributes\":{\"POSITION\":0}}";
    for (int i = 1; i < 2000; ++i)
        primitives += ",{\"attributes\":{\"POSITION\":0}}";
    text.AddMesh("\"primitives\":[" + primitives + "]");
    for (int i = 0; i < 2000; ++i)
        text.AddNode("\"mesh\":0");

    EXPECT_EQ(ReadGltfBytes(text.Binary()).error,
              L"test: it would unfold to more memory than a file of this size honestly needs");
}

TEST(GltfHostile, BracketsNestedDeepAreRefused)
{
    for (const std::size_t depth : {std::size_t{300}, std::size_t{200000}}) {
        for (const std::string& text :
             {nested(depth, '[', ']'), nested(depth, '[', ' '), std::string(depth, '{')}) {
            const GltfResult result = ReadGltfBytes(text);
            EXPECT_FALSE(result.ok);
            EXPECT_NE(result.error.find(L"byte "), std::wstring::npos);
        }
    }
    EXPECT_EQ(ReadGltfBytes(nested(200000, '[', ']')).error,
              L"test: byte 291: brackets are nested more than 256 deep");
}

TEST(GltfHostile, SaysWhereTextIsNotJson)
{
    EXPECT_EQ(ReadGltfBytes("{\"asset\":{\"version\":\"2.0\"},,}").error,
              L"test: byte 27: this is not JSON: Missing a name for object member.");
}

TEST(GltfHostile, RefusesWhatIsNoGltf)
{
    const std::wstring noGltf =
        L"test: this is no glTF file: it begins neither with \"glTF\" nor with a brace";
    for (const char* text : {"solid x", "[1,2]", "   ", "\xEF\xBB\xBF", "glT"})
        EXPECT_EQ(ReadGltfBytes(text).error, noGltf) << text;
    EXPECT_EQ(ReadGltfBytes("{}").error,
              L"test: the file does not say which version of glTF it has");
    EXPECT_EQ(ReadGltfBytes("glTF").error, L"test: byte 4: the file ends in its header");
}

TEST(GltfHostile, RefusesOtherVersions)
{
    GltfText text = OneTriangle();
    text.SetVersion("1.0");
    EXPECT_EQ(ReadGltfBytes(text.Embedded()).error,
              L"test: glTF of version 1.0 is not supported, only version 2");
    std::string binary = OneTriangle().Binary();
    binary[4] = 1;
    EXPECT_EQ(ReadGltfBytes(binary).error,
              L"test: byte 4: binary glTF of version 1 is not supported, only version 2");
}

TEST(GltfHostile, ChunksThatReachBeyondTheFileAreTold)
{
    std::string json = OneTriangle().Binary();
    json[15] = '\x7F';
    EXPECT_NE(ReadGltfBytes(json).error.find(L"bytes of JSON, the file ends after"),
              std::wstring::npos);

    std::string binary = OneTriangle().Binary();
    binary[binary.find(std::string("BIN\0", 4)) - 1] = '\xFF';
    const GltfResult result = ReadGltfBytes(binary);
    EXPECT_TRUE(result.ok);
    EXPECT_EQ(result.warnings.size(), 1u);
}

TEST(GltfHostile, ListsThatAreNoneAndElementsOfOtherTypesAreRefused)
{
    EXPECT_EQ(ReadGltfBytes("{\"asset\":{\"version\":\"2.0\"},\"nodes\":{}}").error,
              L"test: \"nodes\" is not a list");
    EXPECT_EQ(ReadGltfBytes("{\"asset\":{\"version\":\"2.0\"},\"nodes\":[1]}").error,
              L"test: there is no node 0");
    EXPECT_FALSE(ReadGltfBytes("{\"asset\":[],\"nodes\":[]}").ok);
}

TEST(GltfHostile, LongBase64IsReadInProportion)
{
    GltfText text = OneTriangle();
    text.AddView(std::string(3000000, 'x'));

    EXPECT_TRUE(ReadGltfBytes(text.Embedded()).ok);
}
