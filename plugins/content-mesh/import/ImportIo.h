#ifndef ORVIKMESH_IMPORT_IMPORTIO_H
#define ORVIKMESH_IMPORT_IMPORTIO_H

#include "import/MeshImport.h"

#include <assimp/IOStream.hpp>
#include <assimp/IOSystem.hpp>

#include <string>
#include <string_view>

namespace OrvikMesh {

/// Lets Assimp read one file and those in its folder or below, and nothing else. One thread.
///
/// Reading a stream after the sink has stopped wanting throws std::runtime_error, which Assimp
/// makes its error.
class ImportIo final : public Assimp::IOSystem
{
public:
    /// @param path  Of the file, UTF-8.
    /// @param sink  Not owned; outlives this.
    ImportIo(std::string_view path, const ImportSink& sink);
    ~ImportIo() override;

    bool Exists(const char* file) const override;
    char getOsSeparator() const override;
    Assimp::IOStream* Open(const char* file, const char* mode) override;
    void Close(Assimp::IOStream* stream) override;

private:
    std::string resolved(std::string_view file) const;

    const std::string m_path;
    const std::string m_folder; ///< With the slash at its end; empty for the current one.
    const ImportSink& m_sink;
};

} // namespace OrvikMesh

#endif
