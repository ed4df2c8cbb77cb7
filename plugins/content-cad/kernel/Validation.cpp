#include "kernel/Validation.h"

#include "kernel/KernelWatch.h"

#include <BRepBndLib.hxx>
#include <BRepGProp.hxx>
#include <Bnd_Box.hxx>
#include <GProp_GProps.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopExp_Explorer.hxx>
#include <XCAFDoc_Area.hxx>
#include <XCAFDoc_Centroid.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <XCAFDoc_Volume.hxx>

#include <algorithm>
#include <charconv>
#include <cmath>
#include <optional>

namespace OrvikCad {

namespace {

constexpr wchar_t kValueDiffers[] = L"\"%1\": the file says its %2 is %3, its shape has %4 (%5)";
constexpr wchar_t kVolume[] = L"volume";
constexpr wchar_t kArea[] = L"area";
constexpr wchar_t kCentroid[] = L"centroid";
constexpr wchar_t kUnnamed[] = L"unnamed body";

/// What a file says of one body, in millimetres.
struct Claim
{
    std::optional<double> volume;
    std::optional<double> area;
    std::optional<gp_Pnt> centroid;
};

Claim claimOf(const TDF_Label& label)
{
    Claim claim;
    Handle(XCAFDoc_Volume) volume;
    Handle(XCAFDoc_Area) area;
    Handle(XCAFDoc_Centroid) centroid;
    if (label.FindAttribute(XCAFDoc_Volume::GetID(), volume))
        claim.volume = volume->Get();
    if (label.FindAttribute(XCAFDoc_Area::GetID(), area))
        claim.area = area->Get();
    if (label.FindAttribute(XCAFDoc_Centroid::GetID(), centroid))
        claim.centroid = centroid->Get();
    return claim;
}

std::wstring text(double value)
{
    char digits[64];
    const auto end =
        std::to_chars(digits, digits + sizeof digits, value, std::chars_format::general, 7);
    return {digits, end.ptr};
}

std::wstring text(const gp_Pnt& point)
{
    return L"(" + text(point.X()) + L" " + text(point.Y()) + L" " + text(point.Z()) + L")";
}

/// False also where a value is no number.
bool isClose(double a, double b, double scale)
{
    return std::abs(a - b) <= kValidationTolerance * scale;
}

double diagonalOf(const TopoDS_Shape& shape)
{
    Bnd_Box box;
    BRepBndLib::Add(shape, box, /*useTriangulation=*/false);
    return box.IsVoid() ? 0.0 : std::sqrt(box.SquareExtent());
}

bool hasOnly(const TopoDS_Shape& shape, TopAbs_ShapeEnum kind)
{
    return TopExp_Explorer(shape, kind).More() &&
           !TopExp_Explorer(shape, TopAbs_FACE, kind).More() &&
           !TopExp_Explorer(shape, TopAbs_EDGE, TopAbs_FACE).More();
}

/// Compares one body.
class BodyCheck
{
public:
    BodyCheck(const TDF_Label& label, CadMessages& messages)
        : m_shape(XCAFDoc_ShapeTool::GetShape(label)), m_messages(messages), m_name(NameOf(label))
    {
        if (m_name.empty())
            m_name = kUnnamed;
    }

    void Run(const Claim& claim)
    {
        if (m_shape.IsNull() || (!claim.volume && !claim.area))
            return;
        if (hasOnly(m_shape, TopAbs_SOLID))
            checkSolids(claim);
        else if (hasOnly(m_shape, TopAbs_FACE))
            checkFaces(claim);
    }

private:
    void checkSolids(const Claim& claim)
    {
        GProp_GProps volume;
        BRepGProp::VolumeProperties(m_shape, volume);
        if (claim.volume)
            compare(kVolume, *claim.volume, volume.Mass(), L"mm\u00B3");
        if (claim.area)
            checkArea(*claim.area);
        if (claim.centroid)
            compare(*claim.centroid, volume.CentreOfMass());
    }

    void checkFaces(const Claim& claim)
    {
        GProp_GProps area;
        BRepGProp::SurfaceProperties(m_shape, area);
        if (claim.area)
            compare(kArea, *claim.area, area.Mass(), L"mm\u00B2");
        if (claim.centroid)
            compare(*claim.centroid, area.CentreOfMass());
    }

    void checkArea(double claimed)
    {
        GProp_GProps area;
        BRepGProp::SurfaceProperties(m_shape, area);
        compare(kArea, claimed, area.Mass(), L"mm\u00B2");
    }

    void compare(const wchar_t* what, double claimed, double found, const wchar_t* unit)
    {
        if (!isClose(claimed, found, std::max(std::abs(claimed), std::abs(found))))
            warn(what, text(claimed), text(found), unit);
    }

    void compare(const gp_Pnt& claimed, const gp_Pnt& found)
    {
        if (!isClose(claimed.Distance(found), 0.0, diagonalOf(m_shape)))
            warn(kCentroid, text(claimed), text(found), L"mm");
    }

    void warn(const wchar_t* what, const std::wstring& claimed, const std::wstring& found,
              const wchar_t* unit)
    {
        m_messages.Warn(FillText(kValueDiffers, {m_name, what, claimed, found, unit}));
    }

    TopoDS_Shape m_shape;
    CadMessages& m_messages;
    std::wstring m_name;
};

} // namespace

void CheckValidation(ReadContext& context)
{
    TDF_LabelSequence labels;
    XCAFDoc_DocumentTool::ShapeTool(context.document.Main())->GetShapes(labels);
    for (const TDF_Label& label : labels) {
        PollJob();
        if (XCAFDoc_ShapeTool::IsSimpleShape(label))
            BodyCheck(label, context.messages).Run(claimOf(label));
    }
}

} // namespace OrvikCad
