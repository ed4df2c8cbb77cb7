#include "import/SceneHandover.h"

#include "import/SceneQuirks.h"

#include <assimp/material.h>
#include <assimp/scene.h>

#include <algorithm>
#include <set>
#include <string_view>
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

class Handover
{
public:
    Handover(const aiScene& scene, std::string_view format, const ImportSink& sink,
             std::string& reason)
        : m_scene(scene), m_format(format), m_sink(sink), m_reason(reason)
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
    const std::string_view m_format;
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
    if (m_format != "3ds")
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
    if (!colors || m_format == "dxf" ||
        std::all_of(colors, colors + mesh.mNumVertices, &IsMadeUpColor))
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
    aiColor4D diffuse;
    if (material.Get(AI_MATKEY_COLOR_DIFFUSE, diffuse) != aiReturn_SUCCESS ||
        IsMadeUpMaterial(material, diffuse))
        return;
    float opacity = diffuse.a;
    if (material.Get(AI_MATKEY_OPACITY, opacity) != aiReturn_SUCCESS)
        opacity = diffuse.a;
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
    const std::set<std::string_view> notShown = NamesOfCamerasAndLights(m_scene);
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
        for (unsigned i = next.node->mNumChildren; i-- > 0;) {
            const aiNode& child = *next.node->mChildren[i];
            const bool isEmpty = child.mNumMeshes == 0 && child.mNumChildren == 0;
            if (!isEmpty || notShown.count(child.mName.C_Str()) == 0)
                waiting.push_back({&child, number, next.depth + 1});
        }
        ++number;
    }
    return true;
}

bool Handover::addNode(const aiNode& node, std::uint32_t parent)
{
    ImportedNode imported;
    const bool isTurned = parent == ImportedNode::kNoParent && m_format == "fbx";
    imported.name = isTurned ? "" : node.mName.C_Str(); // The reader calls it so, not the file.
    imported.parent = parent;
    const aiMatrix4x4 matrix =
        isTurned ? TurnOfFbx(m_scene) * node.mTransformation : node.mTransformation;
    for (unsigned row = 0; row < 4; ++row)
        for (unsigned column = 0; column < 4; ++column)
            imported.matrix[column * 4 + row] = double{matrix[row][column]};
    imported.meshes = node.mMeshes;
    imported.meshCount = node.mNumMeshes;
    return m_sink.addNode(m_sink.context, &imported);
}

} // namespace

bool HandOver(const aiScene& scene, std::string_view format, const ImportSink& sink,
              std::string& reason)
{
    return Handover(scene, format, sink, reason).Run();
}

} // namespace OrvikMesh
