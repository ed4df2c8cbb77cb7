#include "OrvikCore/PluginManager.h"

#include "PluginFiles.h"
#include "PluginTexts.h"

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/PluginRecord.h"

#include <OrvikOs/Library.h>
#include <OrvikOs/Sleeper.h>
#include <TambCommandsInfra/ProtectSignalHandlingContext.h>
#include <TambVizCore/Utils.h>

#include <cstddef>
#include <cwchar>
#include <exception>
#include <memory>
#include <stdexcept>

namespace OrvikCore {

using TambVizCore::Utils;

/// What createPluginRecord learns about one library.
struct PluginManager::Probe
{
    const wchar_t* fileName;
    OrvikOs::Library library;          ///< The probe's own load.
    bool isDropped = false;            ///< Passed over in silence.
    std::wstring errors = {};          ///< Empty as long as all is well.
    APluginFactory* factory = nullptr; ///< Not owned.
};

PluginManager& PluginManager::Instance()
{
    static PluginManager instance;
    return instance;
}

PluginManager::PluginManager() = default;

PluginManager::~PluginManager()
{
    clearPluginList();
}

bool PluginManager::Initialize(void* context)
{
    // By index: an initialisation may load further plugins.
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        initializeRecord(*m_plugins[i], context);
    }
    return true;
}

void PluginManager::initializeRecord(PluginRecord& record, void* context)
{
    const std::wstring name = Utils::ToLowerAscii(record.GetFileName());
    if (m_notify != nullptr) {
        m_notify(kInitializing + name + kDots, PMNotificationType::Message);
    }
    APluginFactory* factory = nullptr;
    std::wstring report;
    try {
        const TambCommandsInfra::ProtectSignalHandlingContext protection;
        factory = record.GetInstance();
        if (factory != nullptr) {
            factory->Initialize(&context, m_preLoad);
        }
    } catch (const std::exception& error) {
        const std::wstring text = Utils::Char2Wchar(error.what());
        report = kInitializing + name +
                 (text.empty() ? kFailed : kFailedWithText + text + kContinuingAfterText);
    } catch (...) {
        report = kInitializing + name + kFailed;
    }
    if (report.empty()) {
        return;
    }
    if (m_notify != nullptr) {
        m_notify(report, PMNotificationType::Error);
    }
    if (factory != nullptr) {
        factory->logError(report);
    }
}

bool PluginManager::Terminate()
{
    clearPluginList();
    return true;
}

void PluginManager::LoadPlugins(const std::wstring& folder)
{
    clearPluginList();
    // Deliberate: the folder is no path; the executable's folder is searched, nothing else.
    // Held by PluginManager.LoadPluginsNeverUsesItsFolderAsAPath.
    const std::vector<std::wstring> files =
        FindPluginFiles(L"Script", {L"OrvikWendGorm.Plugin.dll", L"WendPluginWorker.dll"});
    for (const std::wstring& file : files) {
        wchar_t* errorText = nullptr;
        createPluginRecord(file.c_str(), errorText, folder);
        delete[] errorText;
    }
}

APluginFactory* PluginManager::LoadPlugin(const wchar_t* fileName, wchar_t*& errorText,
                                          const std::wstring& folder)
{
    errorText = nullptr;
    const int index = findPluginByFileName(fileName);
    if (index >= 0) {
        return m_plugins[static_cast<std::size_t>(index)]->GetInstance();
    }
    return createPluginRecord(fileName, errorText, folder);
}

APluginFactory* PluginManager::CreatePlugin(int index)
{
    PluginRecord* const record = m_plugins[static_cast<std::size_t>(index)];
    return record == nullptr ? nullptr : record->GetInstance();
}

int PluginManager::GetPluginsCount()
{
    return static_cast<int>(m_plugins.size());
}

wchar_t* PluginManager::GetPluginName(int index)
{
    PluginRecord* const record = m_plugins[static_cast<std::size_t>(index)];
    return record == nullptr ? nullptr : record->GetName();
}

char* PluginManager::GetPluginType(int index)
{
    PluginRecord* const record = m_plugins[static_cast<std::size_t>(index)];
    return record == nullptr ? nullptr : record->GetType();
}

