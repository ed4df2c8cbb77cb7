#include "kernel/PmiRecords.h"

#include <gmock/gmock.h>

namespace OrvikCad {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(StepRecords, FindsARecordByItsNumber)
{
    const StepRecords records("DATA;\n#12 = B('x',#3);\n#3=\nA('y');\nENDSEC;");

    EXPECT_EQ(records.Find(3), "A('y')");
    EXPECT_EQ(records.Find(12), "B('x',#3)");
    EXPECT_EQ(records.Find(4), "");
}

TEST(StepRecords, LooksForNothingInStringsAndComments)
{
    const StepRecords records("#1=A(';#2=B();''');/* #3=C(); */#4=D('it''s; #5=E()');");

    EXPECT_EQ(records.All().size(), 2u);
    EXPECT_EQ(records.Find(1), "A(';#2=B();''')");
    EXPECT_EQ(records.Find(4), "D('it''s; #5=E()')");
}

TEST(StepRecords, EndsWithATextThatEndsTooEarly)
{
    EXPECT_EQ(StepRecords("#1=A('open").Find(1), "A('open");
    EXPECT_EQ(StepRecords("#1=A(/* open").All().size(), 1u);
    EXPECT_THAT(StepRecords("#").All(), IsEmpty());
    EXPECT_THAT(StepRecords("#99999999999=A();").All(), IsEmpty());
}

TEST(StepRecords, FindsTheArgumentsOfOneTypeOfSeveral)
{
    constexpr std::string_view record =
        "( LONG_NAME('NAME(1)') NAME ( 'a,b' , (1,2),#7 ) OTHER() )";

    EXPECT_THAT(ArgumentsOf(record, "NAME"), ElementsAre("'a,b'", "(1,2)", "#7"));
    EXPECT_THAT(ArgumentsOf(record, "OTHER"), IsEmpty());
    EXPECT_THAT(ArgumentsOf(record, "LONG"), IsEmpty());
    EXPECT_THAT(ArgumentsOf("NAME((1,2", "NAME"), IsEmpty());
}

TEST(StepRecords, ReadsReferencesNumbersAndStrings)
{
    EXPECT_EQ(ReferenceOf("#12"), 12);
    EXPECT_EQ(ReferenceOf("#12x"), 0);
    EXPECT_EQ(ReferenceOf("12"), 0);
    EXPECT_EQ(NumberOf("-1.5E-01"), -0.15);
    EXPECT_EQ(NumberOf("1."), 1.0);
    EXPECT_EQ(NumberOf("$"), 0.0);
    EXPECT_EQ(StringOf("'a b'"), "a b");
    EXPECT_EQ(StringOf("$"), "");
}

} // namespace
} // namespace OrvikCad
