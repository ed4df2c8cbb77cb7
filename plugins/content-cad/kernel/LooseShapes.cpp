#include "kernel/LooseShapes.h"

#include "kernel/Appearance.h"
#include "kernel/KernelText.h"
#include "kernel/KernelWatch.h"

#include <BRep_Builder.hxx>
#include <Quantity_ColorRGBA.hxx>
#include <TDF_LabelSequence.hxx>
#include <TDataStd_Name.hxx>
#include <TopoDS_Compound.hxx>
#include <XCAFDoc_ColorTool.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_LayerTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace OrvikCad {

namespace {

/// What may be joined, in the order of the shapes that come of it.
enum class Loose
{
    Surface,
    Curve,
    Point,
    None,
};

Loose kindOf(const TopoDS_Shape& shape)
{
    if (shape.IsNull())
        return Loose::None;
    switch (shape.ShapeType()) {
    case TopAbs_FACE:
        return Loose::Surface;
    case TopAbs_WIRE:
    case TopAbs_EDGE:
        return Loose::Curve;
    case TopAbs_VERTEX:
        return Loose::Point;
    default:
        return Loose::None;
    }
}

const char* nameOf(Loose kind)
{
    return kind == Loose::Surface ? "Surfaces" : kind == Loose::Curve ? "Curves" : "Points";
}

/// Loose shapes that belong together: of one kind, on the same layers, shown or not.
using Group = std::tuple<Loose, std::vector<std::wstring>, bool>;

class Joiner
{
public:
    explicit Joiner(CadDocument& document)
        : m_shapes(XCAFDoc_DocumentTool::ShapeTool(document.Main())),
          m_colors(XCAFDoc_DocumentTool::ColorTool(document.Main())),
          m_layers(XCAFDoc_DocumentTool::LayerTool(document.Main())),
          m_appearance(document)
    {
    }

    void Run()
    {
        TDF_LabelSequence tops;
        m_shapes->GetFreeShapes(tops);
        for (const TDF_Label& top : tops) {
            const Loose kind = kindOf(XCAFDoc_ShapeTool::GetShape(top));
            if (kind != Loose::None && NameOf(top).empty())
                m_groups[{kind, m_appearance.Layers(top), m_appearance.IsShown(top)}].push_back(
                    top);
        }
        for (const auto& [group, members] : m_groups)
            if (members.size() > 1)
                join(group, members);
    }

private:
    void join(const Group& group, const std::vector<TDF_Label>& members)
    {
        const BRep_Builder builder;
        TopoDS_Compound compound;
        builder.MakeCompound(compound);
        for (const TDF_Label& member : members)
            builder.Add(compound, XCAFDoc_ShapeTool::GetShape(member));
        const TDF_Label joined = m_shapes->AddShape(compound, /*makeAssembly=*/false);
        TDataStd_Name::Set(joined, nameOf(std::get<Loose>(group)));
        for (const std::wstring& layer : std::get<std::vector<std::wstring>>(group))
            m_layers->SetLayer(joined, ToKernel(layer));
        m_colors->SetVisibility(joined, std::get<bool>(group));
        for (const TDF_Label& member : members) {
            PollJob();
            copyColors(member, m_shapes->AddSubShape(joined, XCAFDoc_ShapeTool::GetShape(member)));
            m_shapes->RemoveShape(member, /*removeCompletely=*/true);
        }
    }

    void copyColors(const TDF_Label& from, const TDF_Label& to)
    {
        if (to.IsNull())
            return;
        for (const XCAFDoc_ColorType type :
             {XCAFDoc_ColorGen, XCAFDoc_ColorSurf, XCAFDoc_ColorCurv}) {
            Quantity_ColorRGBA color;
            if (m_colors->GetColor(from, type, color))
                m_colors->SetColor(to, color, type);
        }
    }

    Handle(XCAFDoc_ShapeTool) m_shapes;
    Handle(XCAFDoc_ColorTool) m_colors;
    Handle(XCAFDoc_LayerTool) m_layers;
    Appearance m_appearance;
    std::map<Group, std::vector<TDF_Label>> m_groups;
};

} // namespace

void JoinLooseShapes(CadDocument& document)
{
    Joiner(document).Run();
}

} // namespace OrvikCad
