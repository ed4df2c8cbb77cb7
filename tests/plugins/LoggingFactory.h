#ifndef TESTS_LOGGINGFACTORY_H
#define TESTS_LOGGINGFACTORY_H

#include "OrvikCore/APluginFactory.h"
#include "OrvikCore/AScriptModulePluginFactory.h"

#include <OrvikOs/DebugOutput.h>
#include <TambVizCore/Utils.h>

#include <string>
#include <utility>
#include <vector>

/// Writes "[who] what" as a line to the debugger output, where the test reads it.
inline void LogCall(const std::string& who, const std::string& what)
{
    OrvikOs::WriteDebug(("[" + who + "] " + what + "\n").c_str());
}

/// A plugin's factory that logs every call and initialises without trouble.
class LoggingFactory : public OrvikCore::APluginFactory
{
public:
    explicit LoggingFactory(std::string name, std::vector<std::wstring> required = {})
        : m_name(std::move(name)), m_required(std::move(required))
    {
        LogCall(m_name, "created");
    }
    ~LoggingFactory() override { LogCall(m_name, "deleted"); }

    void* CreateObject(const char* objectName) override
    {
        LogCall(m_name, std::string("CreateObject ") + objectName);
        return nullptr;
    }
    void Terminate() override { LogCall(m_name, "Terminate"); }

protected:
    void describe() override
    {
        LogCall(m_name, "describe");
        setName(m_name);
    }
    void doInitialize(void** const context) override
    {
        LogCall(m_name, "doInitialize " + (context == nullptr
                                               ? "null"
                                               : TambVizCore::Utils::PointerToHexString(*context)));
        m_initialized = true;
    }
    void doPreLoad() override { LogCall(m_name, "doPreLoad"); }
    std::vector<std::wstring> getPreqPlugins() override { return m_required; }
    void createContextMenuItems() override { LogCall(m_name, "createContextMenuItems"); }

private:
    std::string m_name;
    std::vector<std::wstring> m_required;
};

/// A script plugin's factory that logs every call and initialises without trouble.
class LoggingScriptFactory : public OrvikCore::AScriptModulePluginFactory
{
public:
    explicit LoggingScriptFactory(std::string name, std::vector<std::wstring> required = {})
        : m_name(std::move(name)), m_required(std::move(required))
    {
        LogCall(m_name, "created");
    }
    ~LoggingScriptFactory() override { LogCall(m_name, "deleted"); }

    void Terminate() override { LogCall(m_name, "Terminate"); }

protected:
    bool doInitialize(void* context) override
    {
        LogCall(m_name, "doInitialize " + TambVizCore::Utils::PointerToHexString(context));
        m_initialized = true;
        return true;
    }
    void describe() override
    {
        LogCall(m_name, "describe");
        setName(m_name);
    }
    void doPreLoad() override { LogCall(m_name, "doPreLoad"); }
    std::vector<std::wstring> getPreqPlugins() override { return m_required; }
    void createContextMenuItems() override { LogCall(m_name, "createContextMenuItems"); }

private:
    std::string m_name;
    std::vector<std::wstring> m_required;
};

#endif
