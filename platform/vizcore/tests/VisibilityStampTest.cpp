#include "TambVizCore/VisibilityStamp.h"

#include "TambVizCore/GeoNode.h"
#include "TambVizCore/Node.h"
#include "TambVizCore/RenderingOptions.h"
#include "TestGeometry.h"

#include <gtest/gtest.h>

#include <functional>

namespace TambVizCore {
namespace {

bool advances(const std::function<void()>& change)
{
    const std::uint64_t before = GetVisibilityStamp();
    change();
    return GetVisibilityStamp() > before;
}

TEST(VisibilityStamp, AdvancesWhenNodesAreShownHiddenAddedOrRemoved)
{
    Node root(1);
    Node* child = nullptr;

    EXPECT_TRUE(advances([&] { child = root.CreateChildNode(2); }));
    EXPECT_TRUE(advances([&] { child->SetVisible(false); }));
    EXPECT_TRUE(advances([&] { child->SetAuxiliary(true); }));
    EXPECT_TRUE(advances([&] { root.RemoveChild(2); }));
}

TEST(VisibilityStamp, AdvancesWhenNodesAreDisplaced)
{
    Node node(1);
    const double away[3] = {0, 1, 0};

    EXPECT_TRUE(advances([&] { node.SetDisplacement(away); }));
    EXPECT_FALSE(advances([&] { node.SetDisplacement(away); }));
}

TEST(VisibilityStamp, AdvancesWhenPartsAreShownOrHidden)
{
    GeoNode node(1);

    EXPECT_TRUE(advances([&] { node.SetGeometry(MakeSquare()); }));
    EXPECT_TRUE(advances([&] { node.SetPartShown(0, false); }));
    EXPECT_TRUE(advances([&] { node.SetAllParts(PartState::kShown, true); }));
}

TEST(VisibilityStamp, AdvancesWithSectionPlanesAndDisplaySwitches)
{
    RenderingOptions options;

    EXPECT_TRUE(advances([&] { options.SetClipPlanes({ClipPlane{}}); }));
    EXPECT_TRUE(advances([&] { options.SetShowPMI(false); }));
    EXPECT_TRUE(advances([&] { options.SetShowPointClouds(false); }));
}

TEST(VisibilityStamp, StaysWithMarksColoursAndWhatIsAsBefore)
{
    Node root(1);
    GeoNode node(2);
    RenderingOptions options;
    node.SetGeometry(MakeSquare());

    EXPECT_FALSE(advances([&] {
        root.SetVisible(true);
        root.SetHighlighted(true);
        root.SetColor(RGBAColor(1, 2, 3));
        node.SetPartShown(0, true);
        node.SetPartSelected(0, true);
        node.SetAllParts(PartState::kHighlighted, true);
        options.SetClipPlanes({});
        options.SetAntialiasLevel(4);
    }));
}

} // namespace
} // namespace TambVizCore
