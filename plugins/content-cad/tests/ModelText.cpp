#include "tests/ModelText.h"

#include "kernel/CadShape.h"

#include <OrvikOs/Utf8.h>

#include <BRepGProp.hxx>
#include <GProp_GProps.hxx>

#include <cmath>
#include <cstdio>

namespace OrvikCad {

namespace {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;

std::string number(double value)
{
    char digits[32];
    std::snprintf(digits, sizeof digits, "%.4g", std::abs(value) < 1e-6 ? 0.0 : value);
    return digits;
}

std::string colorText(const TambVizCore::RGBAColor& color)
{
    char text[64];
    std::snprintf(text, sizeof text, "%.2f/%.2f/%.2f/%.2f", static_cast<double>(color.r),
                  static_cast<double>(color.g), static_cast<double>(color.b),
                  static_cast<double>(color.a));
    return text;
}

std::string shapeText(const OrvikModel::ModelShape& shape)
{
    const auto& cad = dynamic_cast<const CadShape&>(shape);
    GProp_GProps volume;
    GProp_GProps area;
    BRepGProp::VolumeProperties(cad.Shape(), volume, /*OnlyClosed=*/true);
    BRepGProp::SurfaceProperties(cad.Shape(), area);
    return " faces=" + std::to_string(cad.Parts().Faces().Extent()) +
           " edges=" + std::to_string(cad.Parts().Edges().Extent()) +
           " vertices=" + std::to_string(cad.Parts().Vertices().Extent()) +
           " volume=" + number(volume.Mass()) + " area=" + number(area.Mass());
}

void describe(const ModelNode& node, int depth, const ModelTextOptions& options, std::string& text)
{
    if (node.kind >= NodeKind::PmiSet)
        return;
    if (options.structure || node.shape) {
        text += std::string(options.structure ? static_cast<std::size_t>(depth) * 2 : 0, ' ');
        text += "kind=" + std::to_string(static_cast<int>(node.kind));
        if (options.names)
            text += " \"" + OrvikOs::WideToUtf8(node.name) + "\"";
        if (options.structure && node.transform)
            for (int i : {12, 13, 14, 0, 1})
                text += " " + number((*node.transform)[static_cast<std::size_t>(i)]);
        if (options.colors && node.color)
            text += " color=" + colorText(*node.color);
        if (options.layers)
            for (const std::wstring& layer : node.layers)
                text += " layer=" + OrvikOs::WideToUtf8(layer);
        if (node.shape)
            text += shapeText(*node.shape);
        if (options.colors)
            for (const auto& [part, color] : node.partColors)
                text += " part=" + std::to_string(part) + ":" + colorText(color);
        text += "\n";
    }
    for (const auto& child : node.children)
        describe(*child, depth + 1, options, text);
}

} // namespace

std::string ModelText(const OrvikModel::Model& model, const ModelTextOptions& options)
{
    std::string text;
    for (const auto& node : model.nodes)
        describe(*node, 0, options, text);
    return text;
}

} // namespace OrvikCad
