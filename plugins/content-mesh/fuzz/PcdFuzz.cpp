#include "FuzzReading.h"
#include "MeshSamples.h"
#include "readers/PcdReader.h"

std::vector<std::string> FuzzSeeds()
{
    return {PcdTextSample(), PcdBinarySample(), PcdCompressedSample()};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzReader(&OrvikMesh::ReadPcdContent, data, size);
    return 0;
}
