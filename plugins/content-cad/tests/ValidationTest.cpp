#include "kernel/Validation.h"

#include "tests/DocumentFixture.h"

#include <XCAFDoc_Area.hxx>
#include <XCAFDoc_Centroid.hxx>
#include <XCAFDoc_Volume.hxx>
#include <gmock/gmock.h>

namespace OrvikCad {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// A block of 6000 mm3, 2200 mm2 and the centroid (5 10 15).
class Validation : public DocumentFixture
{
protected:
    void SetUp() override { AddBodyAt(0, 0, 0); }

    void Claim(double volume, double area, const gp_Pnt& centroid)
    {
        XCAFDoc_Volume::Set(bodyLabel, volume);
        XCAFDoc_Area::Set(bodyLabel, area);
        XCAFDoc_Centroid::Set(bodyLabel, centroid);
    }
};

TEST_F(Validation, IsSilentAboutTrueValues)
{
    Claim(6000, 2200, gp_Pnt(5, 10, 15));

    CheckValidation(context);

    EXPECT_THAT(messages.Warnings(), IsEmpty());
}

TEST_F(Validation, ToleratesRoundedValues)
{
    Claim(6010, 2195, gp_Pnt(5.1, 10, 15));

    CheckValidation(context);

    EXPECT_THAT(messages.Warnings(), IsEmpty());
}

TEST_F(Validation, NamesTheBodyAndBothValuesOfEachDifference)
{
    Claim(60000, 1100, gp_Pnt(10, 10, 15));

    CheckValidation(context);

    EXPECT_THAT(messages.Warnings(),
                ElementsAre(L"test.step: \"block\": the file says its volume is 60000, its shape "
                            L"has 6000 (mm\u00B3)",
                            L"test.step: \"block\": the file says its area is 1100, its shape has "
                            L"2200 (mm\u00B2)",
                            L"test.step: \"block\": the file says its centroid is (10 10 15), its "
                            L"shape has (5 10 15) (mm)"));
}

TEST_F(Validation, DoesNotTrustACentroidAlone)
{
    XCAFDoc_Centroid::Set(bodyLabel, gp_Pnt(100, 0, 0));

    CheckValidation(context);

    EXPECT_THAT(messages.Warnings(), IsEmpty());
}

TEST_F(Validation, WarnsOfValuesThatAreNoNumbers)
{
    XCAFDoc_Volume::Set(bodyLabel, std::numeric_limits<double>::quiet_NaN());

    CheckValidation(context);

    EXPECT_EQ(messages.Warnings().size(), 1u);
}

} // namespace
} // namespace OrvikCad
