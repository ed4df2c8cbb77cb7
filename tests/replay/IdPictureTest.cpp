#include "BatchProcess.h"
#include "SampleFiles.h"

#include <gtest/gtest.h>
#include <png.h>

#include <map>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace {

constexpr int kWidth = 1200;
constexpr int kHeight = 900;

/// Hands pick the nearest face, edge or vertex within some pixels: no silhouette may be nearer.
constexpr int kMargin = 6;

/// A picture of ids as view:id-picture writes it.
class IdPicture
{
public:
    /// @param listing  The lines that the script prints: one entity a line, by number.
    IdPicture(const std::filesystem::path& file, std::vector<std::string> entities)
        : m_entities(std::move(entities))
    {
        png_image reader = {};
        reader.version = PNG_IMAGE_VERSION;
        if (png_image_begin_read_from_file(&reader, file.c_str()) == 0)
            return;
        reader.format = PNG_FORMAT_RGB;
        std::vector<std::uint8_t> bytes(PNG_IMAGE_SIZE(reader));
        if (png_image_finish_read(&reader, nullptr, bytes.data(), 0, nullptr) == 0)
            return;
        for (std::size_t i = 0; i + 2 < bytes.size(); i += 3)
            m_numbers.push_back(bytes[i] * 65536 + bytes[i + 1] * 256 + bytes[i + 2]);
    }

    bool IsWhole() const { return m_numbers.size() == std::size_t{kWidth} * kHeight; }

    /// @return "nothing" where nothing is drawn.
    std::string At(int x, int y) const
    {
        const auto number = static_cast<std::size_t>(
            m_numbers[static_cast<std::size_t>(y) * kWidth + static_cast<std::size_t>(x)]);
        return number == 0 ? "nothing" : m_entities.at(number - 1);
    }

    /// Whether the same is drawn all around a pixel.
    bool IsCalm(int x, int y) const
    {
        for (int row = y - kMargin; row <= y + kMargin; ++row)
            for (int column = x - kMargin; column <= x + kMargin; ++column)
                if (At(column, row) != At(x, y))
                    return false;
        return true;
    }

private:
    std::vector<std::string> m_entities;
    std::vector<int> m_numbers;
};

/// Clicks at random places of a picture find what an id picture shows there.
class IdPictures : public testing::Test
{
protected:
    struct Pixel
    {
        int x;
        int y;
    };

    static std::vector<std::string> linesWith(const std::string& text, const std::string& mark)
    {
        std::vector<std::string> found;
        std::istringstream lines(text);
        for (std::string line; std::getline(lines, line);)
            if (line.starts_with(mark))
                found.push_back(line.substr(mark.size()));
        return found;
    }

    Outcome run(const std::string& script) const
    {
        m_process.Write("run.scm", script);
        Outcome outcome = m_process.Run({m_model, "--up", "z", "--size",
                                         std::to_string(kWidth) + "x" + std::to_string(kHeight),
                                         "--script", "run.scm"});
        EXPECT_EQ(outcome.exitCode, 0) << outcome.errors;
        return outcome;
    }

    IdPicture draw(const std::string& setUp) const
    {
        const Outcome outcome = run(setUp + "(for-each (lambda (e) (app:print \"ENTITY \" e)) "
                                            "(view:id-picture \"ids.png\"))\n");
        return IdPicture(m_process.Folder() / "ids.png", linesWith(outcome.output, "ENTITY "));
    }

    /// Clicks and tells what each click selected.
    std::vector<std::string> click(const std::string& setUp, const std::vector<Pixel>& pixels) const
    {
        std::string script = setUp;
        for (const Pixel& pixel : pixels)
            script += "(input:click " + std::to_string(pixel.x) + " " + std::to_string(pixel.y) +
                      ")\n(app:print \"PICK \" (let ((e (sel:get))) (if (null? e) \"nothing\" "
                      "(car e))))\n";
        return linesWith(run(script).output, "PICK ");
    }

    static bool isFace(const std::string& entity)
    {
        return entity.find("face ") != std::string::npos;
    }
    /// The body of a face, an edge or a vertex.
    static std::string bodyOf(const std::string& entity)
    {
        const std::size_t of = entity.find(" of ");
        return of == std::string::npos ? entity : "#<entity " + entity.substr(of + 4);
    }

