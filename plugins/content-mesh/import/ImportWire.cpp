#include "import/ImportWire.h"

#include <algorithm>
#include <cstring>
#include <optional>

namespace OrvikMesh {

namespace {

enum : std::uint32_t
{
    kProgress = 1,
    kMesh = 2,
    kNode = 3,
    kEnd = 4,
};

struct MessageHead
{
    std::uint32_t kind = 0;
    std::uint32_t reserved = 0;
    std::uint64_t bytes = 0; ///< Behind the head.
};

/// Behind it: the name with a zero, filled up to a multiple of eight bytes, then the arrays.
struct MeshHead
{
    std::uint64_t nameBytes = 0; ///< With its zero, filled up.
    std::uint64_t vertexCount = 0;
    std::uint64_t cornerCount = 0;
    std::uint32_t arity = 0;
    std::uint8_t hasNormals = 0; ///< Of 0 and 1, as the next two.
    std::uint8_t hasColors = 0;
    std::uint8_t hasColor = 0;
    std::uint8_t color[4] = {0, 0, 0, 0};
    std::uint8_t reserved[5] = {0};
};
static_assert(sizeof(MeshHead) % 8 == 0);

/// Behind it: the name as above, then the numbers of the meshes.
struct NodeHead
{
    std::uint64_t nameBytes = 0;
    std::uint64_t meshCount = 0;
    std::uint64_t parent = 0;
    double matrix[16] = {0.0};
};

template <class Item> std::string_view bytesOf(const Item* items, std::size_t count)
{
    return {reinterpret_cast<const char*>(items), items ? count * sizeof(Item) : 0};
}

std::string paddedName(const char* name)
{
    std::string padded = name;
    padded.resize(padded.size() / 8 * 8 + 8, '\0');
    return padded;
}

/// Takes parts of a message one after the other.
class Parts
{
public:
    explicit Parts(std::string_view body) : m_rest(body) {}

    template <class Head> std::optional<Head> TakeHead()
    {
        Head head;
        if (m_rest.size() < sizeof head)
            return std::nullopt;
        std::memcpy(&head, m_rest.data(), sizeof head);
        m_rest.remove_prefix(sizeof head);
        return head;
    }

    /// @return null when the message is shorter than that.
    template <class Item> const Item* TakeItems(std::uint64_t count)
    {
        if (count > m_rest.size() / sizeof(Item)) {
            m_isGood = false;
            return nullptr;
        }
        const auto* const items = reinterpret_cast<const Item*>(m_rest.data());
        m_rest.remove_prefix(count * sizeof(Item));
        return items;
    }

    /// @return null for what does not end with a zero.
    const char* TakeName(std::uint64_t bytes)
    {
        const char* const name = bytes % 8 == 0 && bytes > 0 ? TakeItems<char>(bytes) : nullptr;
        m_isGood = m_isGood && name && name[bytes - 1] == '\0';
        return m_isGood ? name : nullptr;
    }

