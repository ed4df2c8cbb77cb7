#include "OrvikCore/ScriptPluginManager.h"

#include "PluginFiles.h"
#include "PluginTexts.h"

#include "OrvikCore/AScriptEngine.h"
#include "OrvikCore/AScriptEngineFactory.h"
#include "OrvikCore/AScriptModulePluginFactory.h"
#include "OrvikCore/ScriptPluginRecord.h"

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

namespace {

/// Makes the engine of a loaded library; null when its factory gives none.
std::unique_ptr<AScriptEngine> MakeEngine(const OrvikOs::Library& library)
{
    void* const symbol = library.Symbol("RegisterScriptEngineFactory");
    if (symbol == nullptr) {
        throw std::runtime_error(kNoEngineFactory);
    }
    const std::unique_ptr<AScriptEngineFactory> factory(
        reinterpret_cast<AScriptEngineFactory* (*)()>(symbol)());
    return std::unique_ptr<AScriptEngine>(factory == nullptr ? nullptr : factory->CreateEngine());
}

} // namespace

ScriptPluginManager& ScriptPluginManager::Instance()
{
    static ScriptPluginManager instance;
    return instance;
}

ScriptPluginManager::ScriptPluginManager() = default;

ScriptPluginManager::~ScriptPluginManager()
{
    clearPluginList();
}

void ScriptPluginManager::LoadPlugins()
{
    clearPluginList();
    const std::vector<std::wstring> files =
        FindPluginFiles(L"Scheme", {L"OrvikWendGormScriptCommandsn.dll", L"WendPluginWorker.dll"});
    for (const std::wstring& file : files) {
        createPluginRecord(file.c_str());
    }
}

bool ScriptPluginManager::LoadPlugin(const wchar_t* fileName)
{
    // Deliberate: a file name is compared with the names of plugins.
    // Held by ScriptPluginManager.LoadingAPathTwiceMakesASecondRecord.
    return FindPluginByName(fileName) >= 0 || createPluginRecord(fileName);
}

bool ScriptPluginManager::Initialize(void* context)
{
    m_initializationErrors.clear();
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        initializeRecord(*m_plugins[i], context);
    }
    return true;
}

void ScriptPluginManager::initializeRecord(ScriptPluginRecord& record, void* context)
{
    const std::wstring path = Utils::ToLowerAscii(record.GetFileName());
    if (m_notify != nullptr) {
        m_notify(kInitializing + path + kDots, PMNotificationType::Message);
    }
    std::wstring report;
    try {
        const TambCommandsInfra::ProtectSignalHandlingContext protection;
        AScriptModulePluginFactory* const factory = record.GetInstance();
        if (factory != nullptr) {
            factory->Initialize(context, m_preLoad);
        }
    } catch (const std::exception& error) {
        const std::wstring text = Utils::Char2Wchar(error.what());
        report = kInitializing + path +
                 (text.empty() ? kFailed : kFailedWithText + text + kContinuingAfterText);
        m_initializationErrors.push_back(kInitializationErrorAt + path + kInitializationErrorEnd +
                                         text);
    } catch (...) {
        report = kInitializing + path + kFailed;
        m_initializationErrors.push_back(kUnrecognizedException + path + L"\n");
    }
    if (!report.empty() && m_notify != nullptr) {
        m_notify(report, PMNotificationType::Error);
    }
}

const std::vector<std::wstring>& ScriptPluginManager::GetInitializationErrors() const
{
    return m_initializationErrors;
}

bool ScriptPluginManager::Terminate()
{
    clearPluginList();
    return true;
}

void ScriptPluginManager::SetPreLoadFlag(bool preLoad)
{
    m_preLoad = preLoad;
}

void ScriptPluginManager::SetNotificationCb(PMNotificationCallback callback)
{
    m_notify = callback;
}

