// A loader plugin for files that say how it is to go wrong.

#include "GoWrong.h"

#include <OrvikCore/AContentLoader.h>
#include <OrvikCore/APluginFactory.h>
#include <OrvikCore/Document.h>
#include <OrvikCore/SessionMgr.h>
#include <TambVizCore/Utils.h>

#include <string>

namespace {

struct FaultyLoader final : OrvikCore::AContentLoader
{
    FaultyLoader() { validExtensions = {{L"WRONG", L"How to go wrong"}}; }
    bool canLoad(const std::wstring&) const override { return true; }

    void load(const std::wstring& fileName, OrvikCore::Document&) override
    {
        using TambVizCore::Utils;
        GoWrong(Utils::WstringToString(Utils::GetFileContents(fileName)));
    }
};

struct FaultyPlugin final : OrvikCore::APluginFactory
{
    void* CreateObject(const char*) override { return nullptr; }
    void Terminate() override {}
    void describe() override { setName("Faulty"); }
    void doInitialize(void** const) override
    {
        OrvikCore::SessionMgr::Instance().RegisterContentLoader(new FaultyLoader);
        m_initialized = true;
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::APluginFactory* CreatePlugin()
{
    return new FaultyPlugin;
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginType()
{
    return "Loader";
}

extern "C" ORVIK_PLUGIN_API const char* GetPluginName()
{
    return "Faulty";
}
