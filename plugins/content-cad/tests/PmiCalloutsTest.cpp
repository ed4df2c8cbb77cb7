#include "kernel/PmiCallouts.h"

#include <BRepBndLib.hxx>
#include <Bnd_Box.hxx>
#include <TopExp_Explorer.hxx>
#include <gtest/gtest.h>

#include <string>

namespace OrvikCad {
namespace {

/// A callout whose one drawing, in a plane 5 above the origin, has the pieces #20 and #21.
std::string calloutWith(const std::string& pieces)
{
    return "#1=DRAUGHTING_CALLOUT('Note.1',(#2));"
           "#2=TESSELLATED_ANNOTATION_OCCURRENCE('',(#9),#3);"
           "#3=(GEOMETRIC_REPRESENTATION_ITEM() REPOSITIONED_TESSELLATED_ITEM(#4)"
           " REPRESENTATION_ITEM('note') TESSELLATED_GEOMETRIC_SET((#20,#21)) TESSELLATED_ITEM());"
           "#4=AXIS2_PLACEMENT_3D('',#5,#6,#7);#5=CARTESIAN_POINT('',(0.,0.,5.));"
           "#6=DIRECTION('',(0.,0.,1.));#7=DIRECTION('',(1.,0.,0.));"
           "#10=COORDINATES_LIST('',4,((0.,0.,0.),(2.,0.,0.),(2.,2.,0.),(0.,2.,0.)));" +
           pieces;
}

std::optional<Callout> readWith(const std::string& pieces, double unit = 1.0)
{
    const std::string text = calloutWith(pieces);
    const StepRecords records(text);
    return CalloutReader(records, unit).Read(records.Find(1));
}

int edgesOf(const Callout& callout)
{
    int edges = 0;
    for (TopExp_Explorer it(callout.curves, TopAbs_EDGE); it.More(); it.Next())
        ++edges;
    return edges;
}

TEST(PmiCallouts, DrawsLinesInTheirPlaneInMillimetres)
{
    const auto callout = readWith("#20=TESSELLATED_CURVE_SET('',#10,((1,2,3),(3,4)));", 25.4);

    ASSERT_TRUE(callout);
    EXPECT_EQ(edgesOf(*callout), 3);
    Bnd_Box box;
    BRepBndLib::Add(callout->curves, box, false);
    EXPECT_NEAR(box.CornerMax().X(), 50.8, 1e-3);
    EXPECT_NEAR(box.CornerMin().Z(), 127.0, 1e-3);
}

TEST(PmiCallouts, NamesTheKindOfAnnotation)
{
    EXPECT_EQ(readWith("#20=TESSELLATED_CURVE_SET('',#10,((1,2)));")->name, "Note.1 (note)");
}

TEST(PmiCallouts, TakesTheNameOfTheDrawingWhereTheCalloutHasNone)
{
    std::string text = calloutWith("#20=TESSELLATED_CURVE_SET('',#10,((1,2)));");
    text.replace(text.find("'Note.1'"), 8, "''");
    text.replace(text.find("OCCURRENCE(''") + 11, 2, "'Text of 7'");
    const StepRecords records(text);

    EXPECT_EQ(CalloutReader(records, 1.0).Read(records.Find(1))->name, "Text of 7 (note)");
}

TEST(PmiCallouts, DrawsTheOutlineOfFilledAreas)
{
    const auto fan =
        readWith("#21=COMPLEX_TRIANGULATED_SURFACE_SET('',#10,4,(),(),(),((1,2,3,4)));");
    const auto strip =
        readWith("#21=COMPLEX_TRIANGULATED_SURFACE_SET('',#10,4,(),(1,2,4,3),((1,2,3,4)),());");

    ASSERT_TRUE(fan && strip);
    EXPECT_EQ(edgesOf(*fan), 4); // Without the diagonal.
    EXPECT_EQ(edgesOf(*strip), 4);
}

TEST(PmiCallouts, LeavesOutWhatRefersToNothing)
{
    EXPECT_FALSE(readWith(""));
    EXPECT_FALSE(readWith("#20=TESSELLATED_CURVE_SET('',#10,((0,5),(-1,99999999999)));"));
    EXPECT_FALSE(readWith("#20=TESSELLATED_CURVE_SET('',#20,((1,2)));"));
    EXPECT_FALSE(readWith("#21=COMPLEX_TRIANGULATED_SURFACE_SET('',#10,4,(),(9),(),((1,2,3)));"));
    EXPECT_FALSE(readWith("#20=TESSELLATED_CURVE_SET('',#10,((1,1)));"));
}

} // namespace
} // namespace OrvikCad
