#include "gltf/GltfScene.h"

#include "gltf/GltfLeftOut.h"
#include "gltf/GltfMeshes.h"
#include "gltf/GltfTexts.h"
#include "gltf/GltfTransform.h"

#include <TambVizCore/Matrix.h>

#include <algorithm>
#include <utility>

namespace OrvikMesh {

using OrvikModel::Model;
using OrvikModel::ModelNode;

namespace {

/// What a node takes, with its name and its transform.
constexpr std::uint64_t kNodeBytes = sizeof(ModelNode) + 256;

/// What is known of a node of the file while the scene is walked.
enum class Visit : std::uint8_t
{
    Unknown,
    Open, ///< The walk is below it.
    Done,
};

/// A node whose children are being visited.
struct Frame
{
    std::uint64_t number = 0;
    const JsonValue* children = nullptr; ///< Not owned; null without children.
    rapidjson::SizeType next = 0;
    ModelNode* node = nullptr; ///< Not owned.
};

class SceneBuilder
{
public:
    SceneBuilder(GltfFile& file, const ShapeMaker& make, Model& model)
        : m_file(file),
          m_model(model),
          m_warnings(file.Messages()),
          m_meshes(file, make, m_warnings),
          m_visits(file.Count(GltfList::Nodes), Visit::Unknown)
    {
    }

    bool Run();

private:
    bool addScene(std::uint64_t number, const JsonValue& scene);
    bool addRoots();
    bool addTree(std::uint64_t number);
    bool enter(std::uint64_t number, std::vector<std::unique_ptr<ModelNode>>& siblings);
    bool visitChild(Frame& frame);
    std::unique_ptr<ModelNode> makeNode(std::uint64_t number, const JsonValue& element);
    bool addPieces(std::uint64_t number, const JsonValue& element, ModelNode& node);
    bool fail(std::wstring reason);

