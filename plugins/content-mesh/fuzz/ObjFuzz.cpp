#include "FuzzReading.h"
#include "MeshSamples.h"
#include "readers/ObjMaterials.h"
#include "readers/ObjReader.h"

std::vector<std::string> FuzzSeeds()
{
    return {ObjSample(),
            "v 0 0 0 1 0 0\nv 1 0 0 0 1 0\nv 1 1 0\nv 0 1 0\nusemtl a\n"
            "f 1 2 \\\n3 4\ng b c\nf -1 -2 -3\nl 1 2\np 1\n",
            "v 0 0 0\nv 1 0 0 1 0 0\nv 1 1 0\nl 1 2 3\no a\nl -1/2 \\\n-3/1\np 1 -1\n",
            "newmtl a\nKd 0.5 0.25 1\nd 0.5\nnewmtl b\nTr 0.25\n"};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzReader(
        [](std::string_view content, const OrvikMesh::ReadOptions& options,
           OrvikMesh::MeshData& mesh, OrvikMesh::ReadMessages& messages) {
            return OrvikMesh::ReadObjContent(L"", content, options, mesh, messages);
        },
        data, size);
    OrvikMesh::MaterialColors colors;
    OrvikMesh::ReadMaterialText({reinterpret_cast<const char*>(data), size}, colors);
    return 0;
}
