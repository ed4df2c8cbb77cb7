#include "VirtualSlot.h"

#include "OrvikCore/AEventArgs.h"
#include "OrvikCore/IControllerListener.h"
#include "OrvikCore/IControllerProvider.h"
#include "OrvikCore/IMenuAction.h"
#include "OrvikCore/IMouseEventProvider.h"
#include "OrvikCore/IViewOp.h"
#include "OrvikCore/Input2OpStrategySelect.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

namespace {

using OrvikCore::Input2OpStrategy;

template <typename Event> using Conversion = bool (Input2OpStrategy::*)(Event*);

template <typename Event> int conversionSlot()
{
    return VirtualSlot(static_cast<Conversion<Event>>(&Input2OpStrategy::ConvertWindowEvent));
}

/// Tells the places of a strategy's fields.
class FieldStrategy : public OrvikCore::Input2OpStrategySelect
{
public:
    FieldStrategy() : Input2OpStrategySelect(nullptr) {}

    std::vector<const void*> Fields() const
    {
        return {&controller, &inputState, &sticky, &opStack};
    }
};

} // namespace

TEST(IViewOpSlots, AreInTheirFixedOrder)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::IViewOp::Type), 2);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IViewOp::ToString), 3);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IViewOp::State), -1);
}

TEST(Input2OpStrategySlots, AreInTheirFixedOrder)
{
    EXPECT_EQ(VirtualSlot(&Input2OpStrategy::InputState), 2);
    EXPECT_EQ(VirtualSlot(&Input2OpStrategy::SelectionIsSticky), 3);
    EXPECT_EQ(conversionSlot<OrvikCore::KeyEventArgs>(), 4);
    EXPECT_EQ(conversionSlot<OrvikCore::MouseWheelEventArgs>(), 5);
    EXPECT_EQ(conversionSlot<OrvikCore::MouseClickEventArgs>(), 6);
    EXPECT_EQ(conversionSlot<OrvikCore::MouseButtonEventArgs>(), 7);
    EXPECT_EQ(conversionSlot<OrvikCore::MouseEventArgs>(), 8);
}

TEST(Input2OpStrategyFields, AreInTheirFixedOrder)
{
    const FieldStrategy strategy;

    const std::vector<const void*> fields = strategy.Fields();

    EXPECT_TRUE(std::is_sorted(fields.begin(), fields.end()));
}

TEST(InterfaceSlots, AreInTheirFixedOrder)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::IControllerListener::ControllerNotify), 2);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IControllerProvider::GetController), 2);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IMouseEventProvider::AttachController), 0);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IMouseEventProvider::DetachController), 1);
}

TEST(InterfaceSlots, WithoutDestructorHoldOneOperation)
{
    EXPECT_EQ(VirtualSlot(&OrvikCore::AEventArgs::Type), 0);
    EXPECT_EQ(VirtualSlot(&OrvikCore::IMenuAction::Run), 0);
}
