#include <controls/SectionRows.h>
#include <gtest/gtest.h>

namespace {

using Pellux::NumbersOfRows;
using Pellux::SectionPlane;
using Pellux::SectionRow;

SectionPlane at(double position)
{
    SectionPlane plane;
    plane.position = position;
    return plane;
}

using Rows = std::vector<SectionRow>;
using Numbers = std::vector<int>;

TEST(SectionRows, FillFromTheFirst)
{
    EXPECT_EQ(NumbersOfRows(Rows(3), {at(1), at(2)}), (Numbers{1, 2, 0}));
}

TEST(SectionRows, StayWhereTheyAreWhenOneBeforeThemGoes)
{
    const Rows rows = {{1, at(1)}, {2, at(2)}, {3, at(3)}};

    EXPECT_EQ(NumbersOfRows(rows, {at(2), at(3)}), (Numbers{0, 1, 2}));
    EXPECT_EQ(NumbersOfRows(rows, {at(1), at(3)}), (Numbers{1, 0, 2}));
    EXPECT_EQ(NumbersOfRows(rows, {}), (Numbers{0, 0, 0}));
}

TEST(SectionRows, TakeWhatIsNewWhereOneIsOff)
{
    const Rows rows = {{0, at(1)}, {1, at(2)}, {2, at(3)}};

    EXPECT_EQ(NumbersOfRows(rows, {at(2), at(3), at(9)}), (Numbers{3, 1, 2}));
}

TEST(SectionRows, KeepTheNumberOfWhatIsMoved)
{
    const Rows rows = {{0, at(1)}, {1, at(2)}, {2, at(3)}};

    EXPECT_EQ(NumbersOfRows(rows, {at(2), at(7)}), (Numbers{0, 1, 2}));
    EXPECT_EQ(NumbersOfRows(rows, {at(6), at(7)}), (Numbers{0, 1, 2}));
}

TEST(SectionRows, TellEqualPlanesApartByTheirNumbers)
{
    const Rows rows = {{2, at(1)}, {1, at(1)}, {0, at(1)}};

    EXPECT_EQ(NumbersOfRows(rows, {at(1), at(1)}), (Numbers{2, 1, 0}));
    EXPECT_EQ(NumbersOfRows(rows, {at(1)}), (Numbers{0, 1, 0}));
}

TEST(SectionRows, MakeRoomWhenEverythingIsAnother)
{
    const Rows rows = {{1, at(1)}, {0, at(2)}, {0, at(3)}};

    EXPECT_EQ(NumbersOfRows(rows, {at(7), at(8), at(9)}), (Numbers{1, 2, 3}));
}

} // namespace
