#ifndef ORVIKMESH_FUZZ_FUZZREADING_H
#define ORVIKMESH_FUZZ_FUZZREADING_H

#include "readers/MeshReader.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Reads @p size bytes as a file and ends the program when what comes out is neither a sound mesh
/// nor an error with a text.
void FuzzReader(const OrvikMesh::ContentReader& reader, const std::uint8_t* data, std::size_t size);

/// What a fuzz target gives to the driver: the files that its corpus begins with.
std::vector<std::string> FuzzSeeds();

#endif
