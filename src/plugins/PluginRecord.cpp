#include "OrvikCore/PluginRecord.h"

#include "PluginFiles.h"

#include "OrvikCore/APluginFactory.h"

#include <OrvikOs/Library.h>

#include <memory>

namespace OrvikCore {

PluginRecord::PluginRecord() = default;
PluginRecord::PluginRecord(const PluginRecord& other) = default;
PluginRecord& PluginRecord::operator=(const PluginRecord& other) = default;

PluginRecord::~PluginRecord()
{
    DestroyInstance();
    clearMembers();
}

void PluginRecord::SetFileName(const wchar_t* newFileName)
{
    ReplaceText(fileName, newFileName);
}

void PluginRecord::SetType(const char* newType)
{
    ReplaceText(type, newType);
}

void PluginRecord::SetName(const wchar_t* newName)
{
    ReplaceText(name, newName);
}

wchar_t* PluginRecord::GetFileName() const
{
    return fileName;
}

char* PluginRecord::GetType() const
{
    return type;
}

wchar_t* PluginRecord::GetName() const
{
    return name;
}

APluginFactory* PluginRecord::GetInstance()
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
        createFn = module->Symbol("CreatePlugin");
        if (createFn != nullptr) {
            instance = reinterpret_cast<APluginFactory* (*)()>(createFn)();
        }
    }
    return instance;
}

void PluginRecord::DestroyInstance()
{
    if (module != nullptr) {
        // Deliberate: the library stays loaded for the life of the process.
        // Held by PluginRecordTest.DestroyingTheInstanceKeepsTheLibrary.
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

void PluginRecord::clearMembers()
{
    ReplaceText<wchar_t>(fileName, nullptr);
    ReplaceText<char>(type, nullptr);
    ReplaceText<wchar_t>(name, nullptr);
    module = nullptr;
    createFn = nullptr;
    instance = nullptr;
}

} // namespace OrvikCore
