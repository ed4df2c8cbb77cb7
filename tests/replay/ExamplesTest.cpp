#include "BatchProcess.h"
#include "Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace {

namespace fs = std::filesystem;

/// What an example is run with, and what it then says.
struct Example
{
    std::string script;
    std::string model;
    std::string says;
};

const std::vector<Example> kExamples = {
    {"first-look.scm", "gear.stl", "a ray down onto the rim hits: face\n"},
#ifdef ORVIK_CAD_MODELS
    {"hole-diameter.scm", "bored-plate.step", "bores: 1\n"},
    {"section.scm", "frames.step", "a ray down onto what is cut away meets: nothing\n"},
    {"isolate.scm", "frames.step", "a ray down through the plates meets: nothing\n"},
    {"xray.scm", "frames.step", "selected: 8\n"},
    {"explode.scm", "frames.step", "a ray down met bolt M6 and now meets plate\n"},
#endif
};

TEST(Examples, SayAndDrawWhatTheyPromise)
{
    const BatchProcess process;
    for (const Example& example : kExamples) {
        const Outcome outcome = process.Run(
            {SourceFile("examples/" + example.model), "--no-config", "--up", "z", "--size",
             "640x400", "--script", SourceFile("examples/" + example.script), "--output", "a.png"});

        EXPECT_EQ(outcome.exitCode, 0) << example.script << outcome.errors;
        EXPECT_EQ(outcome.errors, "") << example.script;
        EXPECT_NE(outcome.output.find(example.says), std::string::npos) << outcome.output;
    }
}

#ifdef ORVIK_CAD_MODELS

TEST(Examples, EachScriptIsRunByATest)
{
    std::vector<std::string> names;
    for (const fs::directory_entry& entry : fs::directory_iterator(SourceFile("examples")))
        if (entry.path().extension() == ".scm")
            names.push_back(entry.path().filename().string());
    std::vector<std::string> known;
    for (const Example& example : kExamples)
        known.push_back(example.script);
    std::sort(names.begin(), names.end());
    std::sort(known.begin(), known.end());

    EXPECT_EQ(names, known);
}

/// Not bit by bit: another driver may draw borders another way.
TEST(Examples, DrawThePicturesOfTheDocumentation)
{
    const BatchProcess process;
    for (const std::string name : {"section", "isolate", "xray", "explode"}) {
        process.Run({SourceFile("examples/frames.step"), "--no-config", "--up", "z", "--size",
                     "640x400", "--script", SourceFile("examples/" + name + ".scm"), "--output",
                     name + ".png"});

        const PictureDifference difference = ComparePictures(
            SourceFile("docs/pictures/" + name + ".png"), process.Folder() / (name + ".png"));
        EXPECT_EQ(difference.pixels, 640 * 400) << name;
        EXPECT_LE(difference.off, difference.pixels / 50) << name;
    }
}

#endif

} // namespace
