#include "kernel/ShapeSanity.h"

#include "kernel/ShapeParts.h"

#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRep_Builder.hxx>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Edge.hxx>
#include <gtest/gtest.h>

#include <limits>

namespace OrvikCad {
namespace {

/// A cylinder, the range of one of whose edges is set.
TopoDS_Shape cylinderWithRange(double first, double last)
{
    const TopoDS_Shape cylinder = BRepPrimAPI_MakeCylinder(5, 10).Solid();
    const TopoDS_Edge edge = TopoDS::Edge(TopExp_Explorer(cylinder, TopAbs_EDGE).Current());
    BRep_Builder().Range(edge, first, last);
    return cylinder;
}

TEST(ShapeSanity, LeavesASaneShapeAsItIs)
{
    const TopoDS_Shape cylinder = BRepPrimAPI_MakeCylinder(5, 10).Solid();

    EXPECT_TRUE(SaneFacesOf(cylinder).IsEqual(cylinder));
}

TEST(ShapeSanity, LeavesOutFacesWhoseEdgesHaveNoNumbers)
{
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const TopoDS_Shape sane = SaneFacesOf(cylinderWithRange(nan, nan));

    // The edge between the side and one end.
    EXPECT_EQ(ShapeParts(sane).Faces().Extent(), 1);
}

TEST(ShapeSanity, LeavesOutFacesWhoseEdgesLeadFarOut)
{
    const TopoDS_Shape sane = SaneFacesOf(cylinderWithRange(0.0, 1e20));

    EXPECT_EQ(ShapeParts(sane).Faces().Extent(), 1);
}

} // namespace
} // namespace OrvikCad
