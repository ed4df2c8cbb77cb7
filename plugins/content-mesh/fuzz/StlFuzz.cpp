#include "FuzzReading.h"
#include "MeshFiles.h"
#include "readers/StlReader.h"

std::vector<std::string> FuzzSeeds()
{
    return {BinaryStl(Cylinder(12)), AsciiStl(Cylinder(12), "tube")};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzReader(&OrvikMesh::ReadStlContent, data, size);
    return 0;
}
