#ifndef ORVIKBENCH_CONTENTMESH_MESHBENCHFILES_H
#define ORVIKBENCH_CONTENTMESH_MESHBENCHFILES_H

#include "writers/MeshWriter.h"

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <vector>

/// The files of this run, written on first use and deleted at its end: a torus of strips with about
/// the number of triangles asked for.
class MeshBenchFiles
{
public:
    static MeshBenchFiles& Instance();
    MeshBenchFiles(const MeshBenchFiles&) = delete;
    MeshBenchFiles& operator=(const MeshBenchFiles&) = delete;

    /// Binary.
    const std::string& Stl(std::int64_t triangles);
    /// Points, texture coordinates, normals, then triangles that name all three.
    const std::string& Obj(std::int64_t triangles);
    /// Binary, little-endian; points and triangles.
    const std::string& Ply(std::int64_t triangles);
    /// Points and triangles, numbers as short as they can be.
    const std::string& Off(std::int64_t triangles);
    /// Points with normals, six decimals.
    const std::string& Xyz(std::int64_t points);

    /// The torus itself: points and triangles; valid until another one is asked for.
    const OrvikMesh::MeshToWrite& Torus(std::int64_t triangles);
    /// A place for a file.
    std::wstring Scratch() const;

private:
    MeshBenchFiles();
    ~MeshBenchFiles();

    using Write = std::function<void(const std::filesystem::path& path, std::int64_t size)>;
    const std::string& get(const std::string& extension, std::int64_t size, const Write& write);

    std::filesystem::path m_folder;
    std::map<std::string, std::string> m_paths;
    std::int64_t m_torusSize = 0;
    std::vector<float> m_positions;
    std::vector<std::uint32_t> m_triangles;
    OrvikMesh::MeshToWrite m_torus;
};

#endif
