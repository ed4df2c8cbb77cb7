#include "BatchProcess.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace {

namespace fs = std::filesystem;

const std::string gear = SourceFile("examples/gear.stl");

TEST(Files, NamesMayHoldAnything)
{
    BatchProcess process;
    std::vector<std::string> arguments = {"--no-startup"};
    for (const char* const name :
         {"two blanks here.stl",
          "gr\xC3\xBC\xC3\x9F"
          "e.stl",
          "\xF0\x9F\x98\x80.stl", "odd\x80\xFF.stl", "quote\"d.stl", "back\\slash.stl",
          "single'.stl", "\xE2\x80\x9Ctypographic\xE2\x80\x9D.stl"}) {
        fs::copy_file(gear, process.Folder() / name);
        arguments.push_back(name);
    }

    arguments.insert(arguments.end(), {"--eval", "(app:print (length (doc:contents)))", "--info"});
    process.ExpectGolden("names", process.Run(arguments));
}

TEST(Files, APictureMayHaveAnyName)
{
    BatchProcess process;

    const Outcome outcome =
        process.Run({"--no-startup", "--size", "32x32", "--output", "\xC3\xA4 \x80\"\\.png"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_TRUE(fs::exists(process.Folder() / "\xC3\xA4 \x80\"\\.png"));
}

TEST(Files, AnErrorSpellsAnOddNameAsItIs)
{
    BatchProcess process;

    process.ExpectGolden("odd-missing", process.Run({"--no-startup", "odd\x80.stl"}));
}

TEST(Files, AFolderIsNoModel)
{
    BatchProcess process;
    fs::create_directory(process.Folder() / "folder.stl");

    process.ExpectGolden("folder", process.Run({"--no-startup", "folder.stl"}));
}

TEST(Files, AnUnknownExtensionIsAnError)
{
    BatchProcess process;
    process.Write("model.unknown", "solid");

    process.ExpectGolden("unknown-extension", process.Run({"--no-startup", "model.unknown"}));
}

TEST(Files, AMissingFileIsAnError)
{
    BatchProcess process;

    process.ExpectGolden("missing", process.Run({"--no-startup", "absent.stl"}));
}

TEST(Files, ASlipInANameCostsNobodyTheModel)
{
    BatchProcess process;
    fs::create_directory(process.Folder() / "folder.stl");
    process.Write("model.unknown", "solid");

    const Outcome outcome = process.Run(
        {"--no-startup", gear, "--eval",
         "(define (kept name) (catch #t (lambda () (doc:load name)) (lambda (key . rest) "
         "(app:print (car rest) (length (doc:contents))))))",
         "--eval",
         "(for-each kept '(\"absent.stl\" \"absent.step\" \"model.unknown\" "
         "\"folder.stl\"))",
         "--eval", "(app:print (doc:contents) (list? (doc:bounding-box)))"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find("absent.stl: No such file or directory1\n"), std::string::npos)
        << outcome.output;
    EXPECT_NE(outcome.output.find("Cannot find a loader for model.unknown"), std::string::npos);
    EXPECT_NE(outcome.output.find("(gear.stl)#t\n"), std::string::npos) << outcome.output;
}

TEST(Files, AModelTooSmallForACameraIsTold)
{
    BatchProcess process;
    process.Write("tiny.stl", BoxStl(1e-9f, 1e-9f, 1e-9f));
    process.Write("small.stl", BoxStl(1e-4f, 1e-4f, 1e-4f));

    const Outcome outcome = process.Run({"tiny.stl", "small.stl"});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors, "warning: tiny.stl: all that is loaded is 1.73e-09 across; no camera "
                              "comes nearer than 0.0001, so it may not be seen\n");
}

TEST(Files, AScriptLoadsWhatLiesBesideIt)
{
    BatchProcess process;
    fs::create_directory(process.Folder() / "scripts");
    process.Write("scripts/words.scm", "(define word \"beside\")");
    process.Write("scripts/run.scm", "(load \"words.scm\")\n(app:print word)");
    process.Write("here.scm", "(load \"scripts/words.scm\")\n(app:print \"here \" word)");

    const Outcome outcome =
        process.Run({"--script", "scripts/run.scm", "--script", "here.scm", "--eval",
                     "(load \"scripts/words.scm\")", "--eval", "(load \"absent.scm\")"});

    EXPECT_NE(outcome.output.find("\nbeside\n"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find("\nhere beside\n"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.errors.find("/absent.scm"), std::string::npos) << outcome.errors;
    EXPECT_EQ(outcome.exitCode, 1);
}

TEST(Files, AnEmptyFileIsAnError)
{
    BatchProcess process;
    process.Write("empty.stl", "");

    process.ExpectGolden("empty", process.Run({"--no-startup", "empty.stl"}));
}

TEST(Files, ATruncatedFileIsNeverDrawnWithoutAWord)
{
    BatchProcess process;
    process.Write("cut.stl", ReadBytes(gear).substr(0, 100000));

    process.ExpectGolden("truncated", process.Run({"--no-startup", "cut.stl", "--info"}));
}

TEST(Files, AfterAFileThatFailsNothingElseRuns)
{
    BatchProcess process;

    process.ExpectGolden("stops-at-file",
                         process.Run({"--no-startup", "absent.stl", "--eval",
                                      "(app:print \"more\")", "--output", "picture.png"}));

    EXPECT_FALSE(fs::exists(process.Folder() / "picture.png"));
}

/// What --info says of a file, without its name and path.
std::string shapeOf(const BatchProcess& process, const std::string& file)
{
    const Outcome outcome = process.Run({file, "--info=json", "--no-startup"});
    const std::size_t box = outcome.output.find("\"box\"");
    const std::size_t segments = outcome.output.find(", \"segments\"");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(segments, std::string::npos) << outcome.output;
    return outcome.output.substr(box, segments - box);
}

TEST(Files, WhatIsSavedIsLoadedTheSame)
{
    BatchProcess process;
    const std::string shape = shapeOf(process, gear);

    for (const std::string extension : {"stl", "obj", "ply", "off"}) {
        const std::string file = "saved." + extension;
        const Outcome outcome = process.Run({gear, "--eval", "(doc:save \"" + file + "\")"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        EXPECT_EQ(shapeOf(process, file), shape) << file;
    }
}

TEST(Files, AFileThatCannotBeSavedIsAnErrorThatNamesIt)
{
    BatchProcess process;

    process.ExpectGolden("save-no-format", process.Run({gear, "--eval", "(doc:save \"a.xls\")"}));
    process.ExpectGolden("save-no-folder",
                         process.Run({gear, "--eval", "(doc:save \"absent/a.stl\")"}));
    process.ExpectGolden("save-nothing", process.Run({"--eval", "(doc:save \"a.stl\")"}));
    process.ExpectGolden("save-no-name",
                         process.Run({gear, "--eval", "(doc:save \"a.stl\" \"b.stl\")"}));
}

TEST(Files, OneOfSeveralIsSavedByItsName)
{
    BatchProcess process;
    process.Write("dot.xyz", "1 2 3\n4 5 6\n");

    const Outcome outcome = process.Run({SourceFile("examples/gear.stl"), "dot.xyz", "--eval",
                                         "(doc:save \"dots.ply\" \"dot.xyz\")"});

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_EQ(outcome.errors, "");
    EXPECT_NE(shapeOf(process, "dots.ply").find("\"triangles\": 0"), std::string::npos);
}

TEST(Files, WhatASavedFileDoesNotHoldIsTold)
{
    BatchProcess process;
    process.Write("dot.xyz", "1 2 3\n4 5 6\n");
    process.Write("other.xyz", "1 2 3\n");

    const Outcome outcome =
        process.Run({"dot.xyz", gear, "other.xyz", "--eval", "(doc:save \"all.stl\")"});

    EXPECT_EQ(outcome.exitCode, 0);
    EXPECT_EQ(outcome.errors,
              "warning: all.stl: gear.stl was written; left out: dot.xyz, other.xyz\n");
}

} // namespace
