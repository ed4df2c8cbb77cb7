#ifndef ORVIKMESH_IMPORT_IMPORTWIRE_H
#define ORVIKMESH_IMPORT_IMPORTWIRE_H

#include "import/MeshImport.h"

#include <OrvikOs/RunApart.h>

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// How meshes and nodes get out of the copy of the process that reads them: messages of a head and
// its bytes, in the order of the calls. Both ends are the same program, but who writes may have
// been damaged by what it read, so nothing in a message is believed.

namespace OrvikMesh {

/// Writes what a library hands over.
class WireWriter
{
public:
    /// @param write  Not owned; outlives this.
    explicit WireWriter(const OrvikOs::ApartWriter& write) : m_write(write) {}

    /// @return what the library calls; not owned, valid while this is.
    ImportSink Functions();

    /// The last message: whether all went well, and the reason where it did not.
    void End(bool isRead, std::string_view reason);

private:
    bool send(std::uint32_t kind, const std::vector<std::string_view>& pieces);
    bool sendMesh(const ImportedMesh& mesh);
    bool sendNode(const ImportedNode& node);

    const OrvikOs::ApartWriter& m_write;
};

/// Takes the messages again and hands what they hold to a sink.
class WireReader
{
public:
    /// @param sink      Not owned; outlives this.
    /// @param maxBytes  Of one message; a longer one is an error.
    WireReader(const ImportSink& sink, std::uint64_t maxBytes) : m_sink(sink), m_maxBytes(maxBytes)
    {
    }

    /// Takes the next bytes, wherever they begin and end.
    ///
    /// @return false when the sink wants no more or the bytes make no sense.
    bool Take(const void* bytes, std::size_t count);

    bool IsEnded() const { return m_isEnded; } ///< The last message has come.
    bool IsRead() const { return m_isRead; }   ///< As it says.
    const std::string& Reason() const { return m_reason; }

private:
    bool handle(std::uint32_t kind, std::string_view body);
    bool takeMesh(std::string_view body);
    bool takeNode(std::string_view body);

    const ImportSink& m_sink;
    const std::uint64_t m_maxBytes;
    std::vector<char> m_pending; ///< From the beginning of a message.
    bool m_isEnded = false;
    bool m_isRead = false;
    std::string m_reason;
};

} // namespace OrvikMesh

#endif
