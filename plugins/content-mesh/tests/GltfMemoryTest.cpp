#include "GltfFiles.h"
#include "ProcessMemory.h"
#include "content/ShapeOfArrays.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <ostream>

// How much memory hostile glTF files can make the reader take: files that make much of each byte.

namespace {

constexpr std::size_t kFileBytes = 6u << 20;

/// A list of as many elements as the file has room for, in a file of one triangle.
std::string filledWith(const char* list, const std::string& element)
{
    GltfText text = OneTriangle();
    std::string elements;
    elements.reserve(kFileBytes);
    while (elements.size() < kFileBytes)
        elements += element + ",";
    elements.pop_back();
    text.AddRootMember(std::string("\"") + list + "\":[" + elements + "]");
    return text.Embedded();
}

std::string manyNodes()
{
    GltfText text = OneTriangle();
    for (std::size_t bytes = 0; bytes < kFileBytes; bytes += 9)
        text.AddNode("\"mesh\":0");
    return text.Embedded();
}

std::string stripOfBytes()
{
    GltfText text;
    text.AddFloats({0, 0, 0, 1, 0, 0, 0, 1, 0}, 3);
    std::string run(kFileBytes, '\0');
    for (std::size_t i = 0; i < run.size(); ++i)
        run[i] = static_cast<char>(i % 3);
    const std::size_t view = text.AddView(run);
    text.AddAccessor("\"bufferView\":" + std::to_string(view) +
                     ",\"componentType\":5121,\"count\":" + std::to_string(run.size()) +
                     ",\"type\":\"SCALAR\"");
    text.AddMesh("\"primitives\":[{\"mode\":5,\"attributes\":{\"POSITION\":0},\"indices\":1}]");
    text.AddNode("\"mesh\":0");
    return text.Binary();
}

std::string overlappingVertices()
{
    GltfText text;
    const std::string bytes(kFileBytes, '\1');
    const std::size_t view = text.AddView(bytes, ",\"byteStride\":1");
    const std::string accessor = "\"bufferView\":" + std::to_string(view) +
                                 ",\"count\":" + std::to_string(bytes.size() - 11) +
                                 ",\"type\":\"VEC3\",\"componentType\":5121";
    text.AddAccessor(accessor);
    text.AddMesh("\"primitives\":[{\"attributes\":{\"POSITION\":0,\"NORMAL\":0,\"COLOR_0\":0}}]");
    text.AddNode("\"mesh\":0");
    return text.Binary();
}

struct Subject
{
    const char* name;
    std::function<std::string()> make;
};

void PrintTo(const Subject& subject, std::ostream* out)
{
    *out << subject.name;
}

class GltfMemory : public testing::TestWithParam<Subject>
{
};

} // namespace

TEST_P(GltfMemory, HoldsForFilesThatMakeMuchOfEachByte)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    const std::string bytes = GetParam().make();
    if (!ResetPeakMemory())
        GTEST_SKIP() << "the system does not tell how much memory a process took";
    const std::size_t before = PresentMemory();

    OrvikModel::Model model;
    OrvikMesh::ReadMessages messages(L"test");
    const bool isRead = OrvikMesh::ReadGuarded(
        [&] {
            return OrvikMesh::ReadGltfContent(L"", bytes, {}, &OrvikMesh::MakeShape, model,
                                              messages);
        },
        messages);

    const std::size_t peak = PeakMemory();
    EXPECT_LE(peak - std::min(peak, before), MemoryAllowedFor(bytes.size()));
    EXPECT_NE(isRead, messages.HasError());
}

INSTANTIATE_TEST_SUITE_P(
    Files, GltfMemory,
    testing::Values(Subject{"Numbers", [] { return filledWith("extras", "0"); }},
                    Subject{"Objects", [] { return filledWith("extras", "{}"); }},
                    Subject{"Lists", [] { return filledWith("extras", "[0]"); }},
                    Subject{"Members", [] { return filledWith("extras", "{\"\":0}"); }},
                    Subject{"Nodes", &manyNodes}, Subject{"StripOfBytes", &stripOfBytes},
                    Subject{"OverlappingVertices", &overlappingVertices}),
    [](const testing::TestParamInfo<Subject>& subject) { return std::string(subject.param.name); });
