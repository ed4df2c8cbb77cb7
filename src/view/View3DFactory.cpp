#include "OrvikCore/View3DFactory.h"

#include "DisplayColors.h"

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/AView3DControllerAdapter.h"
#include "OrvikCore/CameraYUp.h"
#include "OrvikCore/CameraZUp.h"
#include "OrvikCore/Config.h"
#include "OrvikCore/Dbg.h"
#include "OrvikCore/PluginManager.h"

#include <TambVizCore/AView3DAdapter.h>
#include <TambVizCore/AView3DAdapterFactory.h>
#include <TambVizCore/IView3D.h>
#include <TambVizCore/RenderingOptions.h>
#include <TambVizCore/SceneBuilderFactory.h>
#include <TambVizCore/Settings.h>
#include <TambVizCore/Utils.h>
#include <TambVizCore/VizFactories.h>

#include <cstddef>
#include <exception>
#include <memory>
#include <vector>

namespace OrvikCore {

namespace {

constexpr wchar_t kView3DSection[] = L"View3D";
constexpr wchar_t kSceneBuilderSection[] = L"SceneBuilder";
constexpr wchar_t kView3DAdapterSection[] = L"View3DAdapter";
constexpr wchar_t kFileKey[] = L"File";
constexpr wchar_t kNameKey[] = L"Name";
constexpr wchar_t kControllerKey[] = L"Controller";

constexpr wchar_t kDefaultViewFile[] = L"OrvikView3dOpenGlSG.Plugin.dll";
constexpr wchar_t kDefaultViewName[] = L"View3dOpenGlSG";

/// Appended to the configured names of scene builder and view adapter.
constexpr wchar_t kFactorySuffix[] = L"Factory";

/// Names of objects are cut to so many bytes.
constexpr std::size_t kMaxObjectNameBytes = 100;

View3DFactory* s_instance = nullptr; // Owned; deleted by Terminate().

/// Asks a plugin for its factory and initialises that.
/// @return the factory, owned by the plugin manager; null when the plugin cannot be loaded.
APluginFactory* initializedFactory(const std::wstring& file, const std::wstring& section)
{
    wchar_t* text = nullptr;
    APluginFactory* factory = PluginManager::Instance().LoadPlugin(file.c_str(), text, section);
    const std::unique_ptr<wchar_t[]> errorText(text);
    if (factory != nullptr) {
        factory->Initialize(nullptr, /*preLoad=*/false);
    }
    return factory;
}

} // namespace

View3DFactory& View3DFactory::Instance()
{
    if (s_instance == nullptr) {
        s_instance = new View3DFactory();
    }
    return *s_instance;
}

View3DFactory::View3DFactory() = default;

View3DFactory::~View3DFactory() = default;

bool View3DFactory::Init()
{
    if (m_initialized) {
        return false;
    }
    registerSceneBuilderFactory();
    registerViewAdapterFactory();
    registerCameraFactory();
    m_initialized = true;
    return true;
}

bool View3DFactory::Terminate()
{
    delete s_instance;
    s_instance = nullptr;
    return true;
}

TambVizCore::IView3D* View3DFactory::CreateView()
{
    if (!m_initialized && !Init()) {
        return nullptr;
    }
    std::wstring file = kDefaultViewFile;
    std::wstring name = kDefaultViewName;
    getConfigValue(kView3DSection, kFileKey, file);
    getConfigValue(kView3DSection, kNameKey, name);
    auto* view = static_cast<TambVizCore::IView3D*>(createObject(file, name, kView3DSection));
    if (view == nullptr) {
        return nullptr;
    }
    TambVizCore::AView3DAdapter* adapter =
        TambVizCore::VizFactories::Instance().CreateView3DAdapter();
    if (adapter == nullptr) {
        adapter = view->GetView3DAdapter(); // A view that is its own adapter.
    }
    if (adapter != nullptr) {
        adapter->AttachView(view);
        setDisplayOptions(adapter);
    }
    return view;
}

AView3DControllerAdapter* View3DFactory::CreateView3DControllerAdapter()
{
    std::wstring file;
    std::wstring name;
    if (!m_initialized || !getConfigValue(kView3DSection, kFileKey, file) ||
        !getConfigValue(kView3DSection, kControllerKey, name)) {
        return nullptr;
    }
    return static_cast<AView3DControllerAdapter*>(createObject(file, name, kView3DSection));
}

void View3DFactory::AddCameraPrototype(ACamera* prototype)
{
    m_cameraFactory.AddPrototype(prototype);
}

const ACameraFactory& View3DFactory::GetCameraFactory() const
{
    return m_cameraFactory;
}

void View3DFactory::registerSceneBuilderFactory()
{
    std::wstring file;
    std::wstring name;
    TambVizCore::SceneBuilderFactory* factory = nullptr;
    if (getConfigValue(kSceneBuilderSection, kFileKey, file) &&
        getConfigValue(kSceneBuilderSection, kNameKey, name)) {
        factory = static_cast<TambVizCore::SceneBuilderFactory*>(
            createObject(file, name + kFactorySuffix, kSceneBuilderSection));
    }
    if (factory == nullptr) {
        factory = new TambVizCore::SceneBuilderFactory();
    }
    TambVizCore::VizFactories::Instance().SetSceneBuilderFactory(factory);
}

void View3DFactory::registerViewAdapterFactory()
{
    std::wstring file;
    std::wstring name;
    if (!getConfigValue(kView3DAdapterSection, kFileKey, file) ||
        !getConfigValue(kView3DAdapterSection, kNameKey, name)) {
        return;
    }
    TambVizCore::VizFactories::Instance().SetView3DAdapterFactory(
        static_cast<TambVizCore::AView3DAdapterFactory*>(
            createObject(file, name + kFactorySuffix, kView3DAdapterSection)));
}

void View3DFactory::registerCameraFactory()
{
    m_cameraFactory.AddPrototype(new CameraYUp(nullptr));
    m_cameraFactory.AddPrototype(new CameraZUp(nullptr));
}

void View3DFactory::setDisplayOptions(TambVizCore::AView3DAdapter* adapter)
{
    TambVizCore::RenderingOptions* options = adapter->GetRenderingOptions();
    const TambVizCore::Settings* settings = TambVizCore::Settings::Current();
    if (options != nullptr && settings != nullptr) {
        ApplyDisplayColors(*settings, *options);
        options->SetAntialiasLevel(settings->GetAntialiasLevel());
        options->SetLineWidth(settings->GetLineWidth());
    }
}

bool View3DFactory::getConfigValue(const std::wstring& section, const std::wstring& key,
                                   std::wstring& out)
{
    // What GetValue returns says nothing; the list does.
    std::vector<std::wstring> values;
    Config::Instance().GetValue(section, key, values);
    if (values.empty()) {
        return false;
    }
    out = values.front();
    return true;
}

void* View3DFactory::createObject(const std::wstring& file, const std::wstring& name,
                                  const std::wstring& section)
{
    const std::string objectName = TambVizCore::Utils::WstringToString(name, kMaxObjectNameBytes);
    try {
        APluginFactory* factory = initializedFactory(file, section);
        return factory != nullptr ? factory->CreateObject(objectName.c_str()) : nullptr;
    } catch (const std::exception& error) {
        dbg << "View3DFactory: " << error.what() << std::endl;
    } catch (...) {
        dbg << "View3DFactory: unknown exception from the plugin" << std::endl;
    }
    return nullptr;
}

} // namespace OrvikCore
