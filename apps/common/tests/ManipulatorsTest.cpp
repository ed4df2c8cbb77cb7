#include "../Manipulators.h"

#include "../RunHistory.h"
#include "FakeSession.h"
#include "FakeView3D.h"
#include "ScopedTempDir.h"

#include <TambVizCore/GeoNode.h>
#include <TambVizCore/IIdPictureProvider.h>
#include <TambVizCore/IPictureErrorProvider.h>

#include <gtest/gtest.h>
#include <png.h>

#include <string>
#include <vector>

namespace {

using Pellux::BufferManipulator;
using Pellux::ViewManipulator;
using TambVizCore::EntityId;
using TambVizCore::EntityType;
using TambVizCore::IdPicture;
using TambVizCore::Image;

/// A view that makes pictures of one colour, or says why it does not.
class PictureView : public FakeView3D,
                    public TambVizCore::IIdPictureProvider,
                    public TambVizCore::IPictureErrorProvider
{
public:
    bool ReadImage(int width, int height, Image& image) override
    {
        m_asked = std::to_string(width) + "x" + std::to_string(height);
        if (!m_error.empty())
            return false;
        image.width = width;
        image.height = height;
        image.rgba.assign(static_cast<std::size_t>(4 * width * height), 200);
        return true;
    }
    bool ReadIdPicture(int width, int height, IdPicture& picture) override
    {
        if (!m_error.empty())
            return false;
        picture = {};
        picture.width = width;
        picture.height = height;
        picture.pixels.assign(static_cast<std::size_t>(width * height), 0);
        picture.pixels[0] = 1;
        picture.items = {m_drawn};
        return true;
    }
    std::string GetPictureError() const override { return m_error; }

    std::string m_asked;
    std::string m_error;
    TambVizCore::RenderId m_drawn;
};

class Manipulators : public testing::Test
{
protected:
    Manipulators() { m_session.m_fakeView = &m_view; }
    ~Manipulators() override { m_session.m_fakeView = nullptr; }

    TambVizCore::RenderingOptions& options() { return m_view.m_adapter.m_options; }
    std::wstring path() const { return m_folder.WidePath(L"a.png"); }

    /// @return the bytes of the first pixel of the file; empty when it is no PNG of that size.
    std::vector<std::uint8_t> firstPixel(unsigned width, unsigned height) const
    {
        png_image reader = {};
        reader.version = PNG_IMAGE_VERSION;
        const std::string file = (m_folder.Path() / "a.png").string();
        if (png_image_begin_read_from_file(&reader, file.c_str()) == 0)
            return {};
        reader.format = PNG_FORMAT_RGBA;
        std::vector<std::uint8_t> pixels(PNG_IMAGE_SIZE(reader));
        png_image_finish_read(&reader, nullptr, pixels.data(), 0, nullptr);
        if (reader.width != width || reader.height != height)
            return {};
        return {pixels.begin(), pixels.begin() + 4};
    }

