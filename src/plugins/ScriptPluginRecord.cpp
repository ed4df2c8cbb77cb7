#include "OrvikCore/ScriptPluginRecord.h"

#include "PluginFiles.h"

#include "OrvikCore/AScriptModulePluginFactory.h"

#include <OrvikOs/Library.h>

#include <memory>

namespace OrvikCore {

ScriptPluginRecord::ScriptPluginRecord() = default;
ScriptPluginRecord::ScriptPluginRecord(const ScriptPluginRecord& other) = default;
ScriptPluginRecord& ScriptPluginRecord::operator=(const ScriptPluginRecord& other) = default;

ScriptPluginRecord::~ScriptPluginRecord()
{
    DestroyInstance();
    clearMembers();
}

void ScriptPluginRecord::SetFileName(const wchar_t* newFileName)
{
    ReplaceText(fileName, newFileName);
}

void ScriptPluginRecord::SetName(const wchar_t* newName)
{
    ReplaceText(name, newName);
}

wchar_t* ScriptPluginRecord::GetFileName() const
{
    return fileName;
}

wchar_t* ScriptPluginRecord::GetName() const
{
    return name;
}

AScriptModulePluginFactory* ScriptPluginRecord::GetInstance()
{
    if (instance != nullptr) {
        return instance;
    }
    if (module == nullptr && fileName != nullptr) {
        auto library = std::make_unique<OrvikOs::Library>();
        if (library->Load(fileName)) {
            module = library.release();
        }
    }
    if (module != nullptr) {
        registerFn = module->Symbol("RegisterPlugin");
        if (registerFn != nullptr) {
            instance = reinterpret_cast<AScriptModulePluginFactory* (*)()>(registerFn)();
        }
    }
    return instance;
}

void ScriptPluginRecord::DestroyInstance()
{
    if (module != nullptr) {
        // Deliberate: the library stays loaded for the life of the process.
        // Held by ScriptPluginRecordTest.DestroyingTheInstanceKeepsTheLibrary.
        module->Detach();
        delete module;
        module = nullptr;
    }
    if (instance != nullptr) {
        instance->Terminate();
        delete instance;
        instance = nullptr;
    }
}

void ScriptPluginRecord::clearMembers()
{
    ReplaceText<wchar_t>(fileName, nullptr);
    ReplaceText<wchar_t>(name, nullptr);
    module = nullptr;
    registerFn = nullptr;
    instance = nullptr;
}

} // namespace OrvikCore
