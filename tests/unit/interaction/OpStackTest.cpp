#include "OrvikCore/OpStack.h"

#include "CountedOp.h"

#include <gtest/gtest.h>

#include <type_traits>

using OrvikCore::OpStack;
using OrvikCore::ViewOpType;

namespace {

class OpStackTest : public ::testing::Test
{
protected:
    CountedOp* make(const char* name = "op")
    {
        return new CountedOp(m_living, ViewOpType::MouseMove, name);
    }

    int m_living = 0;
    OpStack m_stack;
};

} // namespace

TEST_F(OpStackTest, StartsEmpty)
{
    EXPECT_TRUE(m_stack.IsEmpty());
    EXPECT_EQ(m_stack.Top(), nullptr);
    EXPECT_EQ(m_stack.Pop(), nullptr);
}

TEST_F(OpStackTest, GivesTheLastPushedFirst)
{
    CountedOp* first = make();
    CountedOp* second = make();
    m_stack.Push(first);
    m_stack.Push(second);

    EXPECT_EQ(m_stack.Top(), second);
    EXPECT_EQ(m_stack.Pop(), second);
    EXPECT_EQ(m_stack.Pop(), first);
    EXPECT_TRUE(m_stack.IsEmpty());
    delete first;
    delete second;
}

TEST_F(OpStackTest, TopStaysOnTheStack)
{
    m_stack.Push(make());

    m_stack.Top();

    EXPECT_FALSE(m_stack.IsEmpty());
    m_stack.Clear();
}

TEST_F(OpStackTest, ClearDeletesEveryOperation)
{
    m_stack.Push(make());
    m_stack.Push(nullptr);
    m_stack.Push(make());

    m_stack.Clear();

    EXPECT_EQ(m_living, 0);
    EXPECT_TRUE(m_stack.IsEmpty());
}

TEST_F(OpStackTest, DestructorLeavesTheOperations)
{
    CountedOp* op = make();
    {
        OpStack stack;
        stack.Push(op);
    }

    EXPECT_EQ(m_living, 1);
    delete op;
}

TEST_F(OpStackTest, CopySharesTheOperations)
{
    CountedOp* op = make();
    m_stack.Push(op);

    const OpStack copy = m_stack;

    EXPECT_EQ(copy.Top(), op);
    EXPECT_TRUE(std::has_virtual_destructor_v<OpStack>);
    m_stack.Clear();
}

TEST_F(OpStackTest, DiscardDeletesAtOnce)
{
    m_stack.Discard(make());
    m_stack.Discard(nullptr);

    EXPECT_EQ(m_living, 0);
}

TEST_F(OpStackTest, DiscardedOperationLivesUntilUnpinned)
{
    CountedOp* op = make();
    m_stack.Pin(op);

    m_stack.Discard(op);
    const int livingWhilePinned = m_living;
    const bool wasDiscarded = m_stack.Unpin(op);

    EXPECT_EQ(livingWhilePinned, 1);
    EXPECT_TRUE(wasDiscarded);
    EXPECT_EQ(m_living, 0);
}

TEST_F(OpStackTest, UnpinLeavesWhatWasNotDiscarded)
{
    CountedOp* op = make();
    m_stack.Push(op);
    m_stack.Pin(op);

    EXPECT_FALSE(m_stack.Unpin(op));

    EXPECT_EQ(m_stack.Top(), op);
    m_stack.Clear();
    EXPECT_EQ(m_living, 0);
}

TEST_F(OpStackTest, ClearMarksAPinnedOperation)
{
    CountedOp* op = make();
    m_stack.Push(op);
    m_stack.Pin(op);

    m_stack.Clear();

    EXPECT_EQ(m_living, 1);
    EXPECT_TRUE(m_stack.Unpin(op));
    EXPECT_EQ(m_living, 0);
}

TEST_F(OpStackTest, OperationPinnedTwiceLivesUntilTheOuterUnpin)
{
    CountedOp* op = make();
    m_stack.Pin(op);
    m_stack.Pin(op);
    m_stack.Discard(op);

    EXPECT_TRUE(m_stack.Unpin(op));
    EXPECT_EQ(m_living, 1);
    EXPECT_TRUE(m_stack.Unpin(op));
    EXPECT_EQ(m_living, 0);
}

TEST_F(OpStackTest, UnpinWithoutPinDoesNothing)
{
    CountedOp* op = make();

    EXPECT_FALSE(m_stack.Unpin(op));

    EXPECT_EQ(m_living, 1);
    delete op;
}
