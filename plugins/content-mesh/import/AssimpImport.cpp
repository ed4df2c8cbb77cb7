#include "import/ImportIo.h"
#include "import/MeshImport.h"
#include "import/SceneHandover.h"

#include <OrvikOs/FaultScope.h>

#include <assimp/BaseImporter.h>
#include <assimp/Importer.hpp>
#include <assimp/ProgressHandler.hpp>
#include <assimp/config.h>
#include <assimp/postprocess.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <string>
#include <string_view>

namespace OrvikMesh {

namespace {

/// What reading the file is of the whole work; the rest is handing over.
constexpr float kReadingShare = 0.9f;

class SinkProgress final : public Assimp::ProgressHandler
{
public:
    explicit SinkProgress(const ImportSink& sink) : m_sink(sink) {}

    bool Update(float share) override
    {
        if (share >= 0.0f)
            m_sink.progress(m_sink.context, std::min(share, 1.0f) * kReadingShare);
        return m_sink.isWanted(m_sink.context);
    }

private:
    const ImportSink& m_sink;
};

void tell(std::string_view reason, char* error, std::size_t errorSize)
{
    const std::size_t length = std::min(reason.size(), errorSize - 1);
    std::memcpy(error, reason.data(), length);
    error[length] = '\0';
}

/// Leaves only the reader of one format, so that content which does not match the file's name does
/// not reach another one.
void keepReader(Assimp::Importer& importer, const char* extension)
{
    const Assimp::BaseImporter* kept = importer.GetImporter(importer.GetImporterIndex(extension));
    for (std::size_t i = importer.GetImporterCount(); i-- > 0;) {
        if (importer.GetImporter(i) == kept)
            continue;
        // Who takes a reader out owns it.
        const std::unique_ptr<Assimp::BaseImporter> removed(importer.GetImporter(i));
        importer.UnregisterLoader(removed.get());
    }
}

void setUp(Assimp::Importer& importer, const char* path, const char* extension,
           const ImportSink& sink)
{
    keepReader(importer, extension);
    importer.SetIOHandler(std::make_unique<ImportIo>(path, sink).release());
    importer.SetProgressHandler(std::make_unique<SinkProgress>(sink).release());
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_PRESERVE_PIVOTS, false);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_READ_TEXTURES, false);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_FBX_READ_ANIMATIONS, false);
    importer.SetPropertyBool(AI_CONFIG_IMPORT_COLLADA_USE_COLLADA_NAMES, true);
}

bool readFile(const char* path, const char* extension, const ImportSink& sink, char* error,
              std::size_t errorSize)
{
    auto importer = std::make_unique<Assimp::Importer>();
    try {
        setUp(*importer, path, extension, sink);
        const aiScene* scene = importer->ReadFile(
            path, aiProcess_ValidateDataStructure | aiProcess_Triangulate | aiProcess_SortByPType);
        if (!scene || !scene->mRootNode) {
            tell(importer->GetErrorString(), error, errorSize);
            return false;
        }
        std::string reason;
        if (HandOver(*scene, extension, sink, reason))
            return true;
        tell(reason, error, errorSize);
        return false;
    } catch (const OrvikOs::MachineFault& fault) {
        // Whatever the importer was about to do is half done: nobody may touch it again.
        importer.release();
        tell(fault.what(), error, errorSize);
    } catch (const std::exception& exception) {
        tell(exception.what(), error, errorSize);
    }
    return false;
}

} // namespace

} // namespace OrvikMesh

extern "C" {

__attribute__((visibility("default"))) bool ReadMeshFile(const char* path, const char* extension,
                                                         const OrvikMesh::ImportSink* sink,
                                                         char* error, std::size_t errorSize)
{
    return OrvikMesh::readFile(path, extension, *sink, error, errorSize);
}

} // extern "C"
