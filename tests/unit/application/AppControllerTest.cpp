#include "OrvikCore/AppController.h"

#include "VirtualSlot.h"

#include "OrvikCore/ABufferManipulator.h"
#include "OrvikCore/APathHelper.h"
#include "OrvikCore/AViewManipulator.h"
#include "OrvikCore/CommandLineOptions.h"

#include <gtest/gtest.h>

#include <type_traits>

namespace {

/// Counts the deletions of an object that it stands for.
template <typename Base> class Counted : public Base
{
public:
    explicit Counted(int& deletions) : m_deletions(&deletions) {}
    ~Counted() override { ++*m_deletions; }

private:
    int* m_deletions;
};

class Buffer : public Counted<OrvikCore::ABufferManipulator>
{
public:
    using Counted::Counted;
    bool GetSize(int&, int&) const override { return false; }
    bool SaveImage(const std::wstring&, int, int, std::wstring*) override { return false; }
};

class View : public Counted<OrvikCore::AViewManipulator>
{
public:
    using Counted::Counted;
    void DisplayFaces(bool) override {}
    void DisplayEdges(bool) override {}
    void DisplayVertices(bool) override {}
    void DisplayTessellation(bool) override {}
    void DisplayClouds(bool) override {}
    void DisplayPMI(bool) override {}
};

class Paths : public Counted<OrvikCore::APathHelper>
{
public:
    using Counted::Counted;
    std::wstring GetExecutableFolder() const override { return {}; }
    std::wstring GetPluginFolder() const override { return {}; }
    std::wstring GetStartupFolder() const override { return {}; }
    std::wstring GetConfigurationFolder() const override { return {}; }
    std::wstring GetStateFolder() const override { return {}; }
    std::wstring GetTemporaryFolder() const override { return {}; }
};

OrvikCore::AppController& controller()
{
    return OrvikCore::AppController::Instance();
}

static_assert(std::has_virtual_destructor_v<OrvikCore::AppController>);
static_assert(!std::is_default_constructible_v<OrvikCore::AppController>);

TEST(AppController, InstanceIsOne)
{
    EXPECT_EQ(&controller(), &OrvikCore::AppController::Instance());
}

TEST(AppController, StartsWithOptionsAndNothingElse)
{
    EXPECT_NE(controller().Options(), nullptr);
    EXPECT_EQ(controller().GetBufferManipulator(), nullptr);
    EXPECT_EQ(controller().GetViewManipulator(), nullptr);
    EXPECT_EQ(controller().GetPathHelper(), nullptr);
}

TEST(AppController, KeepsWhatItIsGiven)
{
    int deletions = 0;
    auto* const buffer = new Buffer(deletions);
    auto* const view = new View(deletions);
    auto* const paths = new Paths(deletions);

    controller().SetBufferManipulator(buffer);
    controller().SetViewManipulator(view);
    controller().SetPathHelper(paths);

    EXPECT_EQ(controller().GetBufferManipulator(), buffer);
    EXPECT_EQ(controller().GetViewManipulator(), view);
    EXPECT_EQ(controller().GetPathHelper(), paths);
    EXPECT_EQ(deletions, 0);
}

TEST(AppController, SettersDeleteWhatTheyReplace)
{
    int buffers = 0;
    int views = 0;
    int paths = 0;
    int later = 0;
    controller().SetBufferManipulator(new Buffer(buffers));
    controller().SetViewManipulator(new View(views));
    controller().SetPathHelper(new Paths(paths));

    controller().SetBufferManipulator(new Buffer(later));
    controller().SetViewManipulator(new View(later));
    controller().SetPathHelper(nullptr);

    EXPECT_EQ(buffers, 1);
    EXPECT_EQ(views, 1);
    EXPECT_EQ(paths, 1);
    EXPECT_EQ(later, 0);
    controller().Terminate();
}

TEST(AppController, TerminateDeletesEverythingAndMayComeTwice)
{
    int deletions = 0;
    controller().SetBufferManipulator(new Buffer(deletions));
    controller().SetViewManipulator(new View(deletions));
    controller().SetPathHelper(new Paths(deletions));

    controller().Terminate();
    controller().Terminate();

    EXPECT_EQ(deletions, 3);
    EXPECT_EQ(controller().GetBufferManipulator(), nullptr);
    EXPECT_EQ(controller().GetViewManipulator(), nullptr);
    EXPECT_EQ(controller().GetPathHelper(), nullptr);
    EXPECT_EQ(controller().Options(), nullptr);
}

TEST(AViewManipulator, HasOneOperationPerKindInTheirOrder)
{
    using V = OrvikCore::AViewManipulator;
    EXPECT_EQ(VirtualSlot(&V::DisplayFaces), 2);
    EXPECT_EQ(VirtualSlot(&V::DisplayEdges), 3);
    EXPECT_EQ(VirtualSlot(&V::DisplayVertices), 4);
    EXPECT_EQ(VirtualSlot(&V::DisplayTessellation), 5);
    EXPECT_EQ(VirtualSlot(&V::DisplayClouds), 6);
    EXPECT_EQ(VirtualSlot(&V::DisplayPMI), 7);
}

} // namespace
