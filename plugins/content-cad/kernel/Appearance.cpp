#include "kernel/Appearance.h"

#include "kernel/KernelText.h"

#include <Quantity_ColorRGBA.hxx>
#include <TColStd_HSequenceOfExtendedString.hxx>
#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_GraphNode.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <cmath>

namespace OrvikCad {

using TambVizCore::RGBAColor;

namespace {

std::uint8_t toByte(double value)
{
    return static_cast<std::uint8_t>(std::lround(std::clamp(value, 0.0, 1.0) * 255.0));
}

/// The kernel keeps colours linear.
RGBAColor toColor(const Quantity_ColorRGBA& color)
{
    double red = 0.0;
    double green = 0.0;
    double blue = 0.0;
    color.GetRGB().Values(red, green, blue, Quantity_TOC_sRGB);
    return {toByte(red), toByte(green), toByte(blue), toByte(color.Alpha())};
}

} // namespace

Appearance::Appearance(const CadDocument& document)
    : m_colors(XCAFDoc_DocumentTool::ColorTool(document.Main())),
      m_layers(XCAFDoc_DocumentTool::LayerTool(document.Main()))
{
}

std::optional<RGBAColor> Appearance::Color(const TDF_Label& label, ColorOf what) const
{
    const XCAFDoc_ColorType first =
        what == ColorOf::Surface ? XCAFDoc_ColorSurf : XCAFDoc_ColorCurv;
    const XCAFDoc_ColorType last = what == ColorOf::Surface ? XCAFDoc_ColorCurv : XCAFDoc_ColorSurf;
    Quantity_ColorRGBA color;
    for (const XCAFDoc_ColorType type : {first, XCAFDoc_ColorGen, last})
        if (m_colors->GetColor(label, type, color))
            return toColor(color);
    return std::nullopt;
}

std::optional<RGBAColor> Appearance::PlacementColor(const TDF_LabelSequence& components) const
{
    Handle(XCAFDoc_GraphNode) usage;
    if (components.Length() < 2 || !XCAFDoc_ShapeTool::FindSHUO(components, usage))
        return std::nullopt;
    return Color(usage->Label(), ColorOf::Surface);
}

std::vector<std::wstring> Appearance::Layers(const TDF_Label& label) const
{
    std::vector<std::wstring> names;
    Handle(TColStd_HSequenceOfExtendedString) layers;
    if (!m_layers->GetLayers(label, layers) || layers.IsNull())
        return names;
    for (int i = 1; i <= layers->Length(); ++i)
        names.push_back(ToWide(layers->Value(i)));
    std::sort(names.begin(), names.end());
    names.erase(std::unique(names.begin(), names.end()), names.end());
    return names;
}

bool Appearance::IsShown(const TDF_Label& label) const
{
    if (!m_colors->IsVisible(label))
        return false;
    TDF_LabelSequence layers;
    if (!m_layers->GetLayers(label, layers) || layers.IsEmpty())
        return true;
    for (const TDF_Label& layer : layers)
        if (m_layers->IsVisible(layer))
            return true;
    return false;
}

} // namespace OrvikCad