    ScopedTempDir m_folder;
    PictureView m_view;
    FakeSession& m_session = MakeCurrentFakeSession();
    Pellux::RunHistory m_history;
    BufferManipulator m_pictures{m_history};
    ViewManipulator m_switches;
};

TEST_F(Manipulators, EachSwitchesItsOwnKindAndRepaints)
{
    using Options = TambVizCore::RenderingOptions;
    const std::tuple<void (ViewManipulator::*)(bool), bool (Options::*)() const> kinds[] = {
        {&ViewManipulator::DisplayFaces, &Options::GetShowFaces},
        {&ViewManipulator::DisplayEdges, &Options::GetShowEdges},
        {&ViewManipulator::DisplayVertices, &Options::GetShowVertices},
        {&ViewManipulator::DisplayTessellation, &Options::GetShowTessellation},
        {&ViewManipulator::DisplayClouds, &Options::GetShowPointClouds},
        {&ViewManipulator::DisplayPMI, &Options::GetShowPMI}};
    for (const auto& [set, get] : kinds) {
        std::vector<bool> before;
        for (const auto& [otherSet, otherGet] : kinds)
            before.push_back((options().*otherGet)());
        const bool wanted = !(options().*get)();
        m_view.m_calls.clear();
        (m_switches.*set)(wanted);

        EXPECT_EQ(m_view.m_calls, std::vector<std::string>{"UpdateDisplay"});
        for (std::size_t i = 0; i < before.size(); ++i) {
            const auto otherGet = std::get<1>(kinds[i]);
            EXPECT_EQ((options().*otherGet)(), otherGet == get ? wanted : before[i]);
        }
    }
}

TEST_F(Manipulators, SwitchNothingWithoutAViewOrItsOptions)
{
    m_view.m_adapter.m_hasOptions = false;
    m_switches.DisplayEdges(false);
    m_view.m_hasAdapter = false;
    m_switches.DisplayEdges(false);
    m_session.m_fakeView = nullptr;
    m_switches.DisplayEdges(false);

    EXPECT_TRUE(m_view.m_calls.empty());
    EXPECT_TRUE(options().GetShowEdges());
}

TEST_F(Manipulators, TellTheSizeOfTheView)
{
    int width = 0;
    int height = 0;
    EXPECT_TRUE(m_pictures.GetSize(width, height));
    EXPECT_EQ(std::pair(width, height), std::pair(800, 600));

    m_session.m_fakeView = nullptr;
    EXPECT_FALSE(m_pictures.GetSize(width, height));
}

TEST_F(Manipulators, SaveAPictureInItsSizeOrThatOfTheView)
{
    EXPECT_TRUE(m_pictures.SaveImage(path(), 3, 2, nullptr));
    EXPECT_EQ(firstPixel(3, 2), std::vector<std::uint8_t>(4, 200));

    EXPECT_TRUE(m_pictures.SaveImage(path(), 5, 0, nullptr));
    EXPECT_EQ(m_view.m_asked, "5x600");
}

TEST_F(Manipulators, ARefusedPictureSaysWhyAndLeavesNoFile)
{
    m_view.m_error = "a picture of 9 x 9 is larger than the OpenGL driver allows";
    std::wstring error;

    EXPECT_FALSE(m_pictures.SaveImage(path(), 9, 9, &error));
    EXPECT_EQ(error, path() + L": a picture of 9 x 9 is larger than the OpenGL driver allows");
    std::vector<EntityId> entities;
    EXPECT_FALSE(m_pictures.SaveIdPicture(path(), 9, 9, entities, &error));
    EXPECT_EQ(error, path() + L": a picture of 9 x 9 is larger than the OpenGL driver allows");
    EXPECT_FALSE(m_pictures.SaveImage(path(), 9, 9, nullptr)) << "nobody asks for the reason";
    EXPECT_TRUE(std::filesystem::is_empty(m_folder.Path()));
}

TEST_F(Manipulators, AViewThatDoesNotSayWhyIsSpokenFor)
{
    FakeView3D silent;
    m_session.m_fakeView = &silent;
    std::wstring error;

    EXPECT_FALSE(m_pictures.SaveImage(path(), 7, 8, &error));
    EXPECT_EQ(error, path() + L": a picture of 7 x 8 pixels cannot be drawn");
    std::vector<EntityId> entities;
    EXPECT_FALSE(m_pictures.SaveIdPicture(path(), 7, 8, entities, &error));
    EXPECT_EQ(error, path() + L": a picture of 7 x 8 pixels cannot be drawn");
}

TEST_F(Manipulators, WithoutAViewThereIsNoPicture)
{
    m_session.m_fakeView = nullptr;
    std::wstring error;
    std::vector<EntityId> entities;

    EXPECT_FALSE(m_pictures.SaveImage(path(), 7, 8, &error));
    EXPECT_EQ(error, path() + L": there is no view to draw");
    EXPECT_FALSE(m_pictures.SaveIdPicture(path(), 7, 8, entities, &error));
    EXPECT_EQ(error, path() + L": there is no view to draw");
}

TEST_F(Manipulators, AFileThatCannotBeWrittenIsNamed)
{
    std::wstring error;
    const std::wstring absent = m_folder.WidePath(L"absent/a.png");

    EXPECT_FALSE(m_pictures.SaveImage(absent, 2, 2, &error));
    EXPECT_TRUE(error.starts_with(absent + L": "));
    std::vector<EntityId> entities;
    EXPECT_FALSE(m_pictures.SaveIdPicture(absent, 2, 2, entities, &error));
    EXPECT_TRUE(error.starts_with(absent + L": "));
}

TEST_F(Manipulators, AnIdPictureHasNumbersAsColoursAndNamesThem)
{
    TambVizCore::GeoNode& node = *m_view.m_root.CreateChildGeoNode(7);
    const EntityId body(3, 1, EntityType::Body);
    node.SetEntity(body);
    m_view.m_drawn = node.GetRenderId();
    std::vector<EntityId> entities;

    EXPECT_TRUE(m_pictures.SaveIdPicture(path(), 4, 3, entities, nullptr));
    EXPECT_EQ(entities, std::vector<EntityId>{body});
    EXPECT_EQ(firstPixel(4, 3), (std::vector<std::uint8_t>{0, 0, 1, 255}));
}

} // namespace
