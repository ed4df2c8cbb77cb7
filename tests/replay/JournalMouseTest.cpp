#include "JournalFixture.h"
#include "Pictures.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace {

/// What hands do; the view has 400 by 300 pixels.
class JournalOfTheMouse : public JournalFixture
{
protected:
    std::string recordInput(const std::vector<std::string>& forms) const
    {
        std::vector<std::string> all = {"(view:iso)"};
        all.insert(all.end(), forms.begin(), forms.end());
        const Outcome outcome = runForms(all, {"--size", "400x300"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        EXPECT_EQ(journals().size(), 1u);
        const std::string text = ReadBytes(journals().back());
        m_process.Write("run.journal.scm", text);
        return text.substr(text.find("(view:iso)\n") + 11);
    }

    /// Replays at two sizes.
    void expectSame(const std::string& picks) const
    {
        for (const char* const size : {"400x300", "1000x300"})
            expectEnd(replay({"--size", size}), 0,
                      picks + " picks: " + picks + " same, 0 moved, 0 other, 0 gone\n");
    }
};

TEST_F(JournalOfTheMouse, HoldsTheCameraAtTheEndOfEachGesture)
{
    const std::string text = recordInput(
        {"(input:drag 100 100 180 140)", "(input:wheel -2 200 150)", "(input:click 5 5)"});

    EXPECT_EQ(text.find("(view:set-camera! '("), 0u) << text;
    const std::size_t second = text.find("\n(view:set-camera! '(");
    EXPECT_NE(second, std::string::npos) << text;
    EXPECT_NE(text.find("\n(sel:highlight (app:pick-entity "), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\n;= pick nothing\n")) << text;
    EXPECT_EQ(text.find("input:"), std::string::npos) << text;
    expectSame("1");
}

TEST_F(JournalOfTheMouse, HoldsTheCameraOfEachGestureOfOneForm)
{
    const std::string text =
        recordInput({"(for-each (lambda (x) (input:drag 100 100 x 140)) '(180 150 120))",
                     "(begin (input:drag 9 9 50 50) (input:wheel 1 200 150) (input:wheel 1 200 150)"
                     " (input:drag 9 9 50 50 \"left+middle\"))"});

    std::size_t cameras = 0;
    for (std::size_t at = 0; (at = text.find("(view:set-camera! ", at)) != std::string::npos; ++at)
        ++cameras;
    // The turns of the wheel share one.
    EXPECT_EQ(cameras, 6u) << text;
}

TEST_F(JournalOfTheMouse, HoldsWhatAShortcutRan)
{
    m_process.Write("keys.toml", "[hotkeys]\n\"Ctrl-f\" = \"(view:zoom-all)\"\n");
    runForms({"(view:iso)", "(input:drag 5 5 50 50)", "(input:key \"Ctrl-f\")"},
             {"--config", "keys.toml"});
    const std::string text = ReadBytes(journals().at(0));
    m_process.Write("run.journal.scm", text);

    EXPECT_NE(text.find("\n(view:set-camera! "), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\n(view:zoom-all)\n")) << text;
    expectEnd(replay(), 0, "0 picks: 0 same, 0 moved, 0 other, 0 gone\n");
}

TEST_F(JournalOfTheMouse, ReplaysEventsOfAFormThatDoesOtherThingsOnce)
{
    m_process.Write("keys.toml", "[hotkeys]\n\"Ctrl-z\" = \"(view:undo)\"\n");
    runForms({"(view:iso)", "(view:zoom-all)", "(define all (sel:by-kind 'mesh))",
              "(view:display-axes #f)", "(view:hide all)", "(view:show all)",
              "(begin (input:click 200 150) (input:key \"Ctrl-z\") (view:display-edges #t))",
              "(app:pick-entity 5 5 100 0 0 -1 0)", "(view:undo)",
              "(app:pick-entity 5 5 100 0 0 -1 0)"},
             {"--config", "keys.toml", "--size", "400x300"});
    const std::string text = ReadBytes(journals().at(0));
    m_process.Write("run.journal.scm", text);

    EXPECT_NE(text.find("(view:display-edges #t))\n;= input below\n(sel:highlight "),
              std::string::npos)
        << text;
    const Outcome outcome = replay({"--config", "keys.toml"});
    expectEnd(outcome, 0, "3 picks: 3 same, 0 moved, 0 other, 0 gone\n");
    EXPECT_EQ(outcome.output.find("(define ent "), std::string::npos) << outcome.output;
    expectEnd(replay({"--size", "1000x500"}), 0, "3 picks: 3 same, 0 moved, 0 other, 0 gone\n");
}

TEST_F(JournalOfTheMouse, PlaysEventsThatSomebodyHasWrittenIntoIt)
{
    m_process.Write("run.journal.scm",
                    ";; Pellux journal 1\n;= start size 400 300 up y\n(doc:load \"box.stl\")\n"
                    "(view:iso)\n(view:zoom-all)\n(input:click 200 150)\n"
                    "(if (null? (sel:get)) (error \"not played\"))\n"
                    "(begin (input:key \"Escape\") (input:menu \"Hide node\" (car (sel:get))))\n"
                    "(error \"must not run\")\n");

    const Outcome outcome = replay();

    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.errors, "The menu of this row has no item \"Hide node\".\n");
    EXPECT_EQ(outcome.output.find("> (error"), std::string::npos) << outcome.output;
}

TEST_F(JournalOfTheMouse, HoldsPicksSelectionsAndTheirEnd)
{
    const std::string text =
        recordInput({"(input:click 200 150)", "(input:click 205 120 \"Ctrl-left\")",
                     "(input:mouse \"move\" 200 150 \"Shift\")", "(input:key \"Escape\")"});

    EXPECT_EQ(text.find("(sel:highlight (app:pick-entity "), 0u) << text;
    EXPECT_NE(text.find("\n;= pick face "), std::string::npos) << text;
    EXPECT_NE(text.find("\n(sel:add (app:pick-entity "), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\n(sel:clear)\n")) << text;
    expectSame("2");
}

TEST_F(JournalOfTheMouse, HoldsAPickAfterAMotionOnlyOnce)
{
    const std::string text = recordInput(
        {"(begin (input:click 200 150) (input:mouse \"move\" 204 124) (input:click 205 120))"});

    EXPECT_EQ(text.find("(sel:set"), std::string::npos) << text;
    expectSame("2");
}

TEST_F(JournalOfTheMouse, DrawsThePickAfterThePointerHasLeftAsItsReplayDoes)
{
    recordInput({"(input:click 200 150)", "(input:mouse \"leave\" 200 150)",
                 "(view:save-image \"left.png\" 400 300)", "(sel:clear)",
                 "(view:save-image \"cleared.png\" 400 300)"});
    const std::string whole = ReadBytes(journals().back());
    m_process.Write("run.journal.scm", whole.substr(0, whole.find("(view:save-image")));
    EXPECT_EQ(replay({"--size", "400x300", "--output", "replayed.png"}).exitCode, 0);

    const fs::path folder = m_process.Folder();
    const PictureDifference same = ComparePictures(folder / "left.png", folder / "replayed.png");
    EXPECT_EQ(same.pixels, 400 * 300);
    EXPECT_EQ(same.off, 0);
    EXPECT_GT(ComparePictures(folder / "left.png", folder / "cleared.png").off, 1000);
}

TEST_F(JournalOfTheMouse, HoldsThatAnAddingClickBesideTheModelForgets)
{
    const std::string text = recordInput(
        {"(input:click 200 150)", "(input:click 5 5 \"Ctrl-left\")",
         "(if (pair? (sel:get)) (view:hide (sel:get)))", "(app:pick-face 5 5 100 0 0 -1 0)"});

    EXPECT_EQ(text.find("(sel:add"), std::string::npos) << text;
    expectSame("3");
}

TEST_F(JournalOfTheMouse, HoldsWhatARubberBandSelects)
{
    const std::string text = recordInput({"(input:drag 5 5 395 295 \"Shift-left\")"});

    EXPECT_EQ(text.find("(sel:set (entity:by-id \""), 0u) << text;
    const auto picks = std::count(text.begin(), text.end(), ';');
    EXPECT_GE(picks, 1);
    expectSame(std::to_string(picks));
}

TEST_F(JournalOfTheMouse, HoldsWhatABoxOfAScriptSelectsAsEntities)
{
    const std::string text = recordInput({"(sel:box 5 5 395 295)", "(sel:box 5 5 9 9)"});

    EXPECT_EQ(text.find("(sel:set (entity:by-id \"mesh "), 0u) << text;
    EXPECT_TRUE(text.ends_with("\n(sel:set)\n")) << text;
    EXPECT_EQ(text.find("sel:box"), std::string::npos) << text;
    expectSame("1");
}

TEST_F(JournalOfTheMouse, OfABoxInsideAFormTellsWhatItFoundAndLeavesTheSameSelected)
{
    const std::string text = recordInput({"(define found (length (sel:box 5 5 395 295)))",
                                          "(if (= 1 (length (sel:get))) (view:hide (sel:get)))",
                                          "(app:pick-entity 5 5 100 0 0 -1 0)"});

    EXPECT_EQ(text.find("(define found (length (sel:box 5 5 395 295)))\n;= pick mesh "), 0u)
        << text;
    EXPECT_NE(text.find("\n(sel:set (entity:by-id \"mesh "), std::string::npos) << text;
    expectEnd(replay({"--size", "400x300"}), 0, "3 picks: 3 same, 0 moved, 0 other, 0 gone\n");
    // In a view so much larger the same pixels enclose nothing.
    expectEnd(replay({"--size", "4000x3000"}), 1, "3 picks: 2 same, 0 moved, 0 other, 1 gone\n");
}

TEST_F(JournalOfTheMouse, ComparesWhatViewPickFinds)
{
    const std::string text =
        recordInput({"(view:zoom-all)", "(define it (view:pick 200 150))", "(view:pick 5 5)"});

    EXPECT_NE(text.find("\n(define it (view:pick 200 150))\n;= pick "), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\n(view:pick 5 5)\n;= pick nothing\n")) << text;
    expectEnd(replay({"--size", "400x300"}), 0, "2 picks: 2 same, 0 moved, 0 other, 0 gone\n");
    EXPECT_EQ(replay({"--size", "4000x3000"}).exitCode, 1);
}

#ifdef ORVIK_CAD_MODELS

TEST_F(JournalOfTheMouse, HoldsWhatAContextMenuHides)
{
    m_process.Write("menu.scm",
                    "(define plate (entity:body (app:pick-face 20 20 50 0 0 -1 0)))\n"
                    "(input:menu \"&Hide node\" plate)\n(app:pick-face 20 20 50 0 0 -1 0)\n");
    m_process.Run({SourceFile("examples/bored-plate.step"), "--script", "menu.scm"});
    const std::string text = ReadBytes(journals().at(0));
    m_process.Write("run.journal.scm", text);

    EXPECT_NE(text.find("\n(view:hide (entity:by-id \"body "), std::string::npos) << text;
    EXPECT_TRUE(text.ends_with("\n;= pick nothing\n")) << text;
    expectEnd(replay(), 0, "2 picks: 2 same, 0 moved, 0 other, 0 gone\n");
}

#endif

TEST_F(JournalOfTheMouse, OfTwoHundredEventsIsReplayedWithTheSameEntities)
{
    std::string script = "(view:iso)\n";
    for (int i = 0; i < 50; ++i) {
        const std::string x = std::to_string(120 + i * 3);
        const std::string y = std::to_string(90 + (i * 37) % 120);
        script += "(input:drag " + x + " " + y + " " + std::to_string(150 + i) + " 130)\n" +
                  "(input:click " + x + " " + y + ")\n(input:wheel " + (i % 2 ? "1" : "-1") +
                  " 200 150)\n(input:click " + y + " " + y + " \"Ctrl-left\")\n";
    }
    m_process.Write("hand.scm", script);
    m_process.Run({"box.stl", "--size", "400x300", "--script", "hand.scm"});
    m_process.Write("run.journal.scm", ReadBytes(journals().at(0)));

    expectSame("100");
}

} // namespace
