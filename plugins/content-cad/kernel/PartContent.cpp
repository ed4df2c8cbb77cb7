#include "kernel/PartContent.h"

#include "interface/CadMessages.h"

#include <BRep_Builder.hxx>
#include <TDF_LabelSequence.hxx>
#include <TopExp_Explorer.hxx>
#include <TopLoc_Location.hxx>
#include <TopoDS_Compound.hxx>
#include <TopoDS_Iterator.hxx>
#include <XCAFDoc_ShapeTool.hxx>
#include <gp_Trsf.hxx>

#include <algorithm>
#include <map>
#include <utility>

namespace OrvikCad {

using OrvikModel::NodeKind;
using TambVizCore::RGBAColor;

namespace {

constexpr wchar_t kBodyName[] = L"Body %1";
constexpr wchar_t kFacesName[] = L"Faces";
constexpr wchar_t kWireName[] = L"Wires";
constexpr wchar_t kPointsName[] = L"Points";

/// Sorts what lies in a part's compounds.
class PieceCollector
{
public:
    void Add(const TopoDS_Shape& shape)
    {
        switch (shape.ShapeType()) {
        case TopAbs_COMPOUND:
        case TopAbs_COMPSOLID:
            addGroup(shape);
            return;
        case TopAbs_SOLID:
        case TopAbs_SHELL:
            addPiece(NodeKind::Body, shape, {});
            return;
        case TopAbs_FACE:
            m_faces.push_back(shape);
            return;
        case TopAbs_WIRE:
        case TopAbs_EDGE:
            m_edges.push_back(shape);
            return;
        case TopAbs_VERTEX:
            m_points.push_back(shape);
            return;
        case TopAbs_SHAPE:
            return;
        }
    }

    std::vector<PartPiece> Finish()
    {
        addLoose(NodeKind::Body, m_faces, kFacesName);
        addLoose(NodeKind::Wire, m_edges, kWireName);
        addLoose(NodeKind::PointSet, m_points, kPointsName);
        return std::move(m_pieces);
    }

private:
    /// Faces that a compound inside the part holds together are a body; a single one is loose.
    void addGroup(const TopoDS_Shape& compound)
    {
        const std::size_t before = m_faces.size();
        const bool isInside = std::exchange(m_isInside, true);
        bool hasOthers = false;
        for (TopoDS_Iterator children(compound); children.More(); children.Next()) {
            hasOthers = hasOthers || children.Value().ShapeType() != TopAbs_FACE;
            Add(children.Value());
        }
        m_isInside = isInside;
        if (!isInside || m_faces.size() < before + 2)
            return;
        const std::vector<TopoDS_Shape> faces(m_faces.begin() + static_cast<std::ptrdiff_t>(before),
                                              m_faces.end());
        m_faces.resize(before);
        if (hasOthers)
            addLoose(NodeKind::Body, faces, L"");
        else // Itself, so that what the document says of it is found.
            addPiece(NodeKind::Body, compound, {});
    }

    void addPiece(NodeKind kind, const TopoDS_Shape& shape, std::wstring name)
    {
        PartPiece piece;
        piece.kind = kind;
        piece.placed = shape;
        piece.name = std::move(name);
        m_pieces.push_back(std::move(piece));
    }

    void addLoose(NodeKind kind, const std::vector<TopoDS_Shape>& loose, const wchar_t* name)
    {
        if (loose.size() == 1)
            addPiece(kind, loose.front(), name);
        if (loose.size() < 2)
            return;
        const BRep_Builder builder;
        TopoDS_Compound compound;
        builder.MakeCompound(compound);
        for (const TopoDS_Shape& shape : loose)
            builder.Add(compound, shape);
        addPiece(kind, compound, name);
    }

    std::vector<PartPiece> m_pieces;
    bool m_isInside = false; ///< Of a compound.
    std::vector<TopoDS_Shape> m_faces;
    std::vector<TopoDS_Shape> m_edges;
    std::vector<TopoDS_Shape> m_points;
};

Appearance::ColorOf colorOf(NodeKind kind)
{
    return kind == NodeKind::Body ? Appearance::ColorOf::Surface : Appearance::ColorOf::Curve;
}

/// What a label below a part says of one of its sub-shapes.
struct SubShape
{
    TDF_Label label;
    TopoDS_Shape shape;
};

/// Gives colours of faces, edges and vertices to the pieces that hold them.
class PartColoring
{
public:
    PartColoring(const Appearance& appearance, PartPiece& piece)
        : m_appearance(appearance), m_piece(piece), m_toShape(piece.placed.Location().Inverted())
    {
    }

