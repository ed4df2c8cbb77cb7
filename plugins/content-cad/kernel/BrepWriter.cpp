#include "kernel/BrepWriter.h"

#include "interface/CadTexts.h"

#include <BRepTools.hxx>
#include <BRep_Builder.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <locale>
#include <sstream>

namespace OrvikCad {

namespace {

/// @return the top shape, or a compound of them; null where there is none.
TopoDS_Shape wholeShape(const CadDocument& document)
{
    TDF_LabelSequence tops;
    XCAFDoc_DocumentTool::ShapeTool(document.Main())->GetFreeShapes(tops);
    if (tops.Length() == 1)
        return XCAFDoc_ShapeTool::GetShape(tops.First());
    TopoDS_Compound all;
    BRep_Builder builder;
    for (const TDF_Label& top : tops) {
        const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(top);
        if (shape.IsNull())
            continue;
        if (all.IsNull())
            builder.MakeCompound(all);
        builder.Add(all, shape);
    }
    return all;
}

} // namespace

bool MakeBrepText(const CadDocument& document, std::string& text, CadMessages& messages)
{
    const TopoDS_Shape shape = wholeShape(document);
    std::ostringstream stream;
    stream.imbue(std::locale::classic());
    if (!shape.IsNull())
        BRepTools::Write(shape, stream, /*theWithTriangles=*/false, /*theWithNormals=*/false,
                         TopTools_FormatVersion_VERSION_1);
    if (shape.IsNull() || !stream) {
        messages.Fail(FillText(kNothingWritten, {L"BREP"}));
        return false;
    }
    text = std::move(stream).str();
    return true;
}

} // namespace OrvikCad
