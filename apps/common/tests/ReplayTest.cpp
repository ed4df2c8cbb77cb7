#include "../Replay.h"

#include <gtest/gtest.h>

namespace {

using Pellux::ComparePicks;
using Pellux::PickNote;
using Pellux::PickResult;
using Pellux::QuotedForScript;
using Pellux::ReplayOutcome;
using TambVizCore::EntityId;
using TambVizCore::EntityType;

PickNote noteAt(std::uint64_t value, double x)
{
    PickNote note;
    note.isFound = true;
    note.entity = EntityId(value, 1, EntityType::Body);
    note.hasBox = note.hasPoint = true;
    for (int i = 0; i < 6; ++i)
        note.box[i] = x + i;
    note.point[0] = x;
    return note;
}

TEST(ComparePicks, TheSameEntityInTheSamePlaceIsSame)
{
    EXPECT_EQ(ComparePicks(noteAt(1, 100.0), noteAt(1, 100.0 + 1e-4), true), PickResult::Same);
    EXPECT_EQ(ComparePicks(PickNote(), PickNote(), false), PickResult::Same);
}

TEST(ComparePicks, TheSameEntityElsewhereHasMoved)
{
    EXPECT_EQ(ComparePicks(noteAt(1, 100.0), noteAt(1, 100.1), true), PickResult::Moved);

    PickNote elsewhere = noteAt(1, 100.0);
    elsewhere.point[1] = 1.0;
    EXPECT_EQ(ComparePicks(noteAt(1, 100.0), elsewhere, true), PickResult::Moved);
}

TEST(ComparePicks, AnotherEntityIsOtherWhileTheFirstIsThere)
{
    EXPECT_EQ(ComparePicks(noteAt(1, 0.0), noteAt(2, 0.0), true), PickResult::Other);
    EXPECT_EQ(ComparePicks(PickNote(), noteAt(2, 0.0), false), PickResult::Other);
}

TEST(ComparePicks, NothingOrALostEntityIsGone)
{
    EXPECT_EQ(ComparePicks(noteAt(1, 0.0), PickNote(), true), PickResult::Gone);
    EXPECT_EQ(ComparePicks(noteAt(1, 0.0), noteAt(2, 0.0), false), PickResult::Gone);
}

TEST(ReplayOutcome, IsGoodWhenEveryFormRanAndEveryPickIsSame)
{
    ReplayOutcome outcome;
    outcome.formCount = outcome.formsRun = 2;
    outcome.picks.resize(1);
    EXPECT_TRUE(outcome.IsGood());

    outcome.picks[0].result = PickResult::Moved;
    EXPECT_FALSE(outcome.IsGood());
    outcome.picks[0].result = PickResult::Same;
    outcome.formsRun = 1;
    EXPECT_FALSE(outcome.IsGood());
}

TEST(QuotedForScript, EscapesWhatEndsAString)
{
    EXPECT_EQ(QuotedForScript(L"a\"b\\c\u2019"), L"\"a\\\"b\\\\c\\u2019\"");
}

} // namespace
