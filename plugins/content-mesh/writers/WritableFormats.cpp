#include "writers/MeshWriter.h"

#include <algorithm>
#include <iterator>

namespace OrvikMesh {

namespace {

constexpr WritableFormat kFormats[] = {{L"STL", L"Stereolithography", &WriteStl},
                                       {L"OBJ", L"Wavefront OBJ", &WriteObj},
                                       {L"PLY", L"Polygon File Format", &WritePly},
                                       {L"OFF", L"Object File Format", &WriteOff}};

} // namespace

std::span<const WritableFormat> WritableFormats()
{
    return kFormats;
}

const WritableFormat* FindWritableFormat(std::wstring_view extension)
{
    const auto* found =
        std::find_if(std::begin(kFormats), std::end(kFormats),
                     [&](const WritableFormat& format) { return format.extension == extension; });
    return found == std::end(kFormats) ? nullptr : found;
}

} // namespace OrvikMesh
