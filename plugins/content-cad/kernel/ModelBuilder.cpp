#include "kernel/ModelBuilder.h"

#include "interface/CadTexts.h"
#include "kernel/KernelWatch.h"

#include <XCAFDoc_DocumentTool.hxx>
#include <XCAFDoc_ShapeTool.hxx>

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace OrvikCad {

using OrvikModel::ModelNode;
using OrvikModel::NodeKind;
using TambVizCore::RGBAColor;

ModelBuilder::ModelBuilder(ReadContext& context, std::wstring fallbackName, std::size_t maxNodes)
    : m_context(context),
      m_appearance(context.document),
      m_fallbackName(std::move(fallbackName)),
      m_maxNodes(maxNodes)
{
}

void ModelBuilder::Build()
{
    TDF_LabelSequence tops;
    XCAFDoc_DocumentTool::ShapeTool(m_context.document.Main())->GetFreeShapes(tops);
    for (const TDF_Label& top : tops)
        if (Node node = makeDefinition(top, m_fallbackName))
            m_context.model.nodes.push_back(std::move(node));
    for (const Node& node : m_context.model.nodes)
        dropBadPlaces(*node);
}

/// A place whose numbers a view cannot hold is left out, with a warning.
void ModelBuilder::dropBadPlaces(ModelNode& node)
{
    const auto isUsable = [](double number) {
        return std::abs(number) <= double{std::numeric_limits<float>::max()};
    };
    if (node.transform && !std::all_of(node.transform->begin(), node.transform->end(), isUsable)) {
        node.transform.reset();
        m_context.messages.Warn(FillText(kBadPlace, {node.name}));
    }
    for (const Node& child : node.children)
        dropBadPlaces(*child);
}

/// @return false when the model is full; tells it once.
bool ModelBuilder::takeNode()
{
    if (m_nodeCount % 1024 == 0)
        PollJob();
    if (++m_nodeCount <= m_maxNodes)
        return true;
    m_context.messages.Warn(FillText(kTooManyNodes, {std::to_wstring(m_maxNodes)}));
    return false;
}

ModelBuilder::Node ModelBuilder::makeDefinition(const TDF_Label& label,
                                                const std::wstring& fallbackName)
{
    return XCAFDoc_ShapeTool::IsAssembly(label) ? makeAssembly(label, fallbackName)
                                                : makePart(label, fallbackName);
}

ModelBuilder::Node ModelBuilder::makeAssembly(const TDF_Label& label,
                                              const std::wstring& fallbackName)
{
    if (!takeNode())
        return nullptr;
    auto node = std::make_unique<ModelNode>();
    node->kind = NodeKind::Assembly;
    node->name = NameOf(label);
    if (node->name.empty())
        node->name = fallbackName;
    node->layers = m_appearance.Layers(label);
    node->isShown = m_appearance.IsShown(label);
    node->color = m_appearance.Color(label, Appearance::ColorOf::Surface);
    m_context.nodes.Add(label, *node);
    if (m_components.Length() >= static_cast<int>(kMaxAssemblyDepth)) {
        m_context.messages.Warn(FillText(kTooDeep, {std::to_wstring(kMaxAssemblyDepth)}));
        return node;
    }
    TDF_LabelSequence components;
    XCAFDoc_ShapeTool::GetComponents(label, components);
    for (const TDF_Label& component : components)
        if (Node child = makeComponent(component, node->name))
            node->children.push_back(std::move(child));
    return node;
}

ModelBuilder::Node ModelBuilder::makeComponent(const TDF_Label& component,
                                               const std::wstring& fallbackName)
{
    TDF_Label referred;
    if (!XCAFDoc_ShapeTool::GetReferredShape(component, referred) || !takeNode())
        return nullptr;
    auto node = std::make_unique<ModelNode>();
    node->kind = NodeKind::AssemblyReference;
    node->transform = ToTransform(XCAFDoc_ShapeTool::GetLocation(component));
    node->layers = m_appearance.Layers(component);
    node->isShown = m_appearance.IsShown(component);
    m_components.Append(component);
    node->color = placementColor();
    Node child = makeDefinition(referred, fallbackName);
    m_components.Remove(m_components.Length());
    if (!child)
        return nullptr;
    node->name = NameOf(component);
    if (node->name.empty())
        node->name = child->name;
    m_context.nodes.Add(component, *node);
    node->children.push_back(std::move(child));
    return node;
}

/// The colour that the innermost component gives to what it places.
std::optional<RGBAColor> ModelBuilder::placementColor() const
{
    if (m_components.IsEmpty())
        return std::nullopt;
    // A chain may begin at any component above; the longest one is the most particular.
    for (int first = 1; first < m_components.Length(); ++first) {
        TDF_LabelSequence chain;
        for (int i = first; i <= m_components.Length(); ++i)
            chain.Append(m_components(i));
        if (const auto color = m_appearance.PlacementColor(chain))
            return color;
    }
    return m_appearance.Color(m_components.Last(), Appearance::ColorOf::Surface);
}

const PartContent& ModelBuilder::partOf(const TDF_Label& label, const std::wstring& fallbackName)
{
    std::unique_ptr<PartContent>& part = m_parts[label];
    if (!part)
        part = std::make_unique<PartContent>(
            ReadPart(label, m_appearance, m_context.shapes, fallbackName));
    return *part;
}

ModelBuilder::Node ModelBuilder::makePart(const TDF_Label& label, const std::wstring& fallbackName)
{
    const PartContent& part = partOf(label, fallbackName);
    const std::optional<RGBAColor> color = placementColor();
    Node node;
    if (part.pieces.size() == 1) {
        node = makePiece(part.pieces.front(), part, color);
        if (!node)
            return nullptr;
        node->name = part.name;
        node->isShown = node->isShown && part.isShown;
        if (node->layers.empty())
            node->layers = part.layers;
    } else {
        if (!takeNode())
            return nullptr;
        node = std::make_unique<ModelNode>();
        node->kind = NodeKind::Assembly;
        node->name = part.name;
        node->layers = part.layers;
        node->isShown = part.isShown;
        node->color = part.color;
        for (const PartPiece& piece : part.pieces)
            if (Node child = makePiece(piece, part, color))
                node->children.push_back(std::move(child));
    }
    m_context.nodes.Add(label, *node);
    return node;
}

ModelBuilder::Node ModelBuilder::makePiece(const PartPiece& piece, const PartContent& part,
                                           const std::optional<RGBAColor>& placementColor)
{
    if (!takeNode())
        return nullptr;
    auto node = std::make_unique<ModelNode>();
    node->kind = piece.kind;
    node->name = piece.name;
    node->transform = piece.transform;
    node->layers = piece.layers;
    node->isShown = piece.isShown;
    node->shape = piece.shape;
    node->partColors = piece.partColors;
    if (piece.kind == NodeKind::PointSet)
        node->pointSizePixels = OrvikModel::kPointSetPixels;
    node->color = placementColor ? placementColor : piece.color ? piece.color : part.color;
    if (!piece.label.IsNull())
        m_context.nodes.Add(piece.label, *node);
    return node;
}

} // namespace OrvikCad
