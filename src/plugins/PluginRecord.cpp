#include "OrvikCore/PluginRecord.h"

#include "PluginFiles.h"
#include "RecordInstance.h"

#include "OrvikCore/APluginFactory.h"

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
    return MakeInstance<APluginFactory>({fileName, module, createFn, instance}, "CreatePlugin");
}

void PluginRecord::DestroyInstance()
{
    EndInstance(module, instance);
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
