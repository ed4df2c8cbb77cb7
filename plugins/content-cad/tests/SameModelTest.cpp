#include "CadTest.h"
#include "tests/ModelText.h"

#include <OrvikOs/Thread.h>
#include <OrvikOs/Utf8.h>

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>
#include <vector>

// The same file gives the same model, whatever the addresses at which the kernel keeps its shapes,
// labels and texts.

namespace OrvikCad {
namespace {

using OrvikModel::ModelNode;

constexpr const char* kFiles[] = {"assembly_ap203.step", "assembly_ap214.step", "colors.iges",
                                  "free_shapes.step",    "instance_color.step", "pmi.step",
                                  "solids.brep",         "views.step"};

template <class Array> std::uint64_t checksum(const Array& array)
{
    std::uint64_t sum = 14695981039346656037u;
    const auto* bytes = reinterpret_cast<const unsigned char*>(array.Data());
    for (std::size_t i = 0; i < array.Size() * sizeof(*array.Data()); ++i)
        sum = (sum ^ bytes[i]) * 1099511628211u;
    return sum;
}

void describe(const ModelNode& node, std::string& text)
{
    text += std::to_string(node.number) + " " + std::to_string(static_cast<int>(node.kind)) + " " +
            OrvikOs::WideToUtf8(node.name + L" " + node.text);
    for (const std::uint64_t visible : node.visible)
        text += " " + std::to_string(visible);
    if (node.shape) {
        const auto geometry = node.shape->Present();
        for (const TambVizCore::GeometryPart& part : geometry->Parts())
            text += " " + std::to_string(part.id);
        text += " " + std::to_string(checksum(geometry->Positions())) + " " +
                std::to_string(checksum(geometry->Triangles())) + " " +
                std::to_string(checksum(geometry->Segments()));
    }
    text += "\n";
    for (const auto& child : node.children)
        describe(*child, text);
}

/// Everything of the models of all files that has an order.
std::string describeAll()
{
    std::string text;
    for (const char* file : kFiles) {
        const ReadResult read = ReadCad(OrvikOs::Utf8ToWide(file));
        text += std::string(file) + "\n" + ModelText(read.model);
        for (const auto& node : read.model.nodes)
            describe(*node, text);
        for (const std::wstring& warning : read.warnings)
            text += OrvikOs::WideToUtf8(warning) + "\n";
    }
    return text;
}

/// Takes the places where small blocks of memory would lie next.
std::vector<std::unique_ptr<char[]>> scatter(std::size_t turn)
{
    std::vector<std::unique_ptr<char[]>> blocks;
    for (std::size_t i = 0; i < 20000; ++i)
        blocks.push_back(std::make_unique<char[]>(16 + (i * 37 + turn * 101) % 600));
    for (std::size_t i = 0; i < blocks.size(); i += 2 + turn)
        blocks[i].reset();
    return blocks;
}

TEST(SameModel, ComesOfTheSameFileWhereverMemoryLies)
{
    const std::string first = describeAll();

    for (std::size_t turn = 0; turn < 4; ++turn) {
        const auto blocks = scatter(turn);
        EXPECT_EQ(describeAll(), first) << blocks.size();
    }
}

/// Does nothing in the everyday run: other tests start it in processes of their own.
TEST(SameModel, IsWrittenForAnotherProcess)
{
    const char* const target = std::getenv("ORVIK_SAME_MODEL");
    if (!target)
        GTEST_SKIP() << "for other tests";
    std::ofstream(target, std::ios::binary) << describeAll();
}

std::string describedElsewhere(const std::string& starter)
{
    const std::string target =
        testing::TempDir() + "same_model." + std::to_string(OrvikOs::CurrentProcessId());
    const std::string self = std::filesystem::read_symlink("/proc/self/exe").string();
    const std::string command = "ORVIK_SAME_MODEL='" + target + "' " + starter + " '" + self +
                                "' --gtest_filter=SameModel.IsWrittenForAnotherProcess >/dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0) << command;
    std::ifstream file(target, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(file), {}};
    std::filesystem::remove(target);
    return text;
}

TEST(SameModel, ComesOfTheSameFileInEveryProcess)
{
    if (!std::filesystem::exists("/proc/self/exe"))
        GTEST_SKIP() << "the system does not tell which program this is";
    const std::string here = describeAll();

    EXPECT_EQ(describedElsewhere(""), here);
    EXPECT_EQ(describedElsewhere("MALLOC_TOP_PAD_=8388608 MALLOC_ARENA_MAX=1"), here);
    // Without addresses chosen at random; some containers do not allow it.
    if (std::system("setarch -R true 2>/dev/null") == 0) {
        EXPECT_EQ(describedElsewhere("setarch -R"), here);
    }
}

} // namespace
} // namespace OrvikCad
