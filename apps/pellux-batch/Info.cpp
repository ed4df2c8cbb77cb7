#include "Info.h"

#include "JsonText.h"

#include <OrvikCore/AContent.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizBox.h>

#include <cstdint>
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

/// What is counted of the scene; instances count each time they are drawn, bytes once.
struct SceneCounts
{
    std::uint64_t bodies = 0, triangles = 0, segments = 0, points = 0, vertices = 0, bytes = 0;
    std::set<const TambVizCore::Geometry*> seen;
};

void count(const TambVizCore::Node& node, SceneCounts& counts)
{
    const TambVizCore::GeoNode* const drawn = node.AsGeoNode();
    if (node.IsAuxiliary())
        return;
    if (drawn != nullptr && drawn->GetGeometry() != nullptr) {
        const TambVizCore::Geometry& geometry = *drawn->GetGeometry();
        ++counts.bodies;
        counts.triangles += geometry.TriangleCount();
        counts.segments += geometry.SegmentCount();
        counts.points += geometry.PointCount();
        counts.vertices += geometry.VertexCount();
        if (counts.seen.insert(&geometry).second)
            counts.bytes += geometry.MemoryBytes();
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
    text += "bodies       " + std::to_string(counts.bodies) + "\n";
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
    text += "], \"bodies\": " + std::to_string(counts.bodies) +
            ", \"triangles\": " + std::to_string(counts.triangles) +
            ", \"segments\": " + std::to_string(counts.segments) +
            ", \"points\": " + std::to_string(counts.points) +
            ", \"vertices\": " + std::to_string(counts.vertices) +
            ", \"bytes\": " + std::to_string(counts.bytes) + "}\n";
    return text;
}

} // namespace PelluxBatch
