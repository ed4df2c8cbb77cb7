#include "CameraFixture.h"
#include "VirtualSlot.h"

#include "OrvikCore/CameraRotateArcball.h"
#include "OrvikCore/ICameraProvider.h"

#include <algorithm>
#include <vector>

using OrvikCore::ACamera;
using OrvikCore::ACameraMoveStrategy;
using OrvikCore::ACameraRotateStrategy;

namespace {

/// Tells the slots of what ACamera keeps to itself and the places of its fields.
class SlotCamera : public PlainCamera
{
public:
    static int CloneToSlot() { return VirtualSlot(&SlotCamera::cloneTo); }
    static int SetFrontSlot() { return VirtualSlot(&SlotCamera::setFront); }

    std::vector<const void*> Fields() const
    {
        return {&m_view, &m_rotateStrategy, &m_panStrategy, &m_orthographic, &m_eye, &m_target,
                &m_up,   &m_fieldOfView,    &m_animate};
    }
};

class SlotRotation : public OrvikCore::CameraRotateArcball
{
public:
    static int RotateSlot() { return VirtualSlot(&SlotRotation::rotate); }
};

} // namespace

TEST(ACameraSlots, AreInTheirFixedOrder)
{
    const std::vector<int> slots = {VirtualSlot(&ACamera::GetName),
                                    VirtualSlot(&ACamera::GetCamera),
                                    VirtualSlot(&ACamera::SetCamera),
                                    VirtualSlot(&ACamera::IsOrthographic),
                                    VirtualSlot(&ACamera::SetFieldOfView),
                                    VirtualSlot(&ACamera::SetFieldOfViewRadians),
                                    VirtualSlot(&ACamera::GetFieldOfView),
                                    VirtualSlot(&ACamera::GetFieldOfViewRadians),
                                    VirtualSlot(&ACamera::GetRotationCenter),
                                    VirtualSlot(&ACamera::SetRotationCenter),
                                    VirtualSlot(&ACamera::SetStandardPosition),
                                    VirtualSlot(&ACamera::Top),
                                    VirtualSlot(&ACamera::Bottom),
                                    VirtualSlot(&ACamera::Front),
                                    VirtualSlot(&ACamera::Back),
                                    VirtualSlot(&ACamera::Right),
                                    VirtualSlot(&ACamera::Left),
                                    VirtualSlot(&ACamera::Isometric),
                                    VirtualSlot(&ACamera::ZoomAll),
                                    VirtualSlot(&ACamera::ZoomToBox),
                                    VirtualSlot(&ACamera::Rotate),
                                    VirtualSlot(&ACamera::Pan),
                                    VirtualSlot(&ACamera::Zoom),
                                    VirtualSlot(&ACamera::SetAnimate),
                                    VirtualSlot(&ACamera::GetAnimate),
                                    SlotCamera::CloneToSlot(),
                                    SlotCamera::SetFrontSlot()};

    for (std::size_t i = 0; i < slots.size(); ++i) {
        EXPECT_EQ(slots[i], static_cast<int>(i) + 2) << "operation " << i;
    }
}

TEST(ACameraSlots, HelpersAreNotVirtual)
{
    EXPECT_EQ(VirtualSlot(&ACamera::Make3DRay), -1);
    EXPECT_EQ(VirtualSlot(&ACamera::GetView3D), -1);
    EXPECT_EQ(VirtualSlot(&SlotCamera::isValid), -1);
    EXPECT_EQ(VirtualSlot(&SlotCamera::copySettingsFrom), -1);
}

TEST(ACameraFields, AreInTheirFixedOrder)
{
    const SlotCamera camera;

    const std::vector<const void*> fields = camera.Fields();

    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end()));
}

TEST(CameraStrategySlots, AreInTheirFixedOrder)
{
    EXPECT_EQ(VirtualSlot(&ACameraMoveStrategy::Move), 2);
    EXPECT_EQ(VirtualSlot(&ACameraMoveStrategy::CloneTo), 3);
    EXPECT_EQ(VirtualSlot(&ACameraRotateStrategy::Move), 2);
    EXPECT_EQ(VirtualSlot(&ACameraRotateStrategy::CloneTo), 3);
    EXPECT_EQ(VirtualSlot(&ACameraRotateStrategy::GetRotationCenter), 4);
    EXPECT_EQ(VirtualSlot(&ACameraRotateStrategy::SetRotationCenter), 5);
    EXPECT_EQ(SlotRotation::RotateSlot(), 6);
}

TEST(ICameraProviderSlots, AreInTheirFixedOrder)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::ICameraProvider::GetCamera), 2);
}
