#include "OrvikCore/IViewObjectProvider.h"

#include "VirtualSlot.h"

#include "OrvikCore/ICustomPropertyProvider.h"
#include "OrvikCore/TextItem3D.h"

#include <TambVizCore/RGBAColor.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <type_traits>
#include <vector>

using OrvikCore::ICustomPropertyProvider;
using OrvikCore::IViewObjectProvider;
using TambVizCore::RGBAColor;
using testing::ThrowsMessage;

namespace {

using Polylines = std::vector<std::vector<double>>;

class PlainProvider : public IViewObjectProvider
{
public:
    using IViewObjectProvider::DrawMarkupObjects;

    OrvikCore::ViewObjectManager* GetViewObjectManager() override { return nullptr; }
    void DrawMarkupObjects(Polylines const&, bool, bool, RGBAColor const&) override {}
    void DrawArrow(double, double, double, double, double, double) override {}
    void DrawTessellationData(std::vector<float>&, std::vector<float>&, std::vector<float>&,
                              std::vector<int>&) override
    {
    }
    void ClearDrawingObjects() override {}
    void DrawTextItems(std::vector<OrvikCore::TextItem3D> const&) override {}
};

} // namespace

TEST(IViewObjectProvider, DrawingPolylinesHasToBeImplemented)
{
    PlainProvider provider;

    EXPECT_THAT([&] { provider.DrawMarkupObjects(Polylines(), RGBAColor()); },
                ThrowsMessage<std::runtime_error>(
                    "DrawMarkupObjects needs to be implemented in your ViewObjectProvider."));
}

TEST(IViewObjectProvider, VirtualOperationsKeepTheirOrder)
{
    using Plain = void (IViewObjectProvider::*)(Polylines const&, RGBAColor const&);
    using Filled = void (IViewObjectProvider::*)(Polylines const&, bool, bool, RGBAColor const&);

    EXPECT_EQ(VirtualSlot(&IViewObjectProvider::GetViewObjectManager), 2);
    EXPECT_EQ(VirtualSlot(static_cast<Plain>(&IViewObjectProvider::DrawMarkupObjects)), 3);
    EXPECT_EQ(VirtualSlot(static_cast<Filled>(&IViewObjectProvider::DrawMarkupObjects)), 4);
    EXPECT_EQ(VirtualSlot(&IViewObjectProvider::DrawArrow), 5);
    EXPECT_EQ(VirtualSlot(&IViewObjectProvider::DrawTessellationData), 6);
    EXPECT_EQ(VirtualSlot(&IViewObjectProvider::ClearDrawingObjects), 7);
    EXPECT_EQ(VirtualSlot(&IViewObjectProvider::DrawTextItems), 8);
}

TEST(ICustomPropertyProvider, HasTwoOperations)
{
    EXPECT_EQ(VirtualSlot(&ICustomPropertyProvider::GetCustomProperties), 0);
    EXPECT_EQ(VirtualSlot(&ICustomPropertyProvider::SetCustomProperty), 1);
    EXPECT_FALSE(std::has_virtual_destructor_v<ICustomPropertyProvider>);
}
