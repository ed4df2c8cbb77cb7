#include "ModelDocument.h"
#include "Shapes.h"
#include "TestModels.h"

#include <BRepAlgoAPI_Cut.hxx>
#include <BRepFilletAPI_MakeFillet.hxx>
#include <BRepPrimAPI_MakeCylinder.hxx>
#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <SheetFile.h>
#include <TopExp_Explorer.hxx>
#include <TopoDS.hxx>
#include <TopoDS_Compound.hxx>
#include <gp_Ax2.hxx>

#include <cmath>
#include <stdexcept>
#include <string>

namespace TestData {

namespace {

using std::filesystem::path;

constexpr double kSpacing = 60.0;
constexpr int kRow = 24; ///< Bodies side by side before the next row begins.

/// A block with rounded upright edges and three bores: thirteen faces less those of the edges that
/// stay sharp. No two numbers give the same body.
TopoDS_Shape roundedBlock(int number)
{
    const double x = 30 + number % 7;
    const double y = 20 + number % 5;
    const double z = 10 + 0.01 * number;
    TopoDS_Shape block = Block(x, y, z);

    BRepFilletAPI_MakeFillet fillet(block);
    int rounded = 0;
    for (TopExp_Explorer it(block, TopAbs_EDGE); it.More() && rounded < 2; it.Next()) {
        const TopoDS_Edge edge = TopoDS::Edge(it.Current());
        fillet.Add(2.0 + 0.1 * (number % 3), edge);
        it.Next(); // The next edge meets this one; a corner of two fillets is not wanted.
        ++rounded;
    }
    block = fillet.Shape();

    for (int bore = 0; bore < 3; ++bore) {
        const gp_Ax2 axis(gp_Pnt(x * (bore + 1.5) / 5, y / 2, -1), gp::DZ());
        block =
            BRepAlgoAPI_Cut(block, BRepPrimAPI_MakeCylinder(axis, 1.5 + 0.2 * bore, z + 2).Solid())
                .Shape();
    }
    return TopExp_Explorer(block, TopAbs_SOLID).Current();
}

Quantity_ColorRGBA colorOf(int number)
{
    const auto wave = [number](double phase) {
        return static_cast<float>(0.5 + 0.4 * std::sin(0.7 * number + phase));
    };
    return Color(wave(0), wave(2), wave(4));
}

enum class FileFormat
{
    Step,
    Iges,
};

/// @param bodies  How many different ones there are; they come in turn.
void writeAssembly(const path& file, int placements, int bodies, FileFormat format)
{
    ModelDocument model;
    const TDF_Label top = model.AddAssembly(u"assembly");
    std::vector<TDF_Label> labels;
    for (int i = 0; i < bodies; ++i) {
        const std::u16string name = u"body " + ToText(i);
        labels.push_back(model.AddBody(roundedBlock(i), name.c_str()));
        model.SetColor(labels.back(), colorOf(i));
    }
    for (int i = 0; i < placements; ++i) {
        const std::u16string name = u"place " + ToText(i);
        model.Place(top, labels[static_cast<std::size_t>(i % bodies)],
                    Move(i % kRow * kSpacing, i / kRow * kSpacing, 0), name.c_str());
    }
    if (format == FileFormat::Step)
        model.WriteStep(file, {});
    else
        model.WriteIges(file);
}

void writeParts96(const path& file)
{
    writeAssembly(file, 96, 96, FileFormat::Step);
}

void writeParts468(const path& file)
{
    writeAssembly(file, 468, 468, FileFormat::Step);
}

void writeParts1000(const path& file)
{
    writeAssembly(file, 1000, 1000, FileFormat::Step);
}

/// 10 million triangles.
void writeSheet(const path& file)
{
    WriteSheet(file, 2236);
}

void writeIges468(const path& file)
{
    writeAssembly(file, 468, 468, FileFormat::Iges);
}

void writeBrep1000(const path& file)
{
    const BRep_Builder builder;
    TopoDS_Compound all;
    builder.MakeCompound(all);
    for (int i = 0; i < 1000; ++i)
        builder.Add(all,
                    roundedBlock(i).Located(Move(i % kRow * kSpacing, i / kRow * kSpacing, 0)));
    if (!BRepTools::Write(all, file.c_str()))
        throw std::runtime_error("cannot write " + file.string());
}

void writeShared(const path& file)
{
    writeAssembly(file, 468, 4, FileFormat::Step);
}

} // namespace

std::vector<TestModel> LargeModels()
{
    return {
        {"parts_96.step", "96 different bodies, about 1,000 faces", writeParts96},
        {"parts_468.step", "468 different bodies, about 5,000 faces", writeParts468},
        {"parts_1000.step", "1,000 different bodies, about 40 MB", writeParts1000},
        {"parts_468.iges", "468 different bodies as IGES", writeIges468},
        {"bodies_1000.brep", "1,000 different bodies as BREP", writeBrep1000},
        {"shared_468.step", "468 placements of 4 bodies", writeShared},
        {"sheet_10m.stl", "one mesh of 10 million triangles, 500 MB", writeSheet},
    };
}

} // namespace TestData
