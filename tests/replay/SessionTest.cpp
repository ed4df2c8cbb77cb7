#include "JournalFixture.h"
#include "Pictures.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr int kEvents = 200;
constexpr int kWidth = 640;
constexpr int kHeight = 480;

/// Makes what a hand might do in a window of 640 x 480 pixels; the same for the same seed.
class Hand
{
public:
    explicit Hand(std::uint64_t seed) : m_state(seed) {}

    /// A script of 200 events and more, with commands that hide, take back and cut between them.
    /// @param lastEvents  forms of the last events, after everything was brought into view.
    std::string Script(const std::string& lastEvents)
    {
        std::ostringstream script;
        script << "(view:iso)\n(view:zoom-all)\n";
        for (int i = 1; i <= kEvents - 2; ++i)
            script << (i % 20 == 0 ? "(input:key \"Ctrl-f\")" : event()) << '\n' << command(i);
        script << "(view:iso)\n(view:zoom-all)\n" << lastEvents;
        return script.str();
    }

private:
    int below(int count)
    {
        m_state = m_state * 6364136223846793005u + 1442695040888963407u;
        return static_cast<int>((m_state >> 33) % static_cast<std::uint64_t>(count));
    }

    /// A place in the middle half of the window.
    std::string place()
    {
        const int x = kWidth / 4 + below(kWidth / 2);
        const int y = kHeight / 4 + below(kHeight / 2);
        return std::to_string(x) + " " + std::to_string(y);
    }

    std::string drag(const std::string& gesture)
    {
        const std::string from = place();
        return "(input:drag " + from + " " + place() + " \"" + gesture + "\")";
    }

    std::string event()
    {
        switch (below(12)) {
        case 0:
        case 1:
        case 2:
            return "(input:click " + place() + ")";
        case 3:
        case 4:
            return "(input:click " + place() + " \"Ctrl-left\")";
        case 5:
            return drag("left");
        case 6:
            return drag("left+middle");
        case 7:
            return drag("Shift-left");
        case 8: {
            const std::string steps = std::to_string(below(7) - 3);
            return "(input:wheel " + steps + " " + place() + ")";
        }
        case 9:
            return "(input:mouse 'move " + place() + " \"Shift\")";
        case 10:
            return "(input:key \"Escape\")";
        default:
            return drag("middle");
        }
    }

    /// A form that runs behind some of the events.
    struct Command
    {
        int period; ///< Events from one to the next.
        int first;
        const char* form;
    };

    static std::string command(int i)
    {
        static constexpr Command kCommands[] = {
            {25, 0, "(if (pair? (sel:get)) (view:hide (sel:get)))"},
            {25, 10, "(view:undo)"},
            {30, 28, "(view:redo)"},
            {40, 35, "(if (pair? (sel:get)) (view:transparency 0.5 (sel:get)))"},
            {60, 15, "(view:explode 0.4)"},
            {60, 45, "(view:explode 0)"},
            {80, 20, "(view:xray #t)"},
            {80, 70, "(view:xray #f)"},
            {90, 30, "(if (pair? (sel:get)) (view:isolate (sel:get)))"},
            {90, 50, "(view:show-all)"},
            {100, 60, "(view:projection \"perspective\")"},
            {100, 90, "(view:projection \"parallel\")"},
            {100, 58, "(view:section '(0 0 0) '(1 0 0) 2)"},
        };
        std::string text;
        for (const Command& command : kCommands)
            if (i % command.period == command.first)
                text += std::string(command.form) + "\n";
        if (i % 50 == 5)
            text += "(let ((b (doc:bounding-box)))\n"
                    "  (view:section (map (lambda (l h) (/ (+ l h) 2)) (list-head b 3)\n"
                    "                     (list-tail b 3)) '(0 1 0.3)))\n";
        if (i % 50 == 40)
            text += "(view:section-off)\n";
        return text;
    }

    std::uint64_t m_state;
};

class DrivenSession : public JournalFixture
{
protected:
    void drive(const std::string& model, std::uint64_t seed, const std::string& lastEvents) const
    {
        m_process.Write("keys.toml", "[hotkeys]\n\"Ctrl-f\" = \"(view:zoom-all)\"\n");
        m_process.Write("hand.scm", Hand(seed).Script(lastEvents));
        const Outcome outcome = m_process.Run({model, "--config", "keys.toml", "--size", "640x480",
                                               "--script", "hand.scm", "--output", "driven.png"});
        ASSERT_EQ(outcome.exitCode, 0) << outcome.errors;
        ASSERT_EQ(journals().size(), 1u);
        m_process.Write("run.journal.scm", ReadBytes(journals().back()));
    }

