#include "Info.h"

#include "JsonText.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/IGeometryIndex.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizBox.h>

#include <cstddef>
#include <cstdint>
#include <iterator>
#include <set>
#include <vector>

namespace PelluxBatch {
namespace {

using TambVizCore::Utils;

struct ContentInfo
{
    std::wstring name, path;
    std::string type;
    bool hasBox = false;
    TambVizCore::VizBox box;
};

/// What a node of the scene is, by what it draws.
enum class Drawn : std::size_t
{
    Solid,      ///< Triangles that close a solid.
    Surface,    ///< Other triangles.
    Wire,       ///< Lines alone.
    Points,     ///< Points alone.
    Annotation, ///< PMI.
    Nothing,    ///< As bodies of a product structure.
};

/// How one of a kind is called, and several; in the order of Drawn.
constexpr const char* kKindNames[][2] = {
    {"solid", "solids"},         {"surface", "surfaces"},       {"wire", "wires"},
    {"point set", "point sets"}, {"annotation", "annotations"}, {"empty body", "empty bodies"}};
constexpr std::size_t kKindCount = std::size(kKindNames);

/// What is counted of the scene; instances count each time they are drawn, bytes once.
struct SceneCounts
{
    std::uint64_t kinds[kKindCount] = {};
    std::uint64_t triangles = 0, segments = 0, points = 0, vertices = 0, bytes = 0;
    std::set<const TambVizCore::Geometry*> seen;
};

Drawn kindOf(const TambVizCore::GeoNode& node, const TambVizCore::Geometry& geometry)
{
    if (node.GetCategory() == TambVizCore::GeoNode::Category::PMI)
        return Drawn::Annotation;
    if (geometry.TriangleCount() > 0)
        return geometry.IsClosed() ? Drawn::Solid : Drawn::Surface;
    if (geometry.SegmentCount() > 0)
        return Drawn::Wire;
    return geometry.PointCount() > 0 ? Drawn::Points : Drawn::Nothing;
}

/// @return the bytes of a geometry with its spatial index, which the first pick makes.
std::size_t bytesOf(const TambVizCore::Geometry& geometry)
{
    const TambVizCore::IGeometryIndex* const index = geometry.Index();
    return geometry.MemoryBytes() + (index != nullptr ? index->MemoryBytes() : 0);
}

void count(const TambVizCore::Node& node, SceneCounts& counts)
{
    const TambVizCore::GeoNode* const drawn = node.AsGeoNode();
    if (node.IsAuxiliary())
        return;
    if (drawn != nullptr && drawn->GetGeometry() != nullptr) {
        const TambVizCore::Geometry& geometry = *drawn->GetGeometry();
        ++counts.kinds[static_cast<std::size_t>(kindOf(*drawn, geometry))];
        counts.triangles += geometry.TriangleCount();
        counts.segments += geometry.SegmentCount();
        counts.points += geometry.PointCount();
        counts.vertices += geometry.VertexCount();
        if (counts.seen.insert(&geometry).second)
            counts.bytes += bytesOf(geometry);
    }
    for (std::size_t i = 0; i < node.ChildCount(); ++i)
        count(*node.ChildAt(i), counts);
}

std::vector<ContentInfo> describeContents(OrvikCore::ASession& session)
{
    std::vector<ContentInfo> contents;
    for (OrvikCore::AContent* const content : session.Document().GetContentList()) {
        if (content == nullptr)
            continue;
        ContentInfo info;
        info.name = content->GetShortId();
        info.path = content->GetLongId();
        info.type = content->GetTypeName();
        info.hasBox = content->GetBoundingBox(info.box);
        contents.push_back(info);
    }
    return contents;
}

SceneCounts countScene(OrvikCore::ASession& session)
{
    SceneCounts counts;
    if (TambVizCore::IView3D* const view = session.View3D())
        count(view->GetSceneRoot(), counts);
    return counts;
}

/// "18 solids, 1 wire"; "none" for an empty scene.
std::string kindsText(const SceneCounts& counts)
{
    std::string text;
    for (std::size_t kind = 0; kind < kKindCount; ++kind)
        if (counts.kinds[kind] > 0)
            text += (text.empty() ? "" : ", ") + std::to_string(counts.kinds[kind]) + " " +
                    kKindNames[kind][counts.kinds[kind] == 1 ? 0 : 1];
    return text.empty() ? "none" : text;
}

/// Bodies are what has faces, and what has nothing to draw; kinds are listed whatever their number.
std::string kindsJson(const SceneCounts& counts)
{
    const auto of = [&counts](Drawn kind) { return counts.kinds[static_cast<std::size_t>(kind)]; };
    std::string text = "\"bodies\": " +
                       std::to_string(of(Drawn::Solid) + of(Drawn::Surface) + of(Drawn::Nothing)) +
                       ", \"kinds\": {";
    for (std::size_t kind = 0; kind < kKindCount; ++kind)
        text += (kind == 0 ? "\"" : ", \"") + std::string(kKindNames[kind][1]) +
                "\": " + std::to_string(counts.kinds[kind]);
    return text + "}";
}

std::string corners(const TambVizCore::VizBox& box, const char* separator)
{
    std::string text;
    for (const double* corner : {box.Lo(), box.Hi()})
        for (int axis = 0; axis < 3; ++axis)
            text += (text.empty() ? "" : separator) + Utils::FormatShortest(corner[axis]);
    return text;
}

OrvikCore::ASession& currentSession()
{
    return OrvikCore::SessionMgr::Instance().CurrentSession();
}

} // namespace

std::string DescribeSessionText()
{
    OrvikCore::ASession& session = currentSession();
    std::string text;
    for (const ContentInfo& content : describeContents(session)) {
        text += Utils::WstringToString(content.name) + " (" + content.type + ")\n";
        text += "  file       " + Utils::WstringToString(content.path) + "\n";
        if (content.hasBox)
            text += "  box        " + corners(content.box, " ") + "\n";
    }
    const SceneCounts counts = countScene(session);
    text += "shapes       " + kindsText(counts) + "\n";
    text += "triangles    " + std::to_string(counts.triangles) + "\n";
    text += "segments     " + std::to_string(counts.segments) + "\n";
    text += "points       " + std::to_string(counts.points) + "\n";
    text += "vertices     " + std::to_string(counts.vertices) + "\n";
    text += "bytes        " + std::to_string(counts.bytes) + "\n";
    return text;
}

std::string DescribeSessionJson()
{
    OrvikCore::ASession& session = currentSession();
    std::string text =
        "{\"model\": " + JsonQuoted(session.Document().GetOpenedModelName()) + ", \"contents\": [";
    bool first = true;
    for (const ContentInfo& content : describeContents(session)) {
        text += first ? "" : ", ";
        first = false;
        text += "{\"name\": " + JsonQuoted(content.name) +
                ", \"path\": " + JsonQuoted(content.path) +
                ", \"type\": " + JsonQuoted(Utils::StringToWstring(content.type)) +
                ", \"box\": " + (content.hasBox ? "[" + corners(content.box, ", ") + "]" : "null") +
                "}";
    }
    const SceneCounts counts = countScene(session);
    text += "], " + kindsJson(counts) + ", \"triangles\": " + std::to_string(counts.triangles) +
            ", \"segments\": " + std::to_string(counts.segments) +
            ", \"points\": " + std::to_string(counts.points) +
            ", \"vertices\": " + std::to_string(counts.vertices) +
            ", \"bytes\": " + std::to_string(counts.bytes) + "}\n";
    return text;
}

} // namespace PelluxBatch
