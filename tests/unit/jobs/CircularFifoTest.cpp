#include "OrvikCore/CircularFifo.h"

#include "OrvikCore/JobTicket.h"

#include <gtest/gtest.h>

#include <cstring>
#include <thread>
#include <type_traits>

using OrvikCore::CircularFifo;
using OrvikCore::JobTicket;

static_assert(std::has_virtual_destructor_v<CircularFifo<JobTicket, 100>>);

TEST(CircularFifo, StartsEmpty)
{
    CircularFifo<int, 100> fifo;
    int element = 7;

    EXPECT_TRUE(fifo.IsEmpty());
    EXPECT_FALSE(fifo.Pop(element));
    EXPECT_EQ(element, 7);
}

TEST(CircularFifo, HoldsExactlyItsCapacity)
{
    CircularFifo<int, 100> fifo;
    for (int i = 0; i < 100; ++i) {
        ASSERT_TRUE(fifo.Push(i));
    }

    EXPECT_FALSE(fifo.Push(100));
}

TEST(CircularFifo, RefusedElementLeavesTheRingUnchanged)
{
    CircularFifo<int, 2> fifo;
    fifo.Push(1);
    fifo.Push(2);
    fifo.Push(3);
    int first = 0;
    int second = 0;
    int third = 0;

    EXPECT_TRUE(fifo.Pop(first));
    EXPECT_TRUE(fifo.Pop(second));
    EXPECT_FALSE(fifo.Pop(third));
    EXPECT_EQ(first, 1);
    EXPECT_EQ(second, 2);
}

TEST(CircularFifo, FieldsLieInTheirOrder)
{
    using Fifo = CircularFifo<std::uint32_t, 2>;
    Fifo fifo;
    fifo.Push(10);
    fifo.Push(20);
    std::uint32_t taken = 0;
    fifo.Pop(taken);

    std::uint32_t fields[5];
    std::memcpy(fields, reinterpret_cast<const char*>(&fifo) + sizeof(void*), sizeof fields);
    EXPECT_EQ(fields[0], 2u); // Write index.
    EXPECT_EQ(fields[1], 10u);
    EXPECT_EQ(fields[2], 20u);
    EXPECT_EQ(fields[4], 1u); // Read index, behind three slots.
}

TEST(CircularFifo, KeepsTheOrderWhileItsIndexesTurnOver)
{
    CircularFifo<int, 3> fifo;
    int expected = 0;
    for (int i = 0; i < 50; ++i) {
        ASSERT_TRUE(fifo.Push(2 * i));
        ASSERT_TRUE(fifo.Push(2 * i + 1));
        int element = -1;
        ASSERT_TRUE(fifo.Pop(element));
        EXPECT_EQ(element, expected++);
        ASSERT_TRUE(fifo.Pop(element));
        EXPECT_EQ(element, expected++);
    }
    EXPECT_TRUE(fifo.IsEmpty());
}

TEST(CircularFifo, CarriesWholeTickets)
{
    CircularFifo<JobTicket, 100> fifo;
    JobTicket sent(OrvikCore::JID_EXECUTE_SCRIPT, nullptr, true, 1, 2, 3);
    sent.SetMessageText(L"message");
    JobTicket received;

    ASSERT_TRUE(fifo.Push(sent));
    ASSERT_TRUE(fifo.Pop(received));

    EXPECT_EQ(received.ToString(), sent.ToString());
}

TEST(CircularFifo, HandsOverFromOneThreadToAnother)
{
    constexpr int kCount = 20000;
    CircularFifo<std::wstring, 100> fifo;
    std::thread producer([&fifo] {
        for (int i = 0; i < kCount;) {
            if (fifo.Push(std::to_wstring(i))) {
                ++i;
            } else {
                std::this_thread::yield();
            }
        }
    });

    int received = 0;
    std::wstring element;
    while (received < kCount) {
        if (fifo.Pop(element)) {
            EXPECT_EQ(element, std::to_wstring(received));
            ++received;
        } else {
            std::this_thread::yield();
        }
    }
    producer.join();
    EXPECT_TRUE(fifo.IsEmpty());
}