int PluginManager::FindPluginByName(const wchar_t* name)
{
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        if (m_plugins[i] != nullptr && std::wcscmp(m_plugins[i]->GetName(), name) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

void PluginManager::SetPreLoadFlag(bool preLoad)
{
    m_preLoad = preLoad;
}

void PluginManager::SetNotificationCb(PMNotificationCallback callback)
{
    m_notify = callback;
}

std::vector<APluginFactory*> PluginManager::GetPlugins()
{
    std::vector<APluginFactory*> factories;
    for (PluginRecord* record : m_plugins) {
        APluginFactory* const factory = record == nullptr ? nullptr : InstanceOrNull(*record);
        if (factory != nullptr) {
            factories.push_back(factory);
        }
    }
    return factories;
}

void PluginManager::clearPluginList()
{
    // A factory that ends may clear the list again; that does nothing.
    static bool isClearing = false;
    if (isClearing) {
        return;
    }
    isClearing = true;
    for (auto record = m_plugins.rbegin(); record != m_plugins.rend(); ++record) {
        delete *record;
    }
    m_plugins.clear();
    isClearing = false;
}

int PluginManager::findPluginByFileName(const wchar_t* fileName)
{
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        if (m_plugins[i] != nullptr && std::wcscmp(m_plugins[i]->GetFileName(), fileName) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

APluginFactory* PluginManager::createPluginRecord(const wchar_t* fileName, wchar_t*& errorText,
                                                  const std::wstring& folder)
{
    if (m_notify != nullptr) {
        m_notify(kLoading + std::wstring(fileName), PMNotificationType::Message);
    }
    WriteDebugText(kDebugLoading + std::wstring(fileName) + L"\n");

    Probe probe{fileName, {}};
    const std::wstring cannotLoad = kCannotLoad + std::wstring(fileName) + kPlugin;
    try {
        if (probe.library.Load(fileName)) {
            inspectLibrary(probe, folder);
        } else {
            probe.errors = LoadErrorText(fileName, probe.library);
        }
    } catch (const std::exception& error) {
        probe.errors = cannotLoad + Utils::Char2Wchar(error.what());
    } catch (...) {
        probe.errors = cannotLoad + kUnexpectedError;
    }
    if (probe.isDropped) {
        // Deliberate: nobody is told, and the library stays loaded.
        // Held by PluginManager.LibraryWithoutCreatePluginIsDroppedInSilence and
        // PluginManager.LibraryWithoutCreatePluginStaysLoaded.
        probe.library.Detach();
        return nullptr;
    }
    // The record holds a load of its own, so that the factory lives on.
    probe.library.Close();
    if (!probe.errors.empty()) {
        reportLoadError(probe.errors, errorText);
    }
    return probe.factory;
}

void PluginManager::inspectLibrary(Probe& probe, const std::wstring& folder)
{
    using TextFunction = const char* (*)();

    // 1. Only a library with CreatePlugin is a plugin.
    if (probe.library.Symbol("CreatePlugin") == nullptr) {
        probe.isDropped = true;
        return;
    }
    auto record = std::make_unique<PluginRecord>();
    record->SetFileName(probe.fileName);

    // 2. The type; the word "Plugins" admits two of them and no others.
    void* const typeSymbol = probe.library.Symbol("GetPluginType");
    if (typeSymbol == nullptr) {
        probe.errors = kMissingType + std::wstring(probe.fileName);
        return;
    }
    const char* const typeText = reinterpret_cast<TextFunction>(typeSymbol)();
    if (folder == L"Plugins") {
        const std::string type = typeText == nullptr ? "" : typeText;
        if (type != "Content" && type != "Loader") {
            probe.isDropped = true;
            return;
        }
        record->SetType(type.c_str());
    }

    // 3. The name.
    void* const nameSymbol = probe.library.Symbol("GetPluginName");
    if (nameSymbol == nullptr) {
        probe.errors = kMissingName + std::wstring(probe.fileName);
        return;
    }
    const char* const nameText = reinterpret_cast<TextFunction>(nameSymbol)();
    record->SetName(Utils::Char2Wchar(nameText).c_str());

    // 4. The record stays in the list, also when there turns out to be no factory.
    PluginRecord* const listed = record.get();
    m_plugins.push_back(listed);
    static_cast<void>(record.release());
    probe.factory = listed->GetInstance();
    if (probe.factory == nullptr) {
        probe.errors = kCannotCreateFactory + std::wstring(probe.fileName);
    }
}

void PluginManager::reportLoadError(const std::wstring& errors, wchar_t*& errorText)
{
    WriteDebugText(kDebugError + errors + L"\n");
    // Deliberate: thrown only without a callback, a pause only with one.
    // Held by PluginManager.LoadErrorWithoutACallbackIsThrown and
    // PluginManager.PausesAfterTellingAnError.
    if (m_notify == nullptr) {
        throw std::runtime_error(Utils::WstringToString(errors));
    }
    m_notify(errors, PMNotificationType::Error);
    errorText = NewCopy(errors.c_str());
    OrvikOs::SleepMs(kErrorPauseMs);
}

void PluginManager::createSearchTemplate(wchar_t* folder, wchar_t* buffer)
{
    AppendSearchPattern(folder, buffer);
}

} // namespace OrvikCore
