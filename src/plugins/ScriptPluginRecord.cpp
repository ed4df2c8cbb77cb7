#include "OrvikCore/ScriptPluginRecord.h"

#include "PluginFiles.h"
#include "RecordInstance.h"

#include "OrvikCore/AScriptModulePluginFactory.h"

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
    return MakeInstance<AScriptModulePluginFactory>({fileName, module, registerFn, instance},
                                                    "RegisterPlugin");
}

void ScriptPluginRecord::DestroyInstance()
{
    EndInstance(module, instance);
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