AScriptEngine* ScriptPluginManager::LoadScriptEngine(const wchar_t* fileName)
{
    std::unique_ptr<AScriptEngine> engine;
    std::wstring errors;
    OrvikOs::Library library;
    const std::wstring cannotMake = kCannotMakeEngine + std::wstring(fileName);
    try {
        if (!library.Load(fileName)) {
            errors = kCannotLoad + std::wstring(fileName);
        } else {
            engine = MakeEngine(library);
            errors = engine == nullptr ? cannotMake : std::wstring();
        }
    } catch (const std::exception& error) {
        errors = cannotMake + kWithError + Utils::Char2Wchar(error.what());
    } catch (...) {
        errors = cannotMake;
    }

    if (engine == nullptr) {
        library.Close();
        // Deliberate: thrown only without a callback. Held by
        // ScriptEngineLoading.LibraryThatCannotBeLoadedIsThrownWithoutACallback.
        if (m_notify == nullptr) {
            throw std::runtime_error(Utils::WstringToString(errors));
        }
        m_notify(errors, PMNotificationType::Error);
        return nullptr;
    }
    library.Detach(); // The engine's code stays loaded for the life of the process.
    if (m_notify != nullptr) {
        m_notify(kUsing + engine->GetName() + kScriptEngine, PMNotificationType::Message);
    }
    return engine.release();
}

int ScriptPluginManager::FindPluginByName(const wchar_t* name)
{
    for (std::size_t i = 0; i < m_plugins.size(); ++i) {
        if (std::wcscmp(m_plugins[i]->GetName(), name) == 0) {
            return static_cast<int>(i);
        }
    }
    return -1;
}

std::vector<AScriptModulePluginFactory*> ScriptPluginManager::GetPlugins()
{
    std::vector<AScriptModulePluginFactory*> factories;
    for (ScriptPluginRecord* record : m_plugins) {
        AScriptModulePluginFactory* const factory = InstanceOrNull(*record);
        if (factory != nullptr) {
            factories.push_back(factory);
        }
    }
    return factories;
}

void ScriptPluginManager::clearPluginList()
{
    for (auto record = m_plugins.rbegin(); record != m_plugins.rend(); ++record) {
        delete *record;
    }
    m_plugins.clear();
}

bool ScriptPluginManager::createPluginRecord(const wchar_t* fileName)
{
    // 1. Announce the library and load it.
    if (m_notify != nullptr) {
        m_notify(kLoading + Utils::ToLowerAscii(fileName), PMNotificationType::Message);
    }
    bool isGood = false;
    std::wstring errors;
    OrvikOs::Library library;
    try {
        if (!library.Load(fileName)) {
            errors = LoadErrorText(fileName, library);
        } else if (library.Symbol("RegisterPlugin") == nullptr) {
            // 2. Deliberate: what is no script plugin is passed over and stays loaded.
            // Held by ScriptPluginManager.LibraryWithoutRegisterPluginStaysLoaded.
            library.Detach();
            isGood = true;
        } else {
            // 3. Deliberate: a script plugin without a name fails in silence and stays loaded.
            // Held by ScriptPluginManager.LibraryWithoutANameStaysLoaded.
            auto record = std::make_unique<ScriptPluginRecord>();
            record->SetFileName(fileName);
            void* const nameSymbol = library.Symbol("GetScriptPluginName");
            if (nameSymbol == nullptr) {
                library.Detach();
                return false;
            }
            const char* const name = reinterpret_cast<const char* (*)()>(nameSymbol)();
            record->SetName(Utils::Char2Wchar(name).c_str());
            // 4. The record stays in the list, also when there turns out to be no factory.
            ScriptPluginRecord* const listed = record.get();
            m_plugins.push_back(listed);
            static_cast<void>(record.release());
            listed->GetInstance();
            isGood = true;
        }
    } catch (...) {
        // Deliberate: without a text; the host is told by an empty one.
        // Held by ScriptPluginManager.ThrowingRegisterPluginIsToldWithAnEmptyText.
        isGood = false;
    }

    // 5. Release the probe's load (the record has its own) and tell the failure.
    // Deliberate: nothing is thrown here, and a pause follows only where a host was told.
    // Held by ScriptPluginManager.PlainFileIsNoExceptionWithoutACallback and
    // ScriptPluginManager.PlainFileIsToldAndFollowedByAPause.
    library.Close();
    if (!isGood && m_notify != nullptr) {
        m_notify(errors, PMNotificationType::Error);
        OrvikOs::SleepMs(kErrorPauseMs);
    }
    return isGood;
}

void ScriptPluginManager::createSearchTemplate(wchar_t* folder, wchar_t* buffer)
{
    AppendSearchPattern(folder, buffer);
}

} // namespace OrvikCore
