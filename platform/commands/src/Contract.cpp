#include "TambCommandsInfra/Contract.h"

#include <OrvikOs/DebugOutput.h>

#include <string>

std::atomic<bool> TambContractChecksOn{true};

namespace TambCommandsInfra {

namespace {

void writeToDebugOutput(const char* condition, const char* source)
{
    const std::string line = std::string("Contract violated: ") + condition + " (" + source + ")\n";
    OrvikOs::WriteDebug(line.c_str());
}

std::atomic<ContractHandler> g_handler{&writeToDebugOutput};

} // namespace

ContractHandler SetContractHandler(ContractHandler handler)
{
    return g_handler.exchange(handler ? handler : &writeToDebugOutput);
}

void RaiseContractAssertion(const char* condition, const char* source)
{
    const ContractHandler handler = g_handler.load(std::memory_order_acquire);
    handler(condition ? condition : "", source ? source : "");
}

} // namespace TambCommandsInfra
