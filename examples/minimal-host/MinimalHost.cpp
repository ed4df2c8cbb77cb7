// A host without windows: runs script commands, then shows the scene, such as
//     minimal-host '(doc:load "gear.stl")' '(doc:bounding-box)'

#include <OrvikCore/AContent.h>
#include <OrvikCore/AContentRendererFactory.h>
#include <OrvikCore/ASession.h>
#include <OrvikCore/Config.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/IApplication.h>
#include <OrvikCore/IConfigInitializer.h>
#include <OrvikCore/IContentRenderer.h>
#include <OrvikCore/IOutputListener.h>
#include <OrvikCore/JobDispatcher.h>
#include <OrvikCore/PluginManager.h>
#include <OrvikCore/ProcessGlobals.h>
#include <OrvikCore/ScriptPluginManager.h>
#include <OrvikCore/SessionMgr.h>
#include <OrvikCore/Shell.h>
#include <OrvikCore/View3DFactory.h>
#include <OrvikOs/Thread.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambVizCore/EntityId.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/Node.h>
#include <TambVizCore/Utils.h>

#include <iostream>
#include <new>

namespace core = OrvikCore;
using Entities = std::vector<TambVizCore::EntityId>;
using Pairs = std::vector<std::pair<std::wstring, std::wstring>>;
using Texts = std::vector<std::wstring>;

namespace {

/// Draws each content with the renderer of its plugin; shows no progress and has no tree.
struct Session final : core::ASession
{
    Session() : ASession(/*id=*/1) {}
    ~Session() override { ASession::DeleteAllRenderers(); } // Before what they draw.

    core::IContentRenderer* CreateContentRenderer(core::AContent& content) override
    {
        core::SessionMgr& manager = core::SessionMgr::Instance();
        auto* const factory = manager.GetContentRendererFactory(content.GetTypeName());
        auto* const renderer = factory ? factory->CreateRenderer(&content, View3D()) : nullptr;
        if (renderer != nullptr) {
            AddRenderer(renderer, /*keep=*/false);
            renderer->Render();
        }
        return renderer;
    }
    void UpdateAfterContentModified() override
    {
        for (core::AContent* const content : Document().GetContentList())
            if (content != nullptr && Get3DRenderer(content) == nullptr)
                CreateContentRenderer(*content);
    }
    void UpdateAfterUndoRedo() override { UpdateAfterContentModified(); }
    void SetPickedEntities(const Entities& entities) override { picked = entities; }
    Entities GetPickedEntities() const override { return picked; }
    void BeginProgress(const std::wstring&) override {}
    void ReportProgress(double) override {}
    void EndProgress() override {}
    bool IsCancelRequested() const override { return false; }
    void Rerender() override {}
    void RefreshTree() override {}
    void ZoomAll() override {}
    bool ZoomToPicked() override { return false; }
    void SetBusy(bool) override {}
    bool IsBusy() const override { return false; }
    core::ARendererTree* CreateTreeRenderer() override { return nullptr; }
    Entities picked;
};

/// What the core asks of its host: application, configuration and console.
struct Host final : core::IApplication, core::IConfigInitializer, core::IOutputListener
{
    std::wstring GetName() const override { return L"minimal-host"; }
    std::wstring GetVersion() const override { return L"1"; }
    std::wstring GetStateFolder() const override { return {}; }
    void Quit(int) override {}
    void CancelRunningJob() override {}
    void ShowNotice(const std::wstring&, const core::MessageType&) override {}
    bool IsBatchMode() const override { return true; }
    bool IsPaused() const override { return false; }
    void RecordCommand(const std::wstring&) override {}
    void Pause(bool) override {}
    void ReportEngineTerminationFailure(const std::wstring&) override {}
    int Shutdown() override { return 0; }
    core::ASession* NewSession() override { return new Session; }
    std::wstring GetSourceName() const override { return L"minimal-host"; }
    std::wstring GetErrorText() const override { return {}; }
    void ListSections(Texts& names, int, int) override { names = {L"ScriptEngine"}; }
    void FillSection(const std::wstring&, Pairs* pairs) override
    {
        pairs->emplace_back(L"File", L"OrvikSchemeEngine.dll");
    }

    /// Scripts print on the worker, which does not wait for the main thread: it posts.
    void PrintMessage(const std::wstring& text, const core::MessageType&) override
    {
        const std::string line = TambVizCore::Utils::WstringToString(text);
        TambCommandsInfra::CallGate::Post(
            [line] { std::cout << line << (line.ends_with('\n') ? "" : "\n") << std::flush; });
    }
    void ClearOutput() override {}
};

} // namespace

int main(int argc, char** argv)
{
    Orvik_mainThreadId = OrvikOs::CurrentThreadId();
    TambCommandsInfra::CallGate gate;
    alignas(Host) static unsigned char storage[sizeof(Host)];
    Host& host = *new (storage) Host; // The session manager ends it in place.
    core::Config::Instance().Initialize(host);
    core::SessionMgr& manager = core::SessionMgr::Instance();
    manager.SetApplication(&host);
    core::PluginManager::Instance().LoadPlugins(L"Plugins");
    core::PluginManager::Instance().Initialize(nullptr);
    core::ScriptPluginManager::Instance().LoadPlugins();
    core::ASession& session = manager.CurrentSession(); // Before the shell, which prints there.
    session.RegisterOutputCb(&host);
    manager.SetShell(new core::Shell);
    manager.GetShell()->Init();

    std::wstring output = manager.GetShell()->GetStartupError();
    session.PrintMessage(output, core::MessageType::Error); // An empty text is not printed.
    bool good = output.empty();
    for (int i = 1; i < argc && good; ++i)
        good = manager.GetShell()->RunScript(TambVizCore::Utils::StringToWstring(argv[i]), output);
    gate.Drain();
    std::string scene;
    if (session.View3D() != nullptr)
        session.View3D()->GetSceneRoot().Print(scene, /*withParts=*/false);
    std::cout << scene;

    manager.Terminate();
    gate.Close();
    core::JobDispatcher::Instance().Terminate();
    core::ScriptPluginManager::Instance().Terminate();
    core::PluginManager::Instance().Terminate();
    core::View3DFactory::Terminate();
    return good ? 0 : 1;
}
