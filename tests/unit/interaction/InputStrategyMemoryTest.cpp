// A program of its own: it replaces the allocation that operations are made with.
#include "StrategyFixture.h"

#include "OrvikCore/KeyEventArgs.h"
#include "OrvikCore/MouseButtonEventArgs.h"
#include "OrvikCore/MouseClickEventArgs.h"
#include "OrvikCore/MouseWheelEventArgs.h"

#include <gtest/gtest.h>

#include <cstddef>
#include <new>

namespace {

bool g_outOfMemory = false;

} // namespace

void* operator new(std::size_t size, const std::nothrow_t&) noexcept
{
    if (g_outOfMemory) {
        return nullptr;
    }
    try {
        return ::operator new(size);
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

namespace {

using OrvikCore::ModifierKey;
using OrvikCore::MouseButton;

/// The same for both strategies and every kind of event.
template <typename Strategy> class StrategyWithoutMemory : public ::testing::Test
{
protected:
    ~StrategyWithoutMemory() override { g_outOfMemory = false; }

    template <typename Event> void expectNothing(Event event)
    {
        m_harness.PutBefore(Before::MouseMove);
        const OrvikCore::IViewOp* before = m_harness.Subject().Stack().Top();

        g_outOfMemory = true;
        const bool hasOp = m_harness.Subject().ConvertWindowEvent(&event);
        g_outOfMemory = false;

        EXPECT_FALSE(hasOp);
        EXPECT_EQ(m_harness.Subject().Stack().Top(), before);
    }

    StrategyHarness<Strategy> m_harness;
};

using Strategies =
    ::testing::Types<OrvikCore::Input2OpStrategySelect, OrvikCore::Input2OpStrategyStickySelect>;
TYPED_TEST_SUITE(StrategyWithoutMemory, Strategies);

} // namespace

TYPED_TEST(StrategyWithoutMemory, KeepsTheOperationBeforeOnAMotion)
{
    this->expectNothing(OrvikCore::MouseEventArgs(OrvikCore::MouseAction::Moved, 1, 2,
                                                  MouseButton::Selection, ModifierKey::None));
}

TYPED_TEST(StrategyWithoutMemory, KeepsTheOperationBeforeOnAClick)
{
    this->expectNothing(
        OrvikCore::MouseClickEventArgs(MouseButton::Selection, 1, 1, 2, ModifierKey::Ctrl));
}

TYPED_TEST(StrategyWithoutMemory, KeepsTheOperationBeforeOnAPress)
{
    this->expectNothing(
        OrvikCore::MouseButtonEventArgs(MouseButton::Selection, true, 1, 2, ModifierKey::Shift));
}

TYPED_TEST(StrategyWithoutMemory, KeepsTheOperationBeforeOnAWheelTurn)
{
    this->expectNothing(OrvikCore::MouseWheelEventArgs(1, 1, 2));
}

TYPED_TEST(StrategyWithoutMemory, KeepsTheOperationBeforeOnAKey)
{
    this->expectNothing(OrvikCore::KeyEventArgs(0x01000000, true, ModifierKey::None));
}
