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
#include <sstream>
#include <vector>

namespace core = OrvikCore;
namespace viz = TambVizCore;

namespace {

/// What the loader puts into the document.
class TriContent final : public core::AContent
{
public:
    TriContent(core::Document& document, std::wstring file,
               std::shared_ptr<const viz::Geometry> geometry)
        : core::AContent(document), m_file(std::move(file)), m_geometry(std::move(geometry))
    {
    }

    const std::shared_ptr<const viz::Geometry>& Shape() const { return m_geometry; }
    std::wstring GetShortId() override { return viz::Utils::GetFileNameOnly(m_file); }
    std::wstring GetLongId() override { return m_file; }
    void NoteState() override {}
    void Undo() override {}
    void Redo() override {}
    std::string GetTypeName() const override { return "Tri"; }
    bool GetBoundingBox(viz::VizBox& box) const override
    {
        box = m_geometry->BoundingBox();
        return !box.IsEmpty();
    }
    void ClearSelection() override {}
    bool RayPick(const viz::Ray&, viz::EntityId&) override { return false; }

private:
    std::wstring m_file;
    std::shared_ptr<const viz::Geometry> m_geometry;
};

/// Shows a TriContent as one node of the scene.
class TriRenderer final : public core::IContentRenderer
{
public:
    TriRenderer(TriContent& tri, viz::IView3D& view)
        : core::IContentRenderer(&tri), m_tri(tri), m_view(view)
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
    bool IsRendererFor(core::AContent* candidate) override { return candidate == &m_tri; }
    bool ConvertToEntityId(const viz::RenderId&, viz::EntityId&) override { return false; }
    bool ConvertToRenderId(const viz::EntityId&, viz::RenderId&) override { return false; }
    bool ExpandRenderId(const viz::RenderId&, std::vector<viz::RenderId>&) override
    {
        return false;
    }

protected:
    void discard() override { m_view.GetSceneRoot().RemoveChild(m_nodeId); }

private:
    TriContent& m_tri;
    viz::IView3D& m_view;
    std::uint64_t m_nodeId = 0;
};

class TriRendererFactory final : public core::AContentRendererFactory
{
public:
    std::string GetName() const override { return "Tri"; }
    core::IContentRenderer* CreateRenderer(core::AContent* content, viz::IView3D* view) override
    {
        auto* const tri = dynamic_cast<TriContent*>(content);
        return tri == nullptr || view == nullptr ? nullptr : new TriRenderer(*tri, *view);
    }
};

class TriLoader final : public core::AContentLoader
{
public:
    TriLoader() { validExtensions = {{L"TRI", L"Triangles as text"}}; }

protected:
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
        for (std::uint32_t i = 0; i < corners.size(); ++i)
            corners[i] = i;
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

class MinimalPlugin final : public core::APluginFactory
{
public:
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}

protected:
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
