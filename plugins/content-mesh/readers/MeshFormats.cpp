#include "readers/MeshFormats.h"

#include "readers/ObjReader.h"
#include "readers/OffReader.h"
#include "readers/PcdReader.h"
#include "readers/PlyReader.h"
#include "readers/PointTextReader.h"
#include "readers/StlReader.h"

#include <algorithm>

namespace OrvikMesh {

namespace {

constexpr MeshFormat kFormats[] = {
    {L"STL", L"Stereolithography", &ReadStl},   {L"OBJ", L"Wavefront OBJ", &ReadObj},
    {L"PLY", L"Polygon File Format", &ReadPly}, {L"OFF", L"Object File Format", &ReadOff},
    {L"XYZ", L"Point cloud", &ReadXyz},         {L"PTS", L"Point cloud", &ReadPts},
    {L"PCD", L"Point Cloud Data", &ReadPcd},
};

} // namespace

std::span<const MeshFormat> MeshFormats()
{
    return kFormats;
}

const MeshFormat* FindMeshFormat(std::wstring_view extension)
{
    const auto* found =
        std::find_if(std::begin(kFormats), std::end(kFormats),
                     [&](const MeshFormat& format) { return format.extension == extension; });
    return found == std::end(kFormats) ? nullptr : found;
}

} // namespace OrvikMesh
