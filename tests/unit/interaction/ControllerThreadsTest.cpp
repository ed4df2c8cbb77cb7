#include "ControllerFixture.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace {

using ControllerThreads = ControllerFixture;

constexpr int kRounds = 2000;

} // namespace

TEST_F(ControllerThreads, StrategyMayBeReplacedWhileEventsAreConverted)
{
    std::thread other([this] {
        for (int i = 0; i < kRounds; ++i) {
            m_controller.SelectionSetSticky(i % 2 == 0);
            m_controller.SelectionIsSticky();
        }
    });

    for (int i = 0; i < kRounds; ++i) {
        click(i, i);
    }
    other.join();

    EXPECT_EQ(m_received.size(), static_cast<std::size_t>(kRounds));
}

TEST_F(ControllerThreads, ListenersMayComeAndGoDuringDeliveries)
{
    std::vector<std::string> unused;
    RecordingListener visitor("b", unused);
    std::thread other([&] {
        for (int i = 0; i < kRounds; ++i) {
            m_controller.AddListener(&visitor);
            m_controller.RemoveListener(&visitor);
        }
    });

    for (int i = 0; i < kRounds; ++i) {
        move(i, i);
    }
    other.join();

    EXPECT_EQ(m_received.size(), static_cast<std::size_t>(kRounds));
}
