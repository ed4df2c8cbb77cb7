#include "BatchProcess.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>
#include <png.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

namespace {

/// The texts in a PNG file, by keyword: chunks of the type iTXt that are not compressed.
std::map<std::string, std::string> textsOf(const std::string& png)
{
    std::map<std::string, std::string> texts;
    std::size_t at = 8;
    while (at + 8 <= png.size()) {
        std::uint32_t length = 0;
        for (std::size_t i = 0; i < 4; ++i)
            length = length << 8 | static_cast<unsigned char>(png[at + i]);
        if (png.compare(at + 4, 4, "iTXt") == 0) {
            const std::string data = png.substr(at + 8, length);
            const std::string keyword = data.substr(0, data.find('\0'));
            std::size_t text = keyword.size() + 3; // Two flags.
            text = data.find('\0', text) + 1;      // Language.
            text = data.find('\0', text) + 1;      // Translated keyword.
            texts[keyword] = data.substr(text);
        }
        at += length + 12;
    }
    return texts;
}

class PictureTexts : public testing::Test
{
protected:
    PictureTexts() { m_process.Write("box.stl", BoxStl(10, 20, 30)); }

    std::string bytes(const std::string& name) const
    {
        return ReadBytes(m_process.Folder() / name);
    }

    /// Draws, then runs the command that the picture names: it writes the same bytes.
    void expectRepeats(const std::vector<std::string>& arguments, const std::string& picture)
    {
        const Outcome outcome = m_process.Run(arguments);
        ASSERT_EQ(outcome.exitCode, 0) << outcome.errors << outcome.output;
        const std::string first = bytes(picture);
        const std::string command = textsOf(first)["Command"];
        ASSERT_FALSE(command.empty());
        std::filesystem::remove(m_process.Folder() / picture);
        m_process.Write("again.sh", command);
        const std::string run = "cd / && PATH='" ORVIK_RUN_FOLDER "':$PATH XDG_CONFIG_HOME='" +
                                (m_process.Folder() / "process/config").string() +
                                "' XDG_STATE_HOME='" +
                                (m_process.Folder() / "process/state").string() + "' sh '" +
                                (m_process.Folder() / "again.sh").string() + "' >'" +
                                (m_process.Folder() / "again.log").string() + "' 2>&1";
        EXPECT_EQ(std::system(run.c_str()), 0) << command << bytes("again.log");
        EXPECT_TRUE(bytes(picture) == first) << command;
    }

    BatchProcess m_process;
};

TEST_F(PictureTexts, NameProgramModelsAndCamera)
{
    m_process.Write("it's.stl", BoxStl(1, 2, 3));
    m_process.Run({"box.stl", "it's.stl", "--eval", "(view:front)", "--output", "a.png"});
    auto texts = textsOf(bytes("a.png"));

    EXPECT_EQ(texts["Software"].find("Pellux "), 0u);
    EXPECT_EQ(texts["Title"], "box.stl, it's.stl");
    EXPECT_EQ(texts["Camera"].find("(view:set-camera! '("), 0u) << texts["Camera"];
    EXPECT_NE(texts["Camera"].find("(view:projection \"parallel\")"), std::string::npos);
    EXPECT_NE(texts["Command"].find("--eval '(doc:import \"it'\\''s.stl\")'"), std::string::npos)
        << texts["Command"];
}

TEST_F(PictureTexts, NameTheCommandThatDrawsThePictureAgain)
{
    expectRepeats({"box.stl",
                   "--size",
                   "300x200",
                   "--up",
                   "z",
                   "--eval",
                   "(view:iso)",
                   "--eval",
                   "(define top (app:pick-face 5 5 100 0 0 -1 0))",
                   "--eval",
                   "(view:hide top)",
                   "--eval",
                   "(sel:by-name \"box\")",
                   "--eval",
                   "(view:section '(5 5 5) '(1 0 0.5))",
                   "--eval",
                   "(view:projection \"perspective\")",
                   "--eval",
                   "(view:draw-text \"it's\" '(0 0 0))",
                   "--output",
                   "a.png"},
                  "a.png");
}

TEST_F(PictureTexts, NameACommandForPicturesOfScriptsToo)
{
    m_process.Write("run.scm",
                    "(view:iso)\n(input:drag 50 50 90 60)\n(view:zoom-all)\n"
                    "(begin (view:display-edges #f)\n  (view:save-image \"b.png\" 200 100))\n");
    expectRepeats({"box.stl", "--size", "300x200", "--no-journal", "--script", "run.scm"}, "b.png");
    expectRepeats({"box.stl", "--size", "300x200", "--script", "run.scm"}, "b.png");
}

#ifdef ORVIK_CAD_MODELS

TEST_F(PictureTexts, NameTheCommandThatShowsAnAssemblyApart)
{
    expectRepeats({std::string(ORVIK_CAD_MODELS) + "/assembly_ap214.step",
                   "--size",
                   "320x240",
                   "--up",
                   "z",
                   "--no-startup",
                   "--eval",
                   "(view:iso)",
                   "--eval",
                   "(view:explode 0.7)",
                   "--eval",
                   "(view:zoom-all)",
                   "--eval",
                   "(view:xray #t)",
                   "--eval",
                   "(sel:set (car (sel:by-kind 'body)))",
                   "--eval",
                   "(measure:distance (car (sel:by-kind 'body)) (cadr (sel:by-kind 'body)))",
                   "--output",
                   "c.png"},
                  "c.png");
}

#endif

TEST_F(PictureTexts, AreInPicturesWithoutBackground)
{
    m_process.Run({"box.stl", "--size", "64x48", "--eval", "(view:iso)", "--eval",
                   "(view:save-image \"t.png\" 64 48 #t)", "--eval",
                   "(view:save-image \"o.png\" 64 48)"});
    const auto alphaAt = [this](const char* name, std::size_t x, std::size_t y) {
        png_image reader = {};
        reader.version = PNG_IMAGE_VERSION;
        const std::string file = (m_process.Folder() / name).string();
        if (png_image_begin_read_from_file(&reader, file.c_str()) == 0)
            return -1;
        reader.format = PNG_FORMAT_RGBA;
        std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(reader));
        png_image_finish_read(&reader, nullptr, pixels.data(), 0, nullptr);
        return int{pixels[(y * 64 + x) * 4 + 3]};
    };

    EXPECT_EQ(alphaAt("t.png", 1, 1), 0);
    EXPECT_EQ(alphaAt("t.png", 32, 24), 255);
    EXPECT_EQ(alphaAt("o.png", 1, 1), 255);
    EXPECT_EQ(textsOf(bytes("t.png"))["Title"], "box.stl");
}

TEST_F(PictureTexts, ASizeThatCannotBeDrawnIsRefusedWithTheDriversLimit)
{
    for (const char* const form :
         {"(view:save-image \"a.png\" 999999 9)", "(view:id-picture \"a.png\" 9 999999)"}) {
        const Outcome outcome = m_process.Run({"box.stl", "--eval", form});

        EXPECT_NE(outcome.exitCode, 0);
        EXPECT_NE(outcome.errors.find(" is larger than the OpenGL driver allows: at most "),
                  std::string::npos)
            << outcome.errors;
        EXPECT_NE(outcome.errors.find("(GL_MAX_"), std::string::npos) << outcome.errors;
    }
}

} // namespace