    bool IsGood() const { return m_isGood; }

private:
    std::string_view m_rest;
    bool m_isGood = true;
};

} // namespace

bool WireWriter::send(std::uint32_t kind, const std::vector<std::string_view>& pieces)
{
    MessageHead head;
    head.kind = kind;
    for (const std::string_view piece : pieces)
        head.bytes += piece.size();
    return m_write(&head, sizeof head) &&
           std::all_of(pieces.begin(), pieces.end(), [this](std::string_view piece) {
               return m_write(piece.data(), piece.size());
           });
}

bool WireWriter::sendMesh(const ImportedMesh& mesh)
{
    const std::string name = paddedName(mesh.name);
    MeshHead head;
    head.nameBytes = name.size();
    head.vertexCount = mesh.vertexCount;
    head.cornerCount = mesh.cornerCount;
    head.arity = mesh.arity;
    head.hasNormals = mesh.normals ? 1 : 0;
    head.hasColors = mesh.colors ? 1 : 0;
    head.hasColor = mesh.hasColor ? 1 : 0;
    std::copy(std::begin(mesh.color), std::end(mesh.color), head.color);
    return send(kMesh, {bytesOf(&head, 1), name, bytesOf(mesh.positions, 3 * mesh.vertexCount),
                        bytesOf(mesh.normals, 3 * mesh.vertexCount),
                        bytesOf(mesh.colors, 4 * mesh.vertexCount),
                        bytesOf(mesh.corners, mesh.cornerCount)});
}

bool WireWriter::sendNode(const ImportedNode& node)
{
    const std::string name = paddedName(node.name);
    NodeHead head;
    head.nameBytes = name.size();
    head.meshCount = node.meshCount;
    head.parent = node.parent;
    std::copy(std::begin(node.matrix), std::end(node.matrix), head.matrix);
    return send(kNode, {bytesOf(&head, 1), name, bytesOf(node.meshes, node.meshCount)});
}

ImportSink WireWriter::Functions()
{
    ImportSink sink;
    sink.context = this;
    sink.isWanted = [](void*) { return true; }; // Who wants no more ends the copy.
    sink.progress = [](void* context, double share) {
        static_cast<WireWriter*>(context)->send(kProgress, {bytesOf(&share, 1)});
    };
    sink.addMesh = [](void* context, const ImportedMesh* mesh) {
        return static_cast<WireWriter*>(context)->sendMesh(*mesh);
    };
    sink.addNode = [](void* context, const ImportedNode* node) {
        return static_cast<WireWriter*>(context)->sendNode(*node);
    };
    return sink;
}

void WireWriter::End(bool isRead, std::string_view reason)
{
    const std::uint64_t good = isRead ? 1 : 0;
    send(kEnd, {bytesOf(&good, 1), reason});
}

bool WireReader::Take(const void* bytes, std::size_t count)
{
    const char* const begin = static_cast<const char*>(bytes);
    m_pending.insert(m_pending.end(), begin, begin + count);
    std::size_t done = 0;
    MessageHead head;
    while (m_pending.size() - done >= sizeof head) {
        std::memcpy(&head, m_pending.data() + done, sizeof head);
        if (head.bytes > m_maxBytes)
            return false;
        const std::size_t bodyBytes = static_cast<std::size_t>(head.bytes);
        if (m_pending.size() - done - sizeof head < bodyBytes) {
            m_pending.reserve(done + sizeof head + bodyBytes);
            break;
        }
        if (!handle(head.kind, {m_pending.data() + done + sizeof head, bodyBytes}))
            return false;
        done += sizeof head + bodyBytes;
    }
    m_pending.erase(m_pending.begin(), m_pending.begin() + static_cast<std::ptrdiff_t>(done));
    return true;
}

bool WireReader::handle(std::uint32_t kind, std::string_view body)
{
    if (kind == kMesh)
        return takeMesh(body);
    if (kind == kNode)
        return takeNode(body);
    Parts parts(body);
    if (kind == kProgress) {
        const auto share = parts.TakeHead<double>();
        if (share && *share >= 0.0 && *share <= 1.0)
            m_sink.progress(m_sink.context, *share);
        return m_sink.isWanted(m_sink.context);
    }
    const auto good = parts.TakeHead<std::uint64_t>();
    if (kind != kEnd || !good)
        return false;
    m_isEnded = true;
    m_isRead = *good == 1;
    m_reason = std::string(body.substr(sizeof *good));
    return true;
}

bool WireReader::takeMesh(std::string_view body)
{
    Parts parts(body);
    const auto head = parts.TakeHead<MeshHead>();
    if (!head || head->vertexCount > body.size() || head->arity < 1 || head->arity > 3)
        return false;
    ImportedMesh mesh;
    mesh.name = parts.TakeName(head->nameBytes);
    mesh.vertexCount = head->vertexCount;
    mesh.positions = parts.TakeItems<float>(3 * head->vertexCount);
    if (head->hasNormals != 0)
        mesh.normals = parts.TakeItems<float>(3 * head->vertexCount);
    if (head->hasColors != 0)
        mesh.colors = parts.TakeItems<std::uint8_t>(4 * head->vertexCount);
    mesh.corners = parts.TakeItems<std::uint32_t>(head->cornerCount);
    mesh.cornerCount = head->cornerCount;
    mesh.arity = head->arity;
    mesh.hasColor = head->hasColor != 0;
    std::copy(std::begin(head->color), std::end(head->color), mesh.color);
    return parts.IsGood() && m_sink.addMesh(m_sink.context, &mesh);
}

bool WireReader::takeNode(std::string_view body)
{
    Parts parts(body);
    const auto head = parts.TakeHead<NodeHead>();
    if (!head)
        return false;
    ImportedNode node;
    node.name = parts.TakeName(head->nameBytes);
    node.parent = static_cast<std::uint32_t>(head->parent);
    std::copy(std::begin(head->matrix), std::end(head->matrix), node.matrix);
    node.meshes = parts.TakeItems<std::uint32_t>(head->meshCount);
    node.meshCount = head->meshCount;
    return parts.IsGood() && m_sink.addNode(m_sink.context, &node);
}

} // namespace OrvikMesh
