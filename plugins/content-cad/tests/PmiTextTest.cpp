#include "kernel/PmiText.h"

#include <gtest/gtest.h>

namespace OrvikCad {
namespace {

Handle(XCAFDimTolObjects_DimensionObject)
    makeDimension(XCAFDimTolObjects_DimensionType type, double value)
{
    Handle(XCAFDimTolObjects_DimensionObject) dimension = new XCAFDimTolObjects_DimensionObject();
    dimension->SetType(type);
    dimension->SetValue(value);
    return dimension;
}

Handle(XCAFDimTolObjects_DatumObject) makeDatum(const char* name, int position)
{
    Handle(XCAFDimTolObjects_DatumObject) datum = new XCAFDimTolObjects_DatumObject();
    datum->SetName(new TCollection_HAsciiString(name));
    datum->SetPosition(position);
    return datum;
}

// The kernel's objects are whole only where its own allocator clears them.
Handle(XCAFDimTolObjects_GeomToleranceObject)
    makeTolerance(XCAFDimTolObjects_GeomToleranceType type, double value)
{
    Handle(XCAFDimTolObjects_GeomToleranceObject) tolerance =
        new XCAFDimTolObjects_GeomToleranceObject();
    tolerance->SetType(type);
    tolerance->SetValue(value);
    return tolerance;
}

TEST(PmiText, TellsTheLowerToleranceDownwards)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Size_Diameter, 12);
    size->SetUpperTolValue(0.1);
    size->SetLowerTolValue(0.05);

    EXPECT_EQ(DimensionText(*size), L"\u2300 12 +0.1/-0.05");
}

TEST(PmiText, KeepsALowerToleranceThatLiesAboveTheValue)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Location_LinearDistance, 12);
    size->SetUpperTolValue(0.05);
    size->SetLowerTolValue(-0.02);

    EXPECT_EQ(DimensionText(*size), L"12 +0.05/+0.02");
}

TEST(PmiText, JoinsEqualTolerances)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Size_Radius, 5.5);
    size->SetUpperTolValue(0.25);
    size->SetLowerTolValue(0.25);

    EXPECT_EQ(DimensionText(*size), L"R 5.5 \u00B10.25");
}

TEST(PmiText, WritesAnglesInDegrees)
{
    const auto angle = makeDimension(XCAFDimTolObjects_DimensionType_Location_Angular, 60);
    angle->SetUpperTolValue(0.5);
    angle->SetLowerTolValue(0.5);

    EXPECT_EQ(DimensionText(*angle), L"60\u00B0 \u00B10.5\u00B0");
}

TEST(PmiText, WritesLimitsFromLowerToUpper)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Size_Diameter, 12);
    size->SetUpperBound(12.2);
    size->SetLowerBound(11.9);

    EXPECT_EQ(DimensionText(*size), L"\u2300 11.9 - 12.2");
}

TEST(PmiText, WritesToleranceClassesSmallForShaftsAndLargeForHoles)
{
    const auto length = makeDimension(XCAFDimTolObjects_DimensionType_Location_LinearDistance, 100);
    length->SetClassOfTolerance(false, XCAFDimTolObjects_DimensionFormVariance_JS,
                                XCAFDimTolObjects_DimensionGrade_IT7);
    EXPECT_EQ(DimensionText(*length), L"100 js7");

    length->SetClassOfTolerance(true, XCAFDimTolObjects_DimensionFormVariance_H,
                                XCAFDimTolObjects_DimensionGrade_IT01);
    EXPECT_EQ(DimensionText(*length), L"100 H01");
}

TEST(PmiText, KeepsTheDecimalPlacesThatTheFileAsksFor)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Size_SphericalRadius, 5);
    size->SetNbOfDecimalPlaces(1, 2);

    EXPECT_EQ(DimensionText(*size), L"SR 5.00");
}

TEST(PmiText, DropsTheNoiseOfConvertedUnits)
{
    const auto size =
        makeDimension(XCAFDimTolObjects_DimensionType_Size_Thickness, 0.01000000000004 * 25.4);

    EXPECT_EQ(DimensionText(*size), L"0.254");
}

TEST(PmiText, PutsReferenceDimensionsInBrackets)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Size_Radius, 5);
    size->AddDescription(new TCollection_HAsciiString("auxiliary"),
                         new TCollection_HAsciiString("dimensional note"));

    EXPECT_EQ(DimensionText(*size), L"(R 5)");
}

TEST(PmiText, AddsQualifiersAndModifiers)
{
    const auto size = makeDimension(XCAFDimTolObjects_DimensionType_Size_Radius, 5);
    size->SetQualifier(XCAFDimTolObjects_DimensionQualifier_Max);
    size->AddModifier(XCAFDimTolObjects_DimensionModif_FreeStateCondition);

    EXPECT_EQ(DimensionText(*size), L"R 5 MAX (F)");
}

TEST(PmiText, IsEmptyForADimensionWithoutValue)
{
    EXPECT_EQ(DimensionText(XCAFDimTolObjects_DimensionObject()), L"");
}

TEST(PmiText, BuildsTheFrameOfATolerance)
{
    const auto position = makeTolerance(XCAFDimTolObjects_GeomToleranceType_Position, 0.2);
    position->SetTypeOfValue(XCAFDimTolObjects_GeomToleranceTypeValue_Diameter);
    position->SetMaterialRequirementModifier(XCAFDimTolObjects_GeomToleranceMatReqModif_M);

    EXPECT_EQ(ToleranceText(*position, {makeDatum("C", 2), makeDatum("A", 1), makeDatum("B", 2)}),
              L"\u2316 \u2300 0.2 \u24C2 | A | C-B");
}

TEST(PmiText, NamesADatumOnceForAllItsTargets)
{
    const auto parallel = makeTolerance(XCAFDimTolObjects_GeomToleranceType_Parallelism, 0.1);
    const auto first = makeDatum("A", 1);
    const auto second = makeDatum("A", 1);
    first->IsDatumTarget(true);
    first->SetDatumTargetNumber(1);
    second->IsDatumTarget(true);
    second->SetDatumTargetNumber(2);

    EXPECT_EQ(ToleranceText(*parallel, {first, second}), L"\u2225 0.1 | A");
    EXPECT_EQ(DatumText(*second), L"A2");
}

TEST(PmiText, LeavesOutAToleranceValueThatTheKernelCouldNotRead)
{
    const auto flatness = makeTolerance(XCAFDimTolObjects_GeomToleranceType_Flatness, 0);
    EXPECT_EQ(ToleranceText(*flatness, {}), L"\u23E5");

    flatness->SetMaterialRequirementModifier(XCAFDimTolObjects_GeomToleranceMatReqModif_M);
    EXPECT_EQ(ToleranceText(*flatness, {}), L"\u23E5 0 \u24C2");
}

} // namespace
} // namespace OrvikCad
