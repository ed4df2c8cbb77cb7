// A loader plugin for one made-up format: a ".tri" file holds nine numbers for each triangle.

#include <OrvikCore/AContent.h>
#include <OrvikCore/AContentLoader.h>
#include <OrvikCore/AContentRendererFactory.h>
#include <OrvikCore/APluginFactory.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IContentRenderer.h>
#include <OrvikCore/SessionMgr.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/GeoNode.h>
#include <TambVizCore/Geometry.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizBox.h>

#include <locale>
#include <memory>
#include <numeric>
#include <sstream>
#include <vector>

namespace core = OrvikCore;
namespace viz = TambVizCore;

namespace {

using Ids = std::vector<viz::RenderId>;
using Shape = std::shared_ptr<const viz::Geometry>;

/// What the loader puts into the document.
struct TriContent final : core::AContent
{
    TriContent(core::Document& document, std::wstring path, Shape triangles)
        : core::AContent(document), file(std::move(path)), shape(std::move(triangles))
    {
    }
    std::wstring GetShortId() override { return viz::Utils::GetFileNameOnly(file); }
    std::wstring GetLongId() override { return file; }
    void NoteState() override {}
    void Undo() override {}
    void Redo() override {}
    std::string GetTypeName() const override { return "Tri"; }
    bool GetBoundingBox(viz::VizBox& box) const override
    {
        box = shape->BoundingBox();
        return !box.IsEmpty();
    }
    void ClearSelection() override {}
    bool RayPick(const viz::Ray&, viz::EntityId&) override { return false; }

    const std::wstring file;
    const Shape shape;
};

/// Shows a TriContent as one node of the scene.
struct TriRenderer final : core::IContentRenderer
{
    TriRenderer(TriContent& drawn, viz::Node& parent)
        : core::IContentRenderer(&drawn), tri(drawn), root(parent)
    {
    }
    ~TriRenderer() override { discard(); }
    bool Render() override
    {
        for (nodeId = 1; root.FindChild(nodeId) != nullptr;)
            ++nodeId;
        root.CreateChildGeoNode(nodeId, "tri")->SetGeometry(tri.shape);
        return true;
    }
    bool Rerender() override { return true; }
    bool IsRendererFor(core::AContent* candidate) override { return candidate == &tri; }
    bool ConvertToEntityId(const viz::RenderId&, viz::EntityId&) override { return false; }
    bool ConvertToRenderId(const viz::EntityId&, viz::RenderId&) override { return false; }
    bool ExpandRenderId(const viz::RenderId&, Ids&) override { return false; }
    void discard() override { root.RemoveChild(nodeId); }

    TriContent& tri;
    viz::Node& root;
    std::uint64_t nodeId = 0;
};

struct TriRendererFactory final : core::AContentRendererFactory
{
    std::string GetName() const override { return "Tri"; }
    core::IContentRenderer* CreateRenderer(core::AContent* content, viz::IView3D* view) override
    {
        auto* const tri = view ? dynamic_cast<TriContent*>(content) : nullptr;
        return tri ? new TriRenderer(*tri, view->GetSceneRoot()) : nullptr;
    }
};

struct TriLoader final : core::AContentLoader
{
    TriLoader() { validExtensions = {{L"TRI", L"Triangles as text"}}; }
    bool canLoad(const std::wstring&) const override { return true; }

    void load(const std::wstring& fileName, core::Document& document) override
    {
        std::istringstream text(viz::Utils::WstringToString(viz::Utils::GetFileContents(fileName)));
        text.imbue(std::locale::classic());
        std::vector<float> positions;
        for (float number = 0; text >> number;)
            positions.push_back(number);
        if (!text.eof() || positions.empty() || positions.size() % 9 != 0)
            return setErrorMessage(fileName + L": expected nine numbers for each triangle");
        std::vector<std::uint32_t> corners(positions.size() / 3);
        std::iota(corners.begin(), corners.end(), 0);
        std::string reason;
        auto geometry = viz::GeometryBuilder()
                            .SetPositions(viz::SharedArray<float>(std::move(positions)))
                            .SetTriangles(viz::SharedArray<std::uint32_t>(std::move(corners)))
                            .Build(reason);
        if (geometry == nullptr)
            return setErrorMessage(fileName + L": " + viz::Utils::StringToWstring(reason));
        // The document changes on the main thread only.
        auto content = std::make_unique<TriContent>(document, fileName, std::move(geometry));
        TambCommandsInfra::CallGate::Call([&] { document.AddContent(*content.release()); });
    }
};

struct MinimalPlugin final : core::APluginFactory
{
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}
    void describe() override { setName("Minimal"); }
    void doInitialize(void** const) override
    {
        core::SessionMgr::Instance().RegisterContentLoader(new TriLoader);
        core::SessionMgr::Instance().RegisterContentRendererFactory(new TriRendererFactory);
        m_initialized = true;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API core::APluginFactory* CreatePlugin()
{
    return new MinimalPlugin;
}
extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Loader";
}
extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "Minimal";
}
