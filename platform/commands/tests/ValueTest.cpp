#include "FakeObjects.h"
#include "TestSupport.h"

#include <TambCommandsInfra/Value.h>

#include <gtest/gtest.h>

#include <limits>
#include <string>
#include <type_traits>

using TambCommandsInfra::DescribeValue;
using TambCommandsInfra::Value;

TEST(Value, IsNilAtFirst)
{
    EXPECT_TRUE(Value().IsNil());
    EXPECT_EQ(Value().GetKind(), Value::Kind::Nil);
}

TEST(Value, KindFollowsWhatItWasMadeFrom)
{
    EXPECT_EQ(Value(true).GetKind(), Value::Kind::Bool);
    EXPECT_EQ(Value(3).GetKind(), Value::Kind::Integer);
    EXPECT_EQ(Value(std::int64_t{3}).GetKind(), Value::Kind::Integer);
    EXPECT_EQ(Value(2.5).GetKind(), Value::Kind::Real);
    EXPECT_EQ(Value(L"text").GetKind(), Value::Kind::String);
    EXPECT_EQ(Value(Value::List{}).GetKind(), Value::Kind::List);
    EXPECT_EQ(Value(MakeEntity(1)).GetKind(), Value::Kind::Object);
}

TEST(Value, PointersDoNotBecomeBooleans)
{
    EXPECT_FALSE((std::is_constructible_v<Value, const char*>));
    EXPECT_FALSE((std::is_constructible_v<Value, int*>));
}

TEST(Value, AccessorsGiveWhatItHolds)
{
    EXPECT_TRUE(Value(true).AsBool());
    EXPECT_EQ(Value(std::numeric_limits<std::int64_t>::min()).AsInteger(),
              std::numeric_limits<std::int64_t>::min());
    EXPECT_EQ(Value(2.5).AsReal(), 2.5);
    EXPECT_EQ(Value(L"text").AsString(), L"text");
    EXPECT_EQ(Value(Value::List{1, 2}).AsList().size(), 2u);
}

TEST(Value, RealAccessorTakesWholeNumbers)
{
    EXPECT_EQ(Value(3).AsReal(), 3.0);
}

TEST(Value, WrongAccessorSaysWhatIsThere)
{
    EXPECT_EQ(ErrorOf([] { Value(3).AsBool(); }), "The value is the integer 3, not a boolean.");
    EXPECT_EQ(ErrorOf([] { Value(2.5).AsInteger(); }),
              "The value is the number 2.5, not an integer.");
    EXPECT_EQ(ErrorOf([] { Value(true).AsReal(); }), "The value is true, not a number.");
    EXPECT_EQ(ErrorOf([] { Value().AsString(); }), "The value is nothing, not a string.");
    EXPECT_EQ(ErrorOf([] { Value(L"a").AsList(); }), "The value is the string \"a\", not a list.");
    EXPECT_EQ(ErrorOf([] { Value(false).AsObject(); }), "The value is false, not an object.");
}

TEST(Value, VectorGoesThroughAListOfThreeNumbers)
{
    const std::array<double, 3> vector{1.0, 2.5, -3.0};

    EXPECT_EQ(Value::FromVector(vector).AsVector(), vector);
    EXPECT_EQ(Value(Value::List{1, 2, 3}).AsVector(), (std::array<double, 3>{1.0, 2.0, 3.0}));
}

TEST(Value, ListOfAnotherLengthIsNoVector)
{
    EXPECT_EQ(ErrorOf([] {
                  Value(Value::List{1, 2}).AsVector();
              }),
              "The value is a list of 2 elements, not a list of three numbers.");
}

TEST(Value, NullObjectIsRefused)
{
    EXPECT_EQ(ErrorOf([] { Value(Value::Object()); }), "A value cannot hold a null object.");
}

TEST(Value, Utf8GoesThereAndBack)
{
    const Value value = Value::FromUtf8("m\xC3\xBCller \xFF");

    EXPECT_EQ(value.AsString().substr(0, 2), L"m\u00FC");
    EXPECT_EQ(value.AsUtf8(), "m\xC3\xBCller \xFF");
}

TEST(Value, ComparesKindAndContents)
{
    EXPECT_EQ(Value(), Value());
    EXPECT_EQ(Value(Value::List{1, L"a"}), Value(Value::List{1, L"a"}));
    EXPECT_NE(Value(1), Value(1.0));
    EXPECT_NE(Value(false), Value());
}

TEST(Value, ObjectsCompareByWhatTheyStandFor)
{
    EXPECT_EQ(Value(MakeEntity(1)), Value(MakeEntity(1)));
    EXPECT_NE(Value(MakeEntity(1)), Value(MakeEntity(2)));
}

TEST(Value, PlainObjectsCompareByAddress)
{
    const Value::Object first = std::make_shared<PlainObject>();
    const Value::Object second = std::make_shared<PlainObject>();

    EXPECT_EQ(Value(first), Value(first));
    EXPECT_NE(Value(first), Value(second));
}

TEST(Value, CopySharesItsObject)
{
    const Value::Object object = MakeEntity(1);
    const Value first = object;

    const Value second = first;

    EXPECT_EQ(second.AsObject(), object);
    EXPECT_EQ(object.use_count(), 3);
}

TEST(Value, DescriptionsNameEachKind)
{
    EXPECT_EQ(DescribeValue(Value()), "nothing");
    EXPECT_EQ(DescribeValue(Value(true)), "true");
    EXPECT_EQ(DescribeValue(Value(-3)), "the integer -3");
    EXPECT_EQ(DescribeValue(Value(0.1)), "the number 0.1");
    EXPECT_EQ(DescribeValue(Value(L"a b")), "the string \"a b\"");
    EXPECT_EQ(DescribeValue(Value(Value::List{})), "a list of 0 elements");
    EXPECT_EQ(DescribeValue(Value(Value::List{1})), "a list of 1 element");
    EXPECT_EQ(DescribeValue(Value(MakeEntity(1))), "an object of type entity");
}

TEST(Value, DescriptionIsUtf8OnOneLine)
{
    EXPECT_EQ(DescribeValue(Value(L"\u00FC\n\tx")), "the string \"\xC3\xBC  x\"");
}

TEST(Value, DescriptionOfALongStringIsCut)
{
    const std::wstring sixty(60, L'x');

    EXPECT_EQ(DescribeValue(Value(sixty)), "the string \"" + std::string(60, 'x') + "\"");
    EXPECT_EQ(DescribeValue(Value(sixty + L"y")), "the string \"" + std::string(60, 'x') + "...\"");
}
