#include "OrvikCore/AScriptModulePluginFactory.h"

#include "PluginFiles.h"
#include "PluginTexts.h"

#include "OrvikCore/ScriptPluginManager.h"

#include <TambVizCore/Utils.h>

#include <cstddef>
#include <exception>

namespace OrvikCore {

AScriptModulePluginFactory::AScriptModulePluginFactory() = default;
AScriptModulePluginFactory::~AScriptModulePluginFactory() = default;

void AScriptModulePluginFactory::doPreLoad() {}

std::vector<std::wstring> AScriptModulePluginFactory::getPreqPlugins()
{
    return {};
}

void AScriptModulePluginFactory::createContextMenuItems() {}

bool AScriptModulePluginFactory::Initialize(void* context, bool preLoad)
{
    if (m_initialized) {
        return true;
    }
    describe();
    if (!initializePrerequisites(context, preLoad) || !initializeThis(context)) {
        return false;
    }
    if (preLoad) {
        // Deliberate: after the menu items, where other plugins pre-load before them.
        // Held by AScriptModulePluginFactory.PreLoadsAfterTheMenuItems.
        doPreLoad();
    }
    return true;
}

bool AScriptModulePluginFactory::initializePrerequisites(void* context, bool preLoad)
{
    bool isComplete = true;
    ScriptPluginManager& manager = ScriptPluginManager::Instance();
    for (const std::wstring& name : getPreqPlugins()) {
        const int index = manager.FindPluginByName(name.c_str());
        if (index < 0) {
            logError(WidenPlainly(m_info.name) + kRequiresPlugin + name + kToBeInitializedFirst);
            isComplete = false;
            continue;
        }
        const std::vector<AScriptModulePluginFactory*> factories = manager.GetPlugins();
        const auto position = static_cast<std::size_t>(index);
        if (position < factories.size() && !factories[position]->IsInitialized() &&
            !factories[position]->Initialize(context, preLoad)) {
            isComplete = false;
        }
    }
    return isComplete;
}

bool AScriptModulePluginFactory::initializeThis(void* context)
{
    const std::wstring failure = WidenPlainly(m_info.name) + kFailedToInitialize;
    try {
        if (!doInitialize(context)) {
            return false;
        }
        createContextMenuItems();
        return true;
    } catch (const std::exception& error) {
        logError(failure + TambVizCore::Utils::Char2Wchar(error.what()));
    } catch (...) {
        logError(failure + kUnknownError);
    }
    return false;
}

bool AScriptModulePluginFactory::IsInitialized() const
{
    return m_initialized;
}

PluginInfo AScriptModulePluginFactory::GetInfo() const
{
    return m_info;
}

void AScriptModulePluginFactory::setName(const std::string& name)
{
    m_info.name = name;
}

void AScriptModulePluginFactory::setDescription(const std::wstring& description)
{
    m_info.description = description;
}

void AScriptModulePluginFactory::addGetProduct(const std::string& product)
{
    m_info.products.push_back(product);
}

void AScriptModulePluginFactory::logError(const std::wstring& text)
{
    m_info.errors.push_back(text);
}

void AScriptModulePluginFactory::logMessage(const std::wstring& text)
{
    m_info.messages.push_back(text);
}

} // namespace OrvikCore
