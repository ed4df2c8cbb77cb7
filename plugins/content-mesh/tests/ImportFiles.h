#ifndef ORVIKMESH_TESTS_IMPORTFILES_H
#define ORVIKMESH_TESTS_IMPORTFILES_H

#include "GltfFiles.h"
#include "import/ImportReader.h"

#include <iosfwd>
#include <string>
#include <vector>

/// A small file of one of the formats of the long tail: one triangle or two, most of them red.
struct ImportSample
{
    std::string extension; ///< Lower case.
    std::string bytes;
};

std::vector<ImportSample> ImportSamples();

/// What a test's name says of its sample.
void PrintTo(const ImportSample& sample, std::ostream* out);

/// @return the bytes of the sample with that extension; empty when there is none.
std::string ImportSampleOf(const std::string& extension);

/// Reads a file through the library that the build made.
GltfResult ReadImportedFile(const std::wstring& path, const OrvikMesh::ReadOptions& options = {},
                            const std::wstring& library = L"" ORVIK_MESH_IMPORT);

#endif
