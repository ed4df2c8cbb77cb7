#include "kernel/ShapeParts.h"

#include "kernel/KernelText.h"
#include "kernel/ShapeCatalog.h"

#include <TambVizCore/Geometry.h>

#include <BRepPrimAPI_MakeBox.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <gp_Trsf.hxx>
#include <gtest/gtest.h>

namespace OrvikCad {
namespace {

TopoDS_Shape placedAt(const TopoDS_Shape& shape, double x)
{
    gp_Trsf transform;
    transform.SetTranslation(gp_Vec(x, 0.0, 0.0));
    return shape.Moved(TopLoc_Location(transform));
}

TEST(ShapeParts, NumbersEachPartOnce)
{
    const ShapeParts parts(BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape());

    EXPECT_EQ(parts.Faces().Extent(), 6);
    EXPECT_EQ(parts.Edges().Extent(), 12);
    EXPECT_EQ(parts.Vertices().Extent(), 8);
}

TEST(ShapeParts, FindsWhatItGaveAnId)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape();
    const ShapeParts parts(box);

    for (TopExp_Explorer faces(box, TopAbs_FACE); faces.More(); faces.Next())
        EXPECT_TRUE(parts.Find(parts.IdOf(faces.Current())).IsSame(faces.Current()));
    EXPECT_EQ(parts.IdOf(box), 0u);
    EXPECT_TRUE(parts.Find(TambVizCore::MakePartId(TambVizCore::PartKind::Face, 6)).IsNull());
}

TEST(ShapeCatalog, SharesShapesThatDifferByPlaceOnly)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape();
    ShapeCatalog catalog;

    const auto here = catalog.Get(box, L"Box");
    const auto there = catalog.Get(placedAt(box, 10.0), L"Other");

    EXPECT_EQ(here, there);
    ASSERT_EQ(catalog.Entries().size(), 1u);
    EXPECT_EQ(catalog.Entries()[0].name, L"Box");
}

TEST(ShapeCatalog, KeepsMirroredOrientationsApart)
{
    const TopoDS_Shape box = BRepPrimAPI_MakeBox(1.0, 2.0, 3.0).Shape();
    ShapeCatalog catalog;

    EXPECT_NE(catalog.Get(box, L"Box"), catalog.Get(box.Reversed(), L"Inside out"));
}

TEST(KernelText, CarriesEveryScriptBothWays)
{
    const std::wstring text = L"A\u00e4\u0416\u65e5\U0001f600";

    EXPECT_EQ(ToWide(ToKernel(text)), text);
}

} // namespace
} // namespace OrvikCad
