#include "TreeWalkCommand.h"

#include <OrvikCore/AScriptModulePluginFactory.h>
#include <OrvikOs/FileWriting.h>
#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Thread.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/CommandTable.h>

#include <atomic>
#include <csignal>
#include <stdexcept>
#include <string>
#include <utility>

namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::CallGate;
using TambCommandsInfra::CancelToken;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandHandler;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

__attribute__((noinline, no_sanitize("address", "undefined", "thread"))) void writeNull()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

Value fault(const Arguments&)
{
    writeNull();
    return Value();
}

Value divide(const Arguments&)
{
    volatile double zero = 0.0;
    volatile double result = 1.0 / zero;
    return Value(static_cast<double>(result));
}

Value fail(const Arguments&)
{
    throw std::runtime_error("It does not work.");
}

Value failOddly(const Arguments&)
{
    throw 42;
}

/// Two Ctrl-C, and no look at the cancel token.
Value shrugOff(const Arguments&)
{
    std::raise(SIGINT);
    std::raise(SIGINT);
    for (volatile bool forever = true; forever;) {
    }
    return Value();
}

/// A Ctrl-C whose cancel has arrived when a model begins to load.
Value loadCancelled(const Arguments& arguments)
{
    std::raise(SIGINT);
    while (!CancelToken::Instance().IsCancelled()) {
    }
    return CommandTable::Instance().Run("doc:load", {arguments["path"]});
}

/// Asks the application to end, once.
class QuitSource : public OrvikOs::IMessageSource
{
public:
    bool HasInput(unsigned) override { return !m_isTaken.load(std::memory_order_acquire); }
    bool Peek(OrvikOs::Message& message, bool) override
    {
        message.id = OrvikOs::kMessageQuit;
        return !m_isTaken.exchange(true, std::memory_order_acq_rel);
    }
    void Translate(const OrvikOs::Message&) override {}
    void Dispatch(const OrvikOs::Message&) override {}

    bool IsTaken() const { return m_isTaken.load(std::memory_order_acquire); }

private:
    std::atomic<bool> m_isTaken{false};
};

/// Ends the wait for its own job, then needs the main thread, and writes how it went.
Value outlive(const Arguments& arguments)
{
    static QuitSource& source = *new QuitSource;
    CallGate::Call([] { OrvikOs::SetMessageSource(&source); });
    while (!source.IsTaken())
        OrvikOs::YieldThread();
    std::string end = "served";
    try {
        for (int i = 0; i < 1000; ++i)
            CallGate::Call([] {});
    } catch (const std::exception& error) {
        end = error.what();
    }
    const std::wstring file = arguments["path"].AsString();
    OrvikOs::WriteFileAtomically(file, end.data(), end.size(), nullptr);
    return Value();
}

Command make(const char* name, CommandHandler handler)
{
    Command command;
    command.name = name;
    command.summary = "Does what a test needs.";
    command.example = "(" + command.name + ")";
    command.handler = std::move(handler);
    return command;
}

class TestCommandsFactory : public OrvikCore::AScriptModulePluginFactory
{
public:
    void Terminate() override {}

protected:
    bool doInitialize(void* context) override
    {
        auto& table = *static_cast<CommandTable*>(context);
        table.Register(make("test:fault", fault));
        table.Register(make("test:fp-divide", divide));
        table.Register(make("test:throw", fail));
        table.Register(make("test:throw-oddly", failOddly));
        table.Register(make("test:shrug-off", shrugOff));
        Command load = make("test:load-cancelled", loadCancelled);
        TambCommandsInfra::Parameter path;
        path.name = "path";
        path.type = ValueType::Path;
        path.help = "file to read";
        load.parameters = {path};
        table.Register(load);
        Command outliving = make("test:outlive", outlive);
        outliving.parameters = {path};
        table.Register(outliving);
        RegisterTreeWalkCommand(table);
        m_initialized = true;
        return true;
    }

    void describe() override
    {
        setName("TestCommands");
        setDescription(L"Commands that fail");
    }
};

} // namespace

extern "C" ORVIK_PLUGIN_API OrvikCore::AScriptModulePluginFactory* RegisterPlugin()
{
    return new TestCommandsFactory;
}

extern "C" ORVIK_PLUGIN_API const char* GetScriptPluginName()
{
    return "TestCommands";
}
