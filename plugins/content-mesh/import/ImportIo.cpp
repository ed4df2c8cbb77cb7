#include "import/ImportIo.h"

#include "readers/SideFiles.h"

#include <OrvikOs/Directory.h>
#include <OrvikOs/MemoryMappedFile.h>
#include <OrvikOs/Utf8.h>

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

namespace OrvikMesh {

namespace {

std::string folderOf(std::string_view path)
{
    const std::size_t end = path.find_last_of("/\\");
    return std::string(end == std::string_view::npos ? std::string_view()
                                                     : path.substr(0, end + 1));
}

/// A mapped file as Assimp reads files.
class MappedStream final : public Assimp::IOStream
{
public:
    MappedStream(OrvikOs::MemoryMappedFile file, const ImportSink& sink)
        : m_file(std::move(file)), m_sink(sink)
    {
    }

    std::size_t Read(void* buffer, std::size_t size, std::size_t count) override
    {
        if (!m_sink.isWanted(m_sink.context))
            throw std::runtime_error("reading was cancelled");
        if (size == 0)
            return 0;
        const std::size_t whole = std::min(count, (m_file.Size() - m_position) / size);
        if (whole > 0)
            std::memcpy(buffer, m_file.Data() + m_position, whole * size);
        m_position += whole * size;
        return whole;
    }

    std::size_t Write(const void* /*buffer*/, std::size_t /*size*/, std::size_t /*count*/) override
    {
        return 0;
    }

    aiReturn Seek(std::size_t offset, aiOrigin origin) override
    {
        const std::size_t from = origin == aiOrigin_SET   ? 0
                                 : origin == aiOrigin_CUR ? m_position
                                                          : m_file.Size();
        // A negative offset comes as a large one, and wraps back.
        const std::size_t target = from + offset;
        if (target > m_file.Size())
            return aiReturn_FAILURE;
        m_position = target;
        return aiReturn_SUCCESS;
    }

    std::size_t Tell() const override { return m_position; }
    std::size_t FileSize() const override { return m_file.Size(); }
    void Flush() override {}

private:
    OrvikOs::MemoryMappedFile m_file;
    const ImportSink& m_sink;
    std::size_t m_position = 0; ///< At most the size.
};

} // namespace

ImportIo::ImportIo(std::string_view path, const ImportSink& sink)
    : m_path(path), m_folder(folderOf(path)), m_sink(sink)
{
}

ImportIo::~ImportIo() = default;

/// @return where a file lies that is asked for; empty when it may not be read.
std::string ImportIo::resolved(std::string_view file) const
{
    if (file == m_path)
        return m_path;
    if (!m_folder.empty() && file.substr(0, m_folder.size()) == m_folder)
        file.remove_prefix(m_folder.size());
    if (!StaysInFolder(file))
        return {};
    return OrvikOs::WideToUtf8(PathBeside(OrvikOs::Utf8ToWide(m_path), file));
}

bool ImportIo::Exists(const char* file) const
{
    const std::string path = resolved(file);
    return !path.empty() && OrvikOs::IsFile(OrvikOs::Utf8ToWide(path));
}

char ImportIo::getOsSeparator() const
{
    return '/';
}

Assimp::IOStream* ImportIo::Open(const char* file, const char* mode)
{
    const std::string path = resolved(file);
    if (path.empty() || !mode || std::strpbrk(mode, "wa+") != nullptr)
        return nullptr;
    OrvikOs::MemoryMappedFile mapped;
    if (!mapped.Open(OrvikOs::Utf8ToWide(path)))
        return nullptr;
    return std::make_unique<MappedStream>(std::move(mapped), m_sink).release();
}

void ImportIo::Close(Assimp::IOStream* stream)
{
    delete stream;
}

} // namespace OrvikMesh
