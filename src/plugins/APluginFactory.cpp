#include "OrvikCore/APluginFactory.h"

#include "PluginFiles.h"
#include "PluginTexts.h"

#include "OrvikCore/PluginManager.h"

#include <TambVizCore/Utils.h>

#include <cstddef>
#include <exception>
#include <utility>

namespace OrvikCore {

APluginFactory::APluginFactory() = default;
APluginFactory::~APluginFactory() = default;

void APluginFactory::doPreLoad() {}

std::vector<std::wstring> APluginFactory::getPreqPlugins()
{
    return {};
}

void APluginFactory::createContextMenuItems() {}

void APluginFactory::Initialize(void** const context, bool preLoad)
{
    if (m_initialized) {
        return;
    }
    describe();
    if (!initializePrerequisites(context, preLoad)) {
        return;
    }
    try {
        doInitialize(context);
        if (preLoad) {
            // Deliberate: before the menu items, where script plugins pre-load after them.
            // Held by APluginFactory.PreLoadsBeforeTheMenuItems.
            doPreLoad();
        }
        createContextMenuItems();
    } catch (const std::exception& error) {
        logError(TambVizCore::Utils::StringToWstring(error.what() + std::string(kSource) +
                                                     m_info.name + "\n"));
    }
}

bool APluginFactory::initializePrerequisites(void** const context, bool preLoad)
{
    bool isComplete = true;
    PluginManager& manager = PluginManager::Instance();
    for (const std::wstring& name : getPreqPlugins()) {
        const int index = manager.FindPluginByName(name.c_str());
        if (index < 0) {
            logError(WidenPlainly(m_info.name) + kRequiresPlugin + name + kToBeInitializedFirst);
            isComplete = false;
            continue;
        }
        // Deliberate: the index counts all records, the list leaves out those without a factory.
        // Held by APluginFactoryInManager.PrerequisiteBehindARecordWithoutFactoryIsMistaken.
        const std::vector<APluginFactory*> factories = manager.GetPlugins();
        const auto position = static_cast<std::size_t>(index);
        if (position < factories.size() && !factories[position]->IsInitialized()) {
            factories[position]->Initialize(context, preLoad);
        }
    }
    return isComplete;
}

bool APluginFactory::IsInitialized() const
{
    return m_initialized;
}

PluginInfo APluginFactory::GetInfo() const
{
    return m_info;
}

PluginInfo& APluginFactory::GetInfoRef()
{
    return m_info;
}

void APluginFactory::setName(const std::string& name)
{
    m_info.name = name;
}

void APluginFactory::setDescription(const std::wstring& description)
{
    m_info.description = description;
}

void APluginFactory::setComponentName(std::string componentName)
{
    m_info.componentName = std::move(componentName);
}

std::string APluginFactory::getComponentName() const
{
    return m_info.componentName;
}

void APluginFactory::addGetProduct(const std::string& product)
{
    m_info.products.push_back(product);
}

void APluginFactory::logError(const std::wstring& text)
{
    m_info.errors.push_back(text);
}

void APluginFactory::logMessage(const std::wstring& text)
{
    m_info.messages.push_back(text);
}

} // namespace OrvikCore
