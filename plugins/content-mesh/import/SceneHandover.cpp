#include "import/SceneHandover.h"

#include <assimp/material.h>
#include <assimp/scene.h>

#include <algorithm>
#include <cstring>
#include <utility>
#include <vector>

namespace OrvikMesh {

namespace {

static_assert(sizeof(aiVector3D) == 3 * sizeof(float), "positions are handed over as they lie");

/// How deep nodes may be nested: whoever walks the model later does so on the stack.
constexpr std::size_t kMaxNodeDepth = 1000;

std::uint8_t toByte(float share)
{
    return share > 0.0f ? static_cast<std::uint8_t>(std::min(share, 1.0f) * 255.0f + 0.5f)
                        : std::uint8_t{0};
}

/// Some readers give vertices a colour where their file has none: nothing at all, or this grey.
bool isMadeUp(const aiColor4D& color)
{
    const auto areAll = [&](float share) {
        return color.r == share && color.g == share && color.b == share && color.a == share;
    };
    return areAll(0.0f) || areAll(0.6f);
}

class Handover
{
public:
    Handover(const aiScene& scene, const ImportSink& sink, std::string& reason)
        : m_scene(scene), m_sink(sink), m_reason(reason)
    {
    }

    bool Run() { return addMeshes() && addNodes(); }

private:
    bool addMeshes();
    bool addMesh(const aiMesh& mesh);
    void collectCorners(const aiMesh& mesh, ImportedMesh& imported);
    void collectColors(const aiMesh& mesh, ImportedMesh& imported);
    void findColor(const aiMesh& mesh, ImportedMesh& imported) const;
    bool addNodes();
    bool addNode(const aiNode& node, std::uint32_t parent);

    const aiScene& m_scene;
    const ImportSink& m_sink;
    std::string& m_reason;
    std::vector<std::uint32_t> m_corners;
    std::vector<std::uint8_t> m_colors;
};

bool Handover::addMeshes()
{
    for (unsigned i = 0; i < m_scene.mNumMeshes; ++i)
        if (!addMesh(*m_scene.mMeshes[i]))
            return false;
    return true;
}

bool Handover::addMesh(const aiMesh& mesh)
{
    ImportedMesh imported;
    imported.name = mesh.mName.C_Str();
    imported.vertexCount = mesh.mNumVertices;
    imported.positions = reinterpret_cast<const float*>(mesh.mVertices);
    imported.normals = reinterpret_cast<const float*>(mesh.mNormals);
    collectCorners(mesh, imported);
    collectColors(mesh, imported);
    findColor(mesh, imported);
    return m_sink.addMesh(m_sink.context, &imported);
}

/// After sorting by type, all faces of a mesh have the same number of corners.
void Handover::collectCorners(const aiMesh& mesh, ImportedMesh& imported)
{
    const bool hasTriangles = (mesh.mPrimitiveTypes & aiPrimitiveType_TRIANGLE) != 0;
    const bool hasLines = (mesh.mPrimitiveTypes & aiPrimitiveType_LINE) != 0;
    imported.arity = hasTriangles ? 3 : hasLines ? 2 : 1;
    m_corners.clear();
    m_corners.reserve(std::size_t{mesh.mNumFaces} * imported.arity);
    for (unsigned i = 0; i < mesh.mNumFaces; ++i) {
        const aiFace& face = mesh.mFaces[i];
        if (face.mNumIndices == imported.arity)
            m_corners.insert(m_corners.end(), face.mIndices, face.mIndices + face.mNumIndices);
    }
    imported.corners = m_corners.data();
    imported.cornerCount = m_corners.size();
}

void Handover::collectColors(const aiMesh& mesh, ImportedMesh& imported)
{
    const aiColor4D* colors = mesh.mColors[0];
    if (!colors || std::all_of(colors, colors + mesh.mNumVertices, &isMadeUp))
        return;
    m_colors.clear();
    m_colors.reserve(std::size_t{mesh.mNumVertices} * 4);
    for (unsigned i = 0; i < mesh.mNumVertices; ++i)
        for (const float share : {colors[i].r, colors[i].g, colors[i].b, colors[i].a})
            m_colors.push_back(toByte(share));
    imported.colors = m_colors.data();
}

void Handover::findColor(const aiMesh& mesh, ImportedMesh& imported) const
{
    if (mesh.mMaterialIndex >= m_scene.mNumMaterials)
        return;
    const aiMaterial& material = *m_scene.mMaterials[mesh.mMaterialIndex];
    aiString name;
    aiColor4D diffuse;
    const bool isMadeUp = material.Get(AI_MATKEY_NAME, name) == aiReturn_SUCCESS &&
                          std::strcmp(name.C_Str(), AI_DEFAULT_MATERIAL_NAME) == 0;
    if (isMadeUp || material.Get(AI_MATKEY_COLOR_DIFFUSE, diffuse) != aiReturn_SUCCESS)
        return;
    float opacity = 1.0f;
    if (material.Get(AI_MATKEY_OPACITY, opacity) != aiReturn_SUCCESS)
        opacity = 1.0f;
    imported.hasColor = true;
    const float shares[] = {diffuse.r, diffuse.g, diffuse.b, opacity};
    std::transform(std::begin(shares), std::end(shares), imported.color, &toByte);
}

bool Handover::addNodes()
{
    struct Waiting
    {
        const aiNode* node;
        std::uint32_t parent;
        std::size_t depth;
    };
    std::vector<Waiting> waiting{{m_scene.mRootNode, ImportedNode::kNoParent, 1}};
    std::uint32_t number = 0;
    while (!waiting.empty()) {
        const Waiting next = waiting.back();
        waiting.pop_back();
        if (next.depth > kMaxNodeDepth) {
            m_reason = "nodes are nested more than " + std::to_string(kMaxNodeDepth) + " deep";
            return false;
        }
        if (!addNode(*next.node, next.parent))
            return false;
        // The last one waiting comes first.
        for (unsigned i = next.node->mNumChildren; i-- > 0;)
            waiting.push_back({next.node->mChildren[i], number, next.depth + 1});
        ++number;
    }
    return true;
}

bool Handover::addNode(const aiNode& node, std::uint32_t parent)
{
    ImportedNode imported;
    imported.name = node.mName.C_Str();
    imported.parent = parent;
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column)
            imported.matrix[column * 4 + row] = double{node.mTransformation[row][column]};
    imported.meshes = node.mMeshes;
    imported.meshCount = node.mNumMeshes;
    return m_sink.addNode(m_sink.context, &imported);
}

} // namespace

bool HandOver(const aiScene& scene, const ImportSink& sink, std::string& reason)
{
    return Handover(scene, sink, reason).Run();
}

} // namespace OrvikMesh
