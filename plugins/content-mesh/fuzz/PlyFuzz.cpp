#include "FuzzReading.h"
#include "MeshSamples.h"
#include "readers/PlyReader.h"

std::vector<std::string> FuzzSeeds()
{
    return {PlyTextSample(), PlyBinarySample(false), PlyBinarySample(true)};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzReader(&OrvikMesh::ReadPlyContent, data, size);
    return 0;
}
