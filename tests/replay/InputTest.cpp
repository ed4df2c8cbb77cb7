#include "BatchProcess.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

namespace {

/// A run in a window of 960 x 720 pixels with the shortcut Ctrl-f.
class Input : public testing::Test
{
protected:
    Input() { m_process.Write("input.toml", "[hotkeys]\n\"Ctrl-f\" = \"(view:zoom-all)\"\n"); }

    Outcome run(const std::string& file, const std::string& script) const
    {
        return m_process.Run(
            {"--size", "960x720", "--config", "input.toml", file, "--script",
             m_process.Write("input.scm", "(view:iso)\n(view:zoom-all)\n" + script)});
    }
#ifdef ORVIK_CAD_MODELS
    /// The generated assembly, under a name that has no folder of the build.
    std::string assembly() const
    {
        std::filesystem::copy_file(std::string(ORVIK_CAD_MODELS) + "/assembly_ap214.step",
                                   m_process.Folder() / "assembly.step");
        return "assembly.step";
    }
#endif

    BatchProcess m_process;
};

TEST_F(Input, ActsOnAMeshAsOnASolid)
{
    m_process.Write("box.stl", BoxStl(10, 20, 30));

    m_process.ExpectGolden("input-mesh", run("box.stl", "(input:mouse 'move 430 400 \"Shift\")\n"
                                                        "(sel:highlighted)\n"
                                                        "(input:click 430 400)\n"
                                                        "(sel:get)\n"
                                                        "(input:click 480 280 \"Ctrl-left\")\n"
                                                        "(sel:get)\n"
                                                        "(input:key \"Escape\")\n"
                                                        "(sel:get)\n"
                                                        "(input:drag 900 700 5 5 \"Shift-left\")\n"
                                                        "(sel:get)\n"
                                                        "(view:hide (sel:get))\n"
                                                        "(input:click 430 400)\n"
                                                        "(sel:get)\n"
                                                        "(view:undo)\n"
                                                        "(input:click 430 400)\n"
                                                        "(sel:get)\n"
                                                        "(input:drag 100 100 160 200)\n"
                                                        "(input:wheel 2 480 360)\n"
                                                        "(input:key \"Ctrl-f\")\n"
                                                        "(input:click 480 360)\n"
                                                        "(sel:get)\n"));
}

TEST_F(Input, WhatIsPickedNoMoreIsNotHighlightedEither)
{
    m_process.Write("box.stl", BoxStl(10, 20, 30));
    std::string script;
    for (const char* const end :
         {"(input:click 3 3)", "(input:click 3 3 \"Ctrl-left\")", "(input:key \"Escape\")",
          "(sel:clear)", "(sel:set)", "(sel:highlight)", "(input:drag 3 3 9 9 \"Shift-left\")"})
        script += "(input:click 430 400)\n(app:print \"picked \" (length (sel:highlighted)))\n" +
                  std::string(end) +
                  "\n(app:print \"then \" (length (sel:highlighted)) (length (sel:get)))\n";

    const Outcome outcome = run("box.stl", script);

    std::size_t picked = 0;
    for (std::size_t at = 0; (at = outcome.output.find("\npicked 1\n", at)) != std::string::npos;
         ++at) {
        ++picked;
        EXPECT_EQ(outcome.output.substr(outcome.output.find("\nthen ", at), 9), "\nthen 00\n");
    }
    EXPECT_EQ(picked, 7u) << outcome.output << outcome.errors;
}

TEST_F(Input, PickInTheViewFindsSomethingBeforeAnyOtherPick)
{
    m_process.Write("box.stl", BoxStl(10, 20, 30));

    const Outcome outcome =
        run("box.stl", "(app:print (if (view:pick 430 400) \"found\" \"nothing\"))\n");

    EXPECT_TRUE(outcome.output.ends_with("\nfound\n")) << outcome.output << outcome.errors;
}

TEST_F(Input, MistakesInTheConfigurationNameTheLine)
{
    m_process.Write("wrong.toml", "[hotkeys]\n\"Ctrl-F5\" = \"(a)\"\n\n[navigation]\nleft = "
                                  "\"turn\"\n");

    m_process.ExpectGolden("input-configuration",
                           m_process.Run({"--config", "wrong.toml", "--eval", "1"}));
}

#ifdef ORVIK_CAD_MODELS

const char kNames[] = "(map entity:name (sel:get))\n";

TEST_F(Input, HoversOverAnAssemblyUntilThePointerLeaves)
{
    m_process.ExpectGolden("input-hover", run(assembly(), "(input:mouse 'move 340 340 \"Shift\")\n"
                                                          "(sel:highlighted)\n"
                                                          "(input:mouse 'move 600 330 \"Shift\")\n"
                                                          "(sel:highlighted)\n"
                                                          "(input:mouse 'move 20 20 \"Shift\")\n"
                                                          "(sel:highlighted)\n"
                                                          "(input:mouse 'move 340 340 \"Shift\")\n"
                                                          "(input:mouse 'leave 0 0)\n"
                                                          "(sel:highlighted)\n"
                                                          "(sel:get)\n"));
}

TEST_F(Input, ClicksPickAddAndForget)
{
    m_process.ExpectGolden("input-click", run(assembly(), "(input:click 340 340)\n"
                                                          "(sel:get)\n"
                                                          "(sel:highlighted)\n"
                                                          "(input:click 600 300 \"Ctrl-left\")\n"
                                                          "(sel:get)\n"
                                                          "(map entity:name (map entity:body "
                                                          "(sel:get)))\n"
                                                          "(input:key \"Escape\")\n"
                                                          "(sel:get)\n"
                                                          "(input:click 600 330)\n"
                                                          "(sel:get)\n"
                                                          "(input:click 20 20)\n"
                                                          "(sel:get)\n"));
}

TEST_F(Input, DragsWheelAndHotkeyMoveTheCamera)
{
    m_process.ExpectGolden("input-camera", run(assembly(), "(input:drag 100 100 300 130)\n"
                                                           "(view:camera)\n"
                                                           "(input:wheel -4 480 360)\n"
                                                           "(view:camera)\n"
                                                           "(input:drag 100 100 200 150 "
                                                           "\"left+middle\")\n"
                                                           "(view:camera)\n"
                                                           "(input:key \"Ctrl-f\")\n"
                                                           "(view:camera)\n"));
}

TEST_F(Input, AClickPicksWhatAHoverShowsAlsoBesideACorner)
{
    // A corner of a cube is in the middle of the picture.
    m_process.Write("box.stl", BoxStl(10, 10, 10));
    m_process.Write("cloud.xyz", "0 0 0\n0 0 1\n0 1 0\n0 1 1\n1 0 0\n1 0 1\n1 1 0\n1 1 1\n");
    const std::string compare =
        "(define (look x y) (input:mouse 'move x y \"Shift\"))\n"
        "(define (corner) (let loop ((y 0)) (if (view:pick 480 y) y (loop (+ y 1)))))\n"
        "(define y (corner))\n(look 480 y)\n(define hovered (sel:highlighted))\n"
        "(input:key \"Escape\")\n(input:click 480 y)\n"
        "(app:print \"same \" (equal? hovered (sel:highlighted)) (length hovered))\n";

    for (const char* const file : {"box.stl", "cloud.xyz"}) {
        const Outcome outcome = run(file, compare);
        EXPECT_NE(outcome.output.find("\nsame #t1\n"), std::string::npos)
            << file << outcome.output << outcome.errors;
    }
    const Outcome displayed =
        run("box.stl", "(view:display-vertices #t)\n" + compare + "(entity:type (car hovered))\n");
    EXPECT_NE(displayed.output.find("\nsame #t1\n"), std::string::npos) << displayed.output;
    EXPECT_NE(displayed.output.find("\n\"vertex\"\n"), std::string::npos) << displayed.output;
}

TEST_F(Input, TheWheelTurnsNotchByNotch)
{
    m_process.Write("box.stl", BoxStl(10, 20, 30));

    const Outcome outcome =
        run("box.stl", "(define (away) (let ((c (view:camera))) (map - (car c) (cadr c))))\n"
                       "(define before (away))\n"
                       "(define (shares) (map (lambda (a b) (/ (round (* 1000 (/ a b))) 1000)) "
                       "(away) before))\n"
                       "(input:wheel -30 480 360)\n"
                       "(app:print \"in \" (shares))\n"
                       "(input:wheel 100 480 360)\n"
                       "(input:wheel -100 480 360)\n"
                       "(input:wheel 0 480 360)\n"
                       "(app:print \"there and back \" (< 0 (car (shares)) 1))\n");

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    // 0.95 to the power of 30.
    EXPECT_NE(outcome.output.find("in (0.215 0.215 0.215)\n"), std::string::npos) << outcome.output;
    EXPECT_NE(outcome.output.find("there and back #t\n"), std::string::npos) << outcome.output;
}

TEST_F(Input, RubberBandsSelectWhatTheyEncloseOrTouch)
{
    m_process.ExpectGolden(
        "input-band",
        run(assembly(), "(input:drag 250 230 430 550 \"Shift-left\")\n" + std::string(kNames) +
                            "(input:drag 600 500 560 200 \"Shift-left\")\n" + kNames +
                            "(input:drag 5 5 955 715 \"Shift-left\")\n" + kNames +
                            "(input:drag 5 5 20 20 \"Shift-left\")\n" + kNames));
}

TEST_F(Input, ABoxSelectsAsTheRubberBandDoes)
{
    const Outcome outcome =
        run(assembly(), "(input:drag 250 230 430 550 \"Shift-left\")\n"
                        "(define enclosed (sel:get))\n"
                        "(app:print (equal? enclosed (sel:box 250 230 430 550)))\n"
                        "(app:print (equal? enclosed (sel:box 430 550 250 230 'enclosed)))\n"
                        "(input:drag 600 500 560 200 \"Shift-left\")\n"
                        "(define touched (sel:get))\n"
                        "(app:print (equal? touched (sel:box 600 500 560 200)))\n"
                        "(app:print (equal? touched (sel:box 560 200 600 500 'touching)))\n"
                        "(sel:box 250 230 430 550 'enclosed #t)\n"
                        "(app:print (equal? (append touched enclosed) (sel:get)))\n"
                        "(app:print (length enclosed) (length touched))\n"
                        "(view:hide enclosed)\n"
                        "(app:print (sel:box 250 230 430 550))\n");

    EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
    EXPECT_NE(outcome.output.find("\n(sel:box 250 230 430 550 'enclosed)\n"), std::string::npos);
    EXPECT_NE(outcome.output.find("\n(sel:box 600 500 560 200 'touching)\n"), std::string::npos);
    std::string printed;
    for (const char* const line : {"\n#t\n", "\n#f\n", "\n51\n", "\n()\n"})
        for (std::size_t at = 0; (at = outcome.output.find(line, at)) != std::string::npos; ++at)
            printed += line;
    EXPECT_EQ(std::count(printed.begin(), printed.end(), 't'), 7) << outcome.output;
    EXPECT_EQ(printed.find("#f"), std::string::npos) << outcome.output;
    EXPECT_NE(printed.find("51"), std::string::npos) << outcome.output;
    EXPECT_NE(printed.find("()"), std::string::npos) << outcome.output;
}

TEST_F(Input, MenuHidesARowsBodyUntilTheViewUndoesIt)
{
    m_process.ExpectGolden("input-menu",
                           run(assembly(), "(input:click 340 340)\n"
                                           "(define plate (entity:body (car (sel:get))))\n"
                                           "(input:menu \"&Hide node\" plate)\n"
                                           "(input:click 340 340)\n"
                                           "(sel:get)\n"
                                           "(view:undo)\n"
                                           "(input:click 340 340)\n"
                                           "(sel:get)\n"
                                           "(view:redo)\n"
                                           "(input:menu \"Unhide node\" plate)\n"
                                           "(input:click 340 340)\n"
                                           "(sel:get)\n"
                                           "(input:menu \"Hide node\" (car (sel:get)))\n"));
}

TEST_F(Input, MenuOfAMeshHasNothingToHide)
{
    const Outcome outcome =
        m_process.Run({SourceFile("examples/gear.stl"), "--eval",
                       "(input:menu \"&Hide node\" (car (sel:by-kind 'mesh)))"});

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "The menu of this row has no item \"&Hide node\".\n");
}

TEST_F(Input, NavigationChangesWhatTheMouseDoes)
{
    m_process.ExpectGolden(
        "input-navigation",
        run(assembly(), "(app:navigation)\n"
                        "(app:navigation \"middle-rotates\")\n"
                        "(input:click 600 330)\n"
                        "(input:drag 200 200 430 600 \"Ctrl-left\")\n" +
                            std::string("(sel:get)\n"
                                        "(input:drag 280 250 420 540 \"Alt-left\")\n"
                                        "(view:camera)\n"
                                        "(input:drag 100 100 200 100 \"middle\")\n"
                                        "(view:camera)\n"
                                        "(app:navigation \"left\")\n")));
}

TEST_F(Input, WaitsForTheEndOfItsForm)
{
    m_process.ExpectGolden("input-waits",
                           run(assembly(), "(begin (input:click 340 340) (sel:get))\n"
                                           "(sel:get)\n"
                                           "(begin (input:click 600 330) (error \"stop\"))\n"));
}

#endif

} // namespace
