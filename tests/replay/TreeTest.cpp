#include "BatchProcess.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <regex>
#include <set>
#include <string>

namespace {

namespace fs = std::filesystem;

const std::string gear = SourceFile("examples/gear.stl");

/// Two groups, one of them with a name that JSON must escape.
const char kTwoGroups[] = "o lid\n"
                          "v 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"
                          "o a \"base\" \\ \xC3\xA4\n"
                          "v 0 0 5\nv 1 0 5\nv 0 1 5\nf 4 5 6\n";

/// A triangle that two nodes below a third show.
const char kInstances[] = R"({"asset": {"version": "2.0"}, "scene": 0, "scenes": [{"nodes": [0]}],
"nodes": [{"name": "pair", "children": [1, 2]},
          {"name": "left", "mesh": 0},
          {"name": "right", "mesh": 0, "translation": [5, 0, 0]}],
"meshes": [{"name": "triangle", "primitives": [{"attributes": {"POSITION": 0}}]}],
"accessors": [{"bufferView": 0, "componentType": 5126, "count": 3, "type": "VEC3",
               "min": [0, 0, 0], "max": [1, 1, 0]}],
"bufferViews": [{"buffer": 0, "byteLength": 36}],
"buffers": [{"byteLength": 36, "uri": "data:application/octet-stream;base64,)"
                          R"(AAAAAAAAAAAAAAAAAACAPwAAAAAAAAAAAAAAAAAAgD8AAAAA"}]})";

TEST(Tree, PrintsKindAndNameIndented)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree", process.Run({"two.obj", gear, "--tree"}));
}

TEST(Tree, ForProgramsIsJson)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-json", process.Run({"two.obj", "--tree=json"}));
}

TEST(Tree, GoesDownToPartsWhenAskedTo)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-parts", process.Run({"two.obj", "--tree", "--tree-parts"}));
}

TEST(Tree, ShowsWhatIsSelected)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-selected",
                         process.Run({"two.obj", "--eval", "(sel:by-name \"lid\" 'mesh)",
                                      "--tree=json", "--tree-parts"}));
}

TEST(Tree, FollowsWhatIsLoadedImportedAndClosed)
{
    BatchProcess process;
    process.Write("two.obj", kTwoGroups);

    process.ExpectGolden("tree-follows",
                         process.Run({"two.obj", "--eval", "(doc:clear)", "--import", gear,
                                      "--eval", "(doc:undo)", "--import", "two.obj", "--tree"}));
}

TEST(Tree, IsEmptyWithNothingLoaded)
{
    BatchProcess process;

    process.ExpectGolden("tree-empty", process.Run({"--tree=json"}));
}

TEST(Tree, IsNotPrintedAfterAFailure)
{
    BatchProcess process;

    process.ExpectGolden("tree-failure", process.Run({"absent.stl", "--tree"}));
}

/// Checks what test:walk-tree printed: every row came back, and only the scene, saved views and
/// what has a text but no shape is without an id in the view.
void expectEveryRowBack(const Outcome& outcome)
{
    static const std::set<std::string> plain = {"annotation", "capture", "captures",
                                                "scene",      "view",    "views"};
    std::smatch result;
    ASSERT_EQ(outcome.exitCode, 0) << outcome.errors;
    ASSERT_TRUE(std::regex_search(outcome.output, result,
                                  std::regex(R"(\n\((\d+) (\d+) \((.*)\) \(\)\)\n$)")))
        << outcome.output;
    EXPECT_GT(std::stoi(result[1]), 2);
    EXPECT_GT(std::stoi(result[2]), 1);
    const std::string kinds = result[3];
    const std::regex word("[a-z-]+");
    for (std::sregex_iterator kind(kinds.begin(), kinds.end(), word), end; kind != end; ++kind)
        EXPECT_TRUE(plain.contains(kind->str())) << kind->str();
}

TEST(Tree, ConvertsEveryRowThereAndBack)
{
    BatchProcess process;
    process.UseTestCommands();
    process.Write("two.obj", kTwoGroups);

    process.Write("instances.gltf", kInstances);
    process.Write("dots.xyz", "1 2 3\n4 5 6\n");

    expectEveryRowBack(
        process.Run({"two.obj", gear, "instances.gltf", "dots.xyz", "--eval", "(test:walk-tree)"}));
}

TEST(Tree, OfInstancesHasARowForEach)
{
    BatchProcess process;
    process.Write("instances.gltf", kInstances);

    process.ExpectGolden("tree-instances", process.Run({"instances.gltf", "--tree"}));
}

#ifdef ORVIK_CAD_MODELS

TEST(Tree, ConvertsEveryRowOfEveryCadModelThereAndBack)
{
    BatchProcess process;
    process.UseTestCommands();
    int count = 0;
    for (const fs::directory_entry& entry : fs::directory_iterator(ORVIK_CAD_MODELS)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".step" && extension != ".stp" && extension != ".iges" &&
            extension != ".brep")
            continue;
        SCOPED_TRACE(entry.path().filename().string());
        expectEveryRowBack(process.Run({entry.path().string(), "--eval", "(test:walk-tree)"}));
        ++count;
    }
    EXPECT_GT(count, 10);
}

TEST(Tree, EveryRowOfEveryCadModelCanBeSelectedWithoutAMessage)
{
    BatchProcess process;
    process.Write("select.scm", "(define rows 0)\n"
                                "(define (walk row)\n"
                                "  (set! rows (+ rows 1))\n"
                                "  (sel:set (caddr row))\n"
                                "  (for-each walk (cadddr row)))\n"
                                "(for-each walk (doc:tree #t))\n"
                                "(app:print \"rows \" (> rows 10))\n");
    for (const char* model : {"pmi.step", "views.step", "assembly_ap242.step"}) {
        SCOPED_TRACE(model);
        const Outcome outcome =
            process.Run({(fs::path(ORVIK_CAD_MODELS) / model).string(), "--script", "select.scm"});

        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        EXPECT_NE(outcome.output.find("\nrows #t\n"), std::string::npos) << outcome.output;
        EXPECT_EQ(outcome.output.find("Could not convert"), std::string::npos) << outcome.output;
    }
}

/// Prints the tree of a generated model, copied to where its path is the same for everybody.
void expectTree(const std::string& golden, const std::string& model)
{
    BatchProcess process;
    fs::copy_file(fs::path(ORVIK_CAD_MODELS) / model, process.Folder() / model);

    process.ExpectGolden(golden, process.Run({model, "--tree"}));
}

TEST(Tree, OfAnAssemblyHasReferencesAndBodies)
{
    expectTree("tree-assembly", "assembly_ap242.step");
}

TEST(Tree, OfAnnotationsAndViewsHasTheirGroups)
{
    expectTree("tree-annotations", "views.step");
}

#endif

} // namespace
