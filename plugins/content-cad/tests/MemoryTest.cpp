#include "CadTest.h"
#include "DamagedFile.h"
#include "ScopedTempDir.h"
#include "kernel/CadDocument.h"
#include "kernel/CadKernel.h"

#include <OrvikOs/Utf8.h>

#include <BRepPrimAPI_MakeBox.hxx>
#include <STEPCAFControl_Writer.hxx>
#include <TopLoc_Location.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp_Trsf.hxx>
#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <string>

// How much memory hostile files can make the kernel take.

namespace OrvikCad {
namespace {

std::size_t allowedFor(std::size_t fileBytes)
{
    return (std::size_t{64} << 20) + 40 * fileBytes;
}

/// @return a line of the process's state, in bytes; 0 where the system has none.
std::size_t processBytes(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            return std::stoull(line.substr(name.size() + 1)) * 1024;
    return 0;
}

class HostileMemory : public testing::Test
{
protected:
    void SetUp() override
    {
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
        GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
        const CadKernel kernel;
        if (!resetPeak())
            GTEST_SKIP() << "the system does not tell how much memory a process took";
    }

    static bool resetPeak()
    {
        std::ofstream file("/proc/self/clear_refs");
        file << "5";
        file.flush();
        return file.good();
    }

    /// Reads something and holds what that took against the size of the file.
    static void ExpectWithin(std::size_t fileBytes, const std::function<void()>& read,
                             const std::string& what)
    {
        resetPeak();
        const std::size_t before = processBytes("VmRSS");
        read();
        const std::size_t peak = processBytes("VmHWM");
        EXPECT_LE(peak - std::min(peak, before), allowedFor(fileBytes)) << what;
    }
};

/// Four levels of assemblies with twenty places each of the next: 160,000 boxes.
std::wstring writeNested(const ScopedTempDir& folder)
{
    const CadDocument document;
    const Handle(XCAFDoc_ShapeTool) shapes = XCAFDoc_DocumentTool::ShapeTool(document.Main());
    TDF_Label below = shapes->AddShape(BRepPrimAPI_MakeBox(1, 1, 1).Solid(), false);
    for (int level = 0; level < 4; ++level) {
        const TDF_Label assembly = shapes->NewShape();
        for (int i = 0; i < 20; ++i) {
            gp_Trsf place;
            place.SetTranslation(gp_Vec(2.0 * i, 3.0 * level, 0));
            shapes->AddComponent(assembly, below, TopLoc_Location(place));
        }
        below = assembly;
    }
    shapes->UpdateAssemblies();
    const std::wstring file = folder.Write("nested.step", "");
    STEPCAFControl_Writer writer;
    EXPECT_TRUE(writer.Transfer(document.Document()));
    EXPECT_EQ(writer.Write(OrvikOs::WideToUtf8(file).c_str()), IFSelect_RetDone);
    return file;
}

TEST_F(HostileMemory, OfAssembliesThatNameEachOtherManyTimesIsBounded)
{
    const ScopedTempDir folder;
    const std::wstring file = writeNested(folder);
    std::ifstream stream(OrvikOs::WideToUtf8(file), std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(stream), {}};

    ExpectWithin(
        text.size(),
        [&] {
            const ReadResult read = ReadCad(file);
            EXPECT_TRUE(read.isRead);
            EXPECT_TRUE(read.WarnsOf(L"the assembly holds more than 6"));
        },
        "nested");
}

TEST_F(HostileMemory, OfDamagedFilesIsBounded)
{
    for (const char* name : {"hole_plate.step", "colors.iges", "solids.brep"}) {
        const std::string text = TestModelText(name);
        for (std::uint32_t seed = 0; seed < 20; ++seed)
            ExpectWithin(
                text.size(), [&] { ReadCadText(DamagedFile(text, seed), name, kHostileLimits); },
                name + std::to_string(seed));
    }
}

TEST_F(HostileMemory, OfComputationsWithoutEndIsBounded)
{
    const std::string text = TestModelText("colors.iges");
    for (const std::uint32_t seed : {78u, 236u, 403u, 476u, 653u, 930u})
        ExpectWithin(
            text.size(),
            [&] {
                ReadCadText(DamagedFile(text, seed), "a.iges",
                            {.silentMs = 300, .silentMsPerMegabyte = 0});
            },
            std::to_string(seed));
}

} // namespace
} // namespace OrvikCad