    /// @param leastItems  So many different faces are to be met at least.
    void compare(const std::string& setUp, std::size_t leastItems)
    {
        const std::string prepared = "(view:iso)\n(view:display-edges #f)\n" + setUp;
        const IdPicture picture = draw(prepared);
        ASSERT_TRUE(picture.IsWhole());
        std::mt19937 random(7);
        std::vector<Pixel> pixels;
        std::map<std::string, int> met;
        for (int tries = 0; tries < 20000 && pixels.size() < 150; ++tries) {
            const Pixel pixel{kMargin + static_cast<int>(random() % (kWidth - 2 * kMargin)),
                              kMargin + static_cast<int>(random() % (kHeight - 2 * kMargin))};
            // No thing fills the samples alone.
            if (picture.IsCalm(pixel.x, pixel.y) && ++met[picture.At(pixel.x, pixel.y)] <= 10)
                pixels.push_back(pixel);
        }
        const std::vector<std::string> picks = click(prepared, pixels);
        ASSERT_EQ(picks.size(), pixels.size());
        for (std::size_t i = 0; i < pixels.size(); ++i) {
            const std::string drawn = picture.At(pixels[i].x, pixels[i].y);
            const bool isCap = drawn != "nothing" && !isFace(drawn);
            EXPECT_EQ(isCap ? bodyOf(picks[i]) : picks[i], drawn)
                << "at " << pixels[i].x << " " << pixels[i].y;
        }
        EXPECT_GE(met.size(), leastItems);
    }

    BatchProcess m_process;
    std::string m_model;
};

class IdPicturesOfAMesh : public IdPictures
{
protected:
    IdPicturesOfAMesh() { m_model = SourceFile("examples/gear.stl"); }
};

TEST_F(IdPicturesOfAMesh, ShowWhatClicksFind)
{
    compare("(view:zoom-all)\n", 20);
}

#ifdef ORVIK_CAD_MODELS

class IdPicturesOfAnAssembly : public IdPictures
{
protected:
    IdPicturesOfAnAssembly() { m_model = std::string(ORVIK_CAD_MODELS) + "/assembly_ap214.step"; }
};

TEST_F(IdPicturesOfAnAssembly, ShowWhatClicksFind)
{
    compare("(view:zoom-all)\n", 6);
}

TEST_F(IdPicturesOfAnAssembly, ShowWhatClicksFindWhereSomeIsHidden)
{
    compare("(view:zoom-all)\n(view:hide (list-head (sel:by-kind 'body) 2))\n", 4);
}

TEST_F(IdPicturesOfAnAssembly, ShowWhatClicksFindWhereItIsExploded)
{
    compare("(view:explode 0.4)\n(view:zoom-all)\n", 5);
}

TEST_F(IdPicturesOfAnAssembly, ShowWhatClicksFindWhereSectionsCutExplodedBodies)
{
    compare("(view:explode 0.5)\n(view:zoom-all)\n(view:section (entity:center (car (sel:by-kind "
            "'body))) '(1 -0.3 0.4))\n",
            4);
}

TEST_F(IdPicturesOfAnAssembly, ShowExplodedBodiesNoMoreWhereTheyWere)
{
    const std::string camera = "(view:iso)\n(view:display-edges #f)\n(view:zoom-all)\n";
    const IdPicture before = draw(camera);
    const IdPicture after = draw(camera + "(view:explode 2)\n");
    ASSERT_TRUE(before.IsWhole() && after.IsWhole());

    int left = 0;
    int same = 0;
    for (int y = 0; y < kHeight; ++y)
        for (int x = 0; x < kWidth; ++x) {
            left += before.At(x, y) != "nothing" && before.At(x, y) != after.At(x, y) ? 1 : 0;
            same += before.At(x, y) != "nothing" && before.At(x, y) == after.At(x, y) ? 1 : 0;
        }
    EXPECT_GT(left, same);
}

TEST_F(IdPicturesOfAnAssembly, AreTheSameAgainOnceEverythingIsBack)
{
    const std::string camera = "(view:iso)\n(view:zoom-all)\n";
    draw(camera);
    const std::string before = ReadBytes(m_process.Folder() / "ids.png");
    draw(camera + "(view:explode 2)\n(view:explode 0)\n");

    EXPECT_TRUE(before == ReadBytes(m_process.Folder() / "ids.png"));
}

#endif

} // namespace