    void Take(const SubShape& sub)
    {
        const bool isLine = sub.shape.ShapeType() == TopAbs_EDGE ||
                            sub.shape.ShapeType() == TopAbs_WIRE ||
                            sub.shape.ShapeType() == TopAbs_VERTEX;
        const auto color = m_appearance.Color(sub.label, isLine ? Appearance::ColorOf::Curve
                                                                : Appearance::ColorOf::Surface);
        if (!color)
            return;
        if (sub.shape.ShapeType() >= TopAbs_FACE && sub.shape.ShapeType() != TopAbs_WIRE) {
            set(sub.shape, *color, /*isOwn=*/true);
            return;
        }
        const TopAbs_ShapeEnum inside =
            sub.shape.ShapeType() == TopAbs_WIRE ? TopAbs_EDGE : TopAbs_FACE;
        for (TopExp_Explorer parts(sub.shape, inside); parts.More(); parts.Next())
            set(parts.Current(), *color, /*isOwn=*/false);
    }

    void Finish() { m_piece.partColors.assign(m_colors.begin(), m_colors.end()); }

private:
    /// A colour of its own wins over that of a shell around it, whichever comes first.
    void set(const TopoDS_Shape& part, const RGBAColor& color, bool isOwn)
    {
        const std::uint64_t id =
            m_piece.shape->Parts().IdOf(part.Located(m_toShape * part.Location()));
        if (id == 0)
            return;
        if (isOwn)
            m_colors[id] = color;
        else
            m_colors.try_emplace(id, color);
    }

    const Appearance& m_appearance;
    PartPiece& m_piece;
    TopLoc_Location m_toShape;
    std::map<std::uint64_t, RGBAColor> m_colors;
};

std::vector<SubShape> subShapesOf(const TDF_Label& label)
{
    std::vector<SubShape> subs;
    TDF_LabelSequence labels;
    XCAFDoc_ShapeTool::GetSubShapes(label, labels);
    for (const TDF_Label& sub : labels) {
        const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(sub);
        if (!shape.IsNull())
            subs.push_back({sub, shape});
    }
    return subs;
}

/// Takes over what the piece's own label says.
void takeOwnLabel(PartPiece& piece, const TDF_Label& label, const Appearance& appearance)
{
    piece.label = label;
    const std::wstring name = NameOf(label);
    if (!name.empty())
        piece.name = name;
    piece.color = appearance.Color(label, colorOf(piece.kind));
    piece.layers = appearance.Layers(label);
    piece.isShown = appearance.IsShown(label);
}

void readSubShapes(PartContent& part, const std::vector<SubShape>& subs,
                   const Appearance& appearance)
{
    for (PartPiece& piece : part.pieces) {
        PartColoring coloring(appearance, piece);
        for (const SubShape& sub : subs)
            if (sub.shape.IsSame(piece.placed))
                takeOwnLabel(piece, sub.label, appearance);
            else
                coloring.Take(sub);
        coloring.Finish();
    }
}

} // namespace

PartContent ReadPart(const TDF_Label& label, const Appearance& appearance, ShapeCatalog& shapes,
                     const std::wstring& fallbackName)
{
    PartContent part;
    part.name = NameOf(label);
    if (part.name.empty())
        part.name = fallbackName;
    part.layers = appearance.Layers(label);
    part.isShown = appearance.IsShown(label);
    const TopoDS_Shape shape = XCAFDoc_ShapeTool::GetShape(label);
    if (shape.IsNull())
        return part;
    PieceCollector collector;
    collector.Add(shape);
    part.pieces = collector.Finish();
    part.color = appearance.Color(label, part.pieces.empty() ? Appearance::ColorOf::Surface
                                                             : colorOf(part.pieces.front().kind));
    std::size_t bodies = 0;
    for (PartPiece& piece : part.pieces) {
        if (piece.name.empty())
            piece.name = FillText(kBodyName, {std::to_wstring(++bodies)});
        piece.shape = shapes.Get(
            piece.placed, part.pieces.size() == 1 ? part.name : part.name + L", " + piece.name);
        piece.transform = ToTransform(piece.placed.Location());
    }
    readSubShapes(part, subShapesOf(label), appearance);
    return part;
}

std::optional<std::vector<double>> ToTransform(const TopLoc_Location& location)
{
    if (location.IsIdentity())
        return std::nullopt;
    const gp_Trsf transform = location.Transformation();
    std::vector<double> matrix(16, 0.0);
    for (int row = 1; row <= 3; ++row)
        for (int column = 1; column <= 4; ++column)
            matrix[static_cast<std::size_t>((column - 1) * 4 + row - 1)] =
                transform.Value(row, column);
    matrix[15] = 1.0;
    return matrix;
}

} // namespace OrvikCad
