#ifndef ORVIKCAD_KERNEL_PARTCONTENT_H
#define ORVIKCAD_KERNEL_PARTCONTENT_H

#include "kernel/Appearance.h"
#include "kernel/ShapeCatalog.h"

#include <OrvikModel/Model.h>
#include <TDF_Label.hxx>
#include <TopoDS_Shape.hxx>

#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace OrvikCad {

/// One body, wire or set of points of a part.
struct PartPiece
{
    OrvikModel::NodeKind kind = OrvikModel::NodeKind::Body;
    TopoDS_Shape placed; ///< As it lies in the part.
    TDF_Label label;     ///< Of its own; null when the document has none for it.
    std::wstring name;
    std::shared_ptr<const CadShape> shape;
    std::optional<std::vector<double>> transform;
    std::optional<TambVizCore::RGBAColor> color;
    std::vector<std::wstring> layers;
    bool isShown = true;
    std::vector<std::pair<std::uint64_t, TambVizCore::RGBAColor>> partColors;
};

/// What a part of a document consists of. Read once, however many instances there are.
struct PartContent
{
    std::wstring name;
    std::optional<TambVizCore::RGBAColor> color;
    std::vector<std::wstring> layers;
    bool isShown = true;
    std::vector<PartPiece> pieces;
};

/// Reads the part behind a label: solids and shells become bodies, loose faces one body
/// for the part and one for each compound inside it that holds two or more, loose
/// edges one wire, loose vertices one set of points.
///
/// @param fallbackName  Used where the part has no name of its own.
PartContent ReadPart(const TDF_Label& label, const Appearance& appearance, ShapeCatalog& shapes,
                     const std::wstring& fallbackName);

/// @return the place as double[16], column-major; none for the identity.
std::optional<std::vector<double>> ToTransform(const TopLoc_Location& location);

} // namespace OrvikCad

#endif