    GltfFile& m_file;
    Model& m_model;
    WarningLimit m_warnings;
    GltfMeshes m_meshes;
    std::vector<Visit> m_visits; ///< Per node of the file.
    std::vector<Frame> m_stack;
    std::size_t m_shapeCount = 0;
    std::uint64_t m_done = 0;
};

/// A node without a name is called after its number.
void nameNode(std::uint64_t number, ModelNode& node)
{
    if (node.name.empty())
        node.name = L"Node " + std::to_wstring(number);
}

bool SceneBuilder::fail(std::wstring reason)
{
    m_file.Messages().Fail(reason);
    return false;
}

bool SceneBuilder::Run()
{
    const JsonValue& root = m_file.Root();
    const std::uint64_t sceneCount = m_file.Count(GltfList::Scenes);
    const std::uint64_t number = WholeMember(root, "scene", 0).value_or(sceneCount);
    const JsonValue* scene = m_file.Element(GltfList::Scenes, number);
    if (!scene && FindMember(root, "scene"))
        m_file.Messages().Warn(FillText(kGltfNoScene, {std::to_wstring(number)}));
    if (scene && sceneCount > 1)
        m_file.Messages().Warn(
            FillText(kGltfTwoScenes, {std::to_wstring(sceneCount), std::to_wstring(number)}));
    WarnOfLeftOut(m_file);
    if (!(scene ? addScene(number, *scene) : addRoots()))
        return false;
    if (m_shapeCount == 0)
        return fail(m_meshes.Failures().empty() ? kGltfNoGeometry : m_meshes.Failures().front());
    for (const std::wstring& failure : m_meshes.Failures())
        m_warnings.Warn(FillText(kGltfLeftOut, {failure}));
    m_warnings.Finish();
    return true;
}

bool SceneBuilder::addScene(std::uint64_t number, const JsonValue& scene)
{
    const JsonValue* nodes = FindList(scene, "nodes");
    if (!nodes)
        return true;
    for (const JsonValue& node : nodes->GetArray()) {
        const auto index = ToWhole(node);
        if (!index || *index >= m_visits.size())
            m_warnings.Warn(FillText(kGltfNoSceneNode, {std::to_wstring(number),
                                                        index ? std::to_wstring(*index) : L"?"}));
        else if (!addTree(*index))
            return false;
    }
    return true;
}

/// All nodes that no other one has as a child; where there are none, they run in circles.
bool SceneBuilder::addRoots()
{
    std::vector<bool> isChild(m_visits.size(), false);
    for (std::uint64_t number = 0; number < m_visits.size(); ++number) {
        const JsonValue* element = m_file.Element(GltfList::Nodes, number);
        const JsonValue* children = element ? FindList(*element, "children") : nullptr;
        if (!children)
            continue;
        for (const JsonValue& child : children->GetArray())
            if (const auto index = ToWhole(child); index && *index < isChild.size())
                isChild[*index] = true;
    }
    for (std::uint64_t number = 0; number < m_visits.size(); ++number)
        if (!isChild[number] && !addTree(number))
            return false;
    if (m_model.nodes.empty() && !m_visits.empty())
        return addTree(0);
    return true;
}

bool SceneBuilder::addTree(std::uint64_t number)
{
    if (!enter(number, m_model.nodes))
        return false;
    while (!m_stack.empty()) {
        Frame& frame = m_stack.back();
        if (frame.children && frame.next < frame.children->Size()) {
            if (!visitChild(frame))
                return false;
        } else {
            m_visits[frame.number] = Visit::Done;
            m_stack.pop_back();
        }
    }
    return true;
}

bool SceneBuilder::visitChild(Frame& frame)
{
    const auto child = ToWhole((*frame.children)[frame.next++]);
    if (!child || *child >= m_visits.size()) {
        m_warnings.Warn(FillText(
            kGltfNoChild, {std::to_wstring(frame.number), child ? std::to_wstring(*child) : L"?"}));
        return true;
    }
    return enter(*child, frame.node->children);
}

/// Makes the node and goes below it, unless it was met before.
bool SceneBuilder::enter(std::uint64_t number, std::vector<std::unique_ptr<ModelNode>>& siblings)
{
    if (m_visits[number] == Visit::Open)
        return fail(FillText(kGltfCycle, {std::to_wstring(number)}));
    if (m_visits[number] == Visit::Done) {
        m_warnings.Warn(FillText(kGltfTwoParents, {std::to_wstring(number)}));
        return true;
    }
    if (m_stack.size() >= kMaxNodeDepth)
        return fail(FillText(kGltfTooDeepNodes, {std::to_wstring(kMaxNodeDepth)}));
    m_visits[number] = Visit::Open;
    const JsonValue* element = m_file.Element(GltfList::Nodes, number);
    if (!element)
        return fail(FillText(kGltfNoSuch, {L"node", std::to_wstring(number)}));
    PollCancel(m_file.Options());
    std::unique_ptr<ModelNode> node = makeNode(number, *element);
    if (!node)
        return false;
    siblings.push_back(std::move(node));
    m_stack.push_back({number, FindList(*element, "children"), 0, siblings.back().get()});
    ReportProgress(m_file.Options(),
                   static_cast<double>(++m_done) / static_cast<double>(m_visits.size()));
    return true;
}

/// @return null with an error in the messages.
std::unique_ptr<ModelNode> SceneBuilder::makeNode(std::uint64_t number, const JsonValue& element)
{
    if (!m_file.Budget().Take(kNodeBytes)) {
        fail(kGltfTooMuch);
        return nullptr;
    }
    auto node = std::make_unique<ModelNode>();
    node->name = WideTextOf(FindMember(element, "name"));
    double matrix[16];
    if (!ReadNodeTransform(element, matrix))
        m_warnings.Warn(FillText(kGltfBadTransform, {std::to_wstring(number)}));
    if (!TambVizCore::IsIdentity(matrix))
        node->transform.emplace(matrix, matrix + 16);
    if (FindMember(element, "mesh") && !addPieces(number, element, *node))
        return nullptr;
    nameNode(number, *node);
    return node;
}

/// Gives a node what its mesh shows. @return false with an error in the messages.
bool SceneBuilder::addPieces(std::uint64_t number, const JsonValue& element, ModelNode& node)
{
    const auto mesh = WholeMember(element, "mesh");
    if (!mesh || !m_file.Element(GltfList::Meshes, *mesh)) {
        m_warnings.Warn(
            FillText(kGltfNoMesh, {std::to_wstring(number), mesh ? std::to_wstring(*mesh) : L"?"}));
        return true;
    }
    const std::vector<MeshPiece>& pieces = m_meshes.Pieces(*mesh);
    if (node.name.empty())
        node.name = m_meshes.Name(*mesh);
    nameNode(number, node);
    m_shapeCount += pieces.size();
    if (!m_file.Budget().Take(kNodeBytes * pieces.size()))
        return fail(kGltfTooMuch);
    const JsonValue* children = FindList(element, "children");
    ShowPieces(pieces, children && !children->Empty(), node);
    return true;
}

} // namespace

bool BuildGltfScene(GltfFile& file, const ShapeMaker& make, Model& model)
{
    return SceneBuilder(file, make, model).Run();
}

} // namespace OrvikMesh
