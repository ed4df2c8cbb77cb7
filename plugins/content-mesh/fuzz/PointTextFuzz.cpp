#include "FuzzReading.h"
#include "MeshSamples.h"
#include "readers/PointTextReader.h"

std::vector<std::string> FuzzSeeds()
{
    return {PointTextSample(), "x,y,z,nx,ny,nz\\n1,2,3,0,0,1\\n# end\\n4;5;6;1;0;0\\n"};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzReader(&OrvikMesh::ReadXyzContent, data, size);
    FuzzReader(&OrvikMesh::ReadPtsContent, data, size);
    return 0;
}
