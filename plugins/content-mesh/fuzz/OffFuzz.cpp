#include "FuzzReading.h"
#include "MeshSamples.h"
#include "readers/OffReader.h"

std::vector<std::string> FuzzSeeds()
{
    return {OffTextSample(), OffBinarySample()};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzReader(&OrvikMesh::ReadOffContent, data, size);
    return 0;
}
