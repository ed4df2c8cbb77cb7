#include "content/MeshSaver.h"

#include "content/ProgressPhase.h"
#include "writers/MeshWriter.h"

#include "OrvikCore/AContent.h"
#include "OrvikCore/IEntityProperties.h"

#include <OrvikOs/FpMasked.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/Utils.h>

#include <algorithm>
#include <vector>

namespace OrvikMesh {

using OrvikCore::IEntityProperties;
using OrvikCore::PlacedShape;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::Progress;
using TambVizCore::Geometry;
using TambVizCore::RGBAColor;
using TambVizCore::Utils;

namespace {

constexpr wchar_t kPhase[] = L"Writing ";

MeshColor toMeshColor(const RGBAColor& color)
{
    constexpr float kFull = 255.0f;
    return {static_cast<float>(color.r) / kFull, static_cast<float>(color.g) / kFull,
            static_cast<float>(color.b) / kFull, static_cast<float>(color.a) / kFull};
}

/// Points at the arrays of a shape, which the shape keeps alive.
BodyToWrite bodyOf(const PlacedShape& shape)
{
    const Geometry& geometry = *shape.geometry;
    BodyToWrite body;
    body.name = shape.name;
    if (shape.color)
        body.color = toMeshColor(*shape.color);
    std::copy_n(shape.world, body.transform.size(), body.transform.begin());
    body.positions = geometry.Positions().Span();
    body.normals = geometry.Normals().Span();
    body.colors = geometry.Colors().Span();
    body.triangles = geometry.Triangles().Span();
    if (geometry.TriangleCount() == 0)
        body.segments = geometry.Segments().Span();
    body.isPointCloud = geometry.TriangleCount() == 0 && geometry.SegmentCount() == 0;
    return body;
}

MeshToWrite meshOf(const std::vector<PlacedShape>& shapes)
{
    MeshToWrite mesh;
    for (const PlacedShape& shape : shapes)
        mesh.bodies.push_back(bodyOf(shape));
    return mesh;
}

} // namespace

MeshSaver::MeshSaver()
{
    for (const WritableFormat& format : WritableFormats())
        validExtensions.emplace(format.extension, format.name);
}

MeshSaver::~MeshSaver() = default;

bool MeshSaver::save(const std::wstring& fileName, OrvikCore::AContent* content)
{
    const OrvikOs::FpMasked coordinatesAreData;
    const ProgressPhase phase(kPhase + Utils::GetFileNameOnly(fileName));
    ReadMessages messages(fileName);
    std::vector<PlacedShape> shapes;
    // A content without shapes leaves the list empty, which the writer reports.
    dynamic_cast<const IEntityProperties&>(*content).GetShapes(TambVizCore::EntityId(), shapes);
    const MeshToWrite mesh = meshOf(shapes);
    const WritableFormat* const format =
        FindWritableFormat(Utils::ToUpperAscii(Utils::GetFileExtension(fileName)));
    WriteOptions options;
    options.isCancelled = [] { return CancelToken::Instance().IsCancelled(); };
    options.progress = [](double share) { Progress::Instance().Report(share); };
    const bool isWritten = format != nullptr && format->write(fileName, mesh, options, messages);
    for (const std::wstring& warning : messages.Warnings())
        addWarningMessage(warning);
    if (messages.HasError())
        setErrorMessage(messages.Error());
    return isWritten;
}

bool MeshSaver::canSave(OrvikCore::AContent* content, const std::wstring& /*extension*/)
{
    return dynamic_cast<const IEntityProperties*>(content) != nullptr;
}

} // namespace OrvikMesh
