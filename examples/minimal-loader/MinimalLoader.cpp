// A loader plugin for one made-up format: a ".tri" file holds nine numbers for each triangle.

#include <algorithm>
#include <memory>
#include <sstream>
#include <vector>

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

using namespace OrvikCore;
using namespace TambVizCore;

namespace {

/// What the loader puts into the document.
class TriContent final : public AContent
{
public:
    TriContent(Document& document, std::wstring file, std::shared_ptr<const Geometry> geometry)
        : AContent(document), m_file(std::move(file)), m_geometry(std::move(geometry))
    {
    }

    const std::shared_ptr<const Geometry>& Shape() const { return m_geometry; }
    std::wstring GetShortId() override { return Utils::GetFileNameOnly(m_file); }
    std::wstring GetLongId() override { return m_file; }
    void NoteState() override {}
    void Undo() override {}
    void Redo() override {}
    std::string GetTypeName() const override { return "Tri"; }
    bool GetBoundingBox(VizBox& box) const override
    {
        box = m_geometry->BoundingBox();
        return !box.IsEmpty();
    }
    void ClearSelection() override {}
    bool RayPick(const Ray&, EntityId&) override { return false; }

private:
    std::wstring m_file;
    std::shared_ptr<const Geometry> m_geometry;
};

/// Shows a TriContent as one node of the scene.
class TriRenderer final : public IContentRenderer
{
public:
    TriRenderer(TriContent& tri, IView3D& view) : IContentRenderer(&tri), m_tri(tri), m_view(view)
    {
    }
    ~TriRenderer() override { discard(); }

    bool Render() override
    {
        for (m_nodeId = 1; m_view.GetSceneRoot().FindChild(m_nodeId) != nullptr;)
            ++m_nodeId;
        m_view.GetSceneRoot().CreateChildGeoNode(m_nodeId, "tri")->SetGeometry(m_tri.Shape());
        return true;
    }
    bool Rerender() override { return true; }
    bool IsRendererFor(AContent* candidate) override { return candidate == &m_tri; }
    bool ConvertToEntityId(const RenderId&, EntityId&) override { return false; }
    bool ConvertToRenderId(const EntityId&, RenderId&) override { return false; }
    bool ExpandRenderId(const RenderId&, std::vector<RenderId>&) override { return false; }

protected:
    void discard() override { m_view.GetSceneRoot().RemoveChild(m_nodeId); }

private:
    TriContent& m_tri;
    IView3D& m_view;
    std::uint64_t m_nodeId = 0;
};

class TriRendererFactory final : public AContentRendererFactory
{
public:
    std::string GetName() const override { return "Tri"; }
    IContentRenderer* CreateRenderer(AContent* content, IView3D* view) override
    {
        auto* const tri = dynamic_cast<TriContent*>(content);
        return tri == nullptr || view == nullptr ? nullptr : new TriRenderer(*tri, *view);
    }
};

class TriLoader final : public AContentLoader
{
public:
    TriLoader() { validExtensions = {{L"TRI", L"Triangles as text"}}; }

protected:
    bool canLoad(const std::wstring&) const override { return true; }

    void load(const std::wstring& fileName, Document& document) override
    {
        std::istringstream text(Utils::WstringToString(Utils::GetFileContents(fileName)));
        text.imbue(std::locale::classic());
        std::vector<float> positions;
        for (float number = 0; text >> number;)
            positions.push_back(number);
        if (!text.eof() || positions.empty() || positions.size() % 9 != 0)
            return setErrorMessage(fileName + L": expected nine numbers for each triangle");
        std::vector<std::uint32_t> corners(positions.size() / 3);
        for (std::uint32_t i = 0; i < corners.size(); ++i)
            corners[i] = i;
        std::string reason;
        auto geometry = GeometryBuilder()
                            .SetPositions(SharedArray<float>(std::move(positions)))
                            .SetTriangles(SharedArray<std::uint32_t>(std::move(corners)))
                            .Build(reason);
        if (geometry == nullptr)
            return setErrorMessage(fileName + L": " + Utils::StringToWstring(reason));
        // The document changes on the main thread only.
        auto content = std::make_unique<TriContent>(document, fileName, std::move(geometry));
        TambCommandsInfra::CallGate::Call([&] { document.AddContent(*content.release()); });
    }
};

class MinimalPlugin final : public APluginFactory
{
public:
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}

protected:
    void describe() override { setName("Minimal"); }
    void doInitialize(void** const) override
    {
        SessionMgr::Instance().RegisterContentLoader(new TriLoader);
        SessionMgr::Instance().RegisterContentRendererFactory(new TriRendererFactory);
        m_initialized = true;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API APluginFactory* CreatePlugin() { return new MinimalPlugin; }
extern "C" ORVIK_PLUGIN_API const char* GetPluginType() { return "Loader"; }
extern "C" ORVIK_PLUGIN_API const char* GetPluginName() { return "Minimal"; }