    /// Every pick is the same, and there are enough that hit and that miss.
    void expectSamePicks(const Outcome& outcome) const
    {
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        const std::string journal = ReadBytes(m_process.Folder() / "run.journal.scm");
        int picks = 0;
        int misses = 0;
        for (std::size_t at = 0; (at = journal.find("\n;= pick ", at)) != std::string::npos; ++at) {
            ++picks;
            misses += journal.compare(at + 9, 7, "nothing") == 0 ? 1 : 0;
        }
        EXPECT_GT(picks - misses, 20);
        EXPECT_GT(misses, 5);
        const std::string count = std::to_string(picks);
        EXPECT_NE(outcome.output.find("\n" + count + " picks: " + count +
                                      " same, 0 moved, 0 other, "
                                      "0 gone\n"),
                  std::string::npos)
            << outcome.output.substr(outcome.output.size() - 300);
    }

    void expectSamePicture(const std::string& name) const
    {
        const PictureDifference difference =
            ComparePictures(m_process.Folder() / "first" / name, m_process.Folder() / name);
        EXPECT_EQ(difference.pixels, kWidth * kHeight) << name;
        EXPECT_GT(difference.colors, 20) << name;
        EXPECT_LE(difference.off, difference.pixels / 200) << name;
    }

    /// Replays at the same size and at another one: the same entities; at the same size also the
    /// same pictures but for a few pixels.
    void expectReplayed(const std::vector<std::string>& pictures) const
    {
        fs::create_directory(m_process.Folder() / "first");
        for (const std::string& name : pictures)
            fs::rename(m_process.Folder() / name, m_process.Folder() / "first" / name);
        expectSamePicks(replay({"--output", "driven.png"}));
        for (const std::string& name : pictures)
            expectSamePicture(name);
        expectSamePicks(replay({"--size", "900x500"}));
    }
};

/// The last two events of a session; what was selected or highlighted before stays so until they
/// change it. Both places show something of either model.
struct Ending
{
    const char* name;
    const char* events;
};

constexpr Ending kEndings[] = {
    {"hover", "(input:click 320 200)\n(input:mouse 'move 260 240 \"Shift\")\n"},
    {"hover-left", "(input:mouse 'move 260 240 \"Shift\")\n(input:mouse 'leave 0 0)\n"},
    {"click-beside", "(input:click 320 200)\n(input:click 3 3)\n"},
    {"add", "(input:click 320 200)\n(input:click 260 240 \"Ctrl-left\")\n"},
    {"add-again", "(input:click 320 200)\n(input:click 320 200 \"Ctrl-left\")\n"},
    {"add-beside", "(input:click 320 200)\n(input:click 3 3 \"Ctrl-left\")\n"},
    {"escape", "(input:click 320 200)\n(input:key \"Escape\")\n"},
    {"band", "(input:click 320 200)\n(input:drag 5 5 635 475 \"Shift-left\")\n"},
    {"band-of-nothing", "(input:click 320 200)\n(input:drag 5 5 9 9 \"Shift-left\")\n"},
    {"rotation", "(input:click 320 200)\n(input:drag 100 100 110 105)\n"},
    {"click", "(input:click 260 240)\n(input:click 320 200)\n"},
};

/// Ends a session with each of the endings in turn, each shown by a picture.
/// @return the names of the pictures.
std::vector<std::string> addEndings(std::string& script)
{
    std::vector<std::string> pictures;
    for (const Ending& ending : kEndings) {
        pictures.push_back(std::string(ending.name) + ".png");
        script +=
            std::string(ending.events) + "(view:save-image \"" + pictures.back() + "\" 640 480)\n";
    }
    return pictures;
}

TEST_F(DrivenSession, OnAMeshIsReplayedWithTheSameEntitiesAndPictureWhateverTheLastEvent)
{
    std::string lastEvents;
    std::vector<std::string> pictures = addEndings(lastEvents);
    drive(SourceFile("examples/gear.stl"), 1, lastEvents + kEndings[0].events);

    pictures.push_back("driven.png");
    expectReplayed(pictures);
}

#ifdef ORVIK_CAD_MODELS

TEST_F(DrivenSession, OnAnAssemblyIsReplayedWithTheSameEntitiesAndPictureWhateverTheLastEvent)
{
    std::string lastEvents;
    std::vector<std::string> pictures = addEndings(lastEvents);
    drive(std::string(ORVIK_CAD_MODELS) + "/assembly_ap214.step", 2, lastEvents);

    pictures.push_back("driven.png");
    expectReplayed(pictures);
}

#endif

} // namespace
