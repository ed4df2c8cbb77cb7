#include <OrvikOs/Event.h>
#include <OrvikOs/MsgWait.h>
#include <TambCommandsInfra/CallGate.h>
#include <TambCommandsInfra/CommandTable.h>

#include <benchmark/benchmark.h>

#include <string>
#include <thread>

using TambCommandsInfra::CallGate;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::Value;
using TambCommandsInfra::ValueType;

namespace {

/// A thread that waits in MsgWait as the main thread does, with a gate that it drains.
class MainThread
{
public:
    MainThread()
    {
        m_ready.Create();
        m_stop.Create();
        m_thread = std::thread([this] {
            const CallGate gate;
            m_ready.Set();
            OrvikOs::MsgWait(m_stop, -1, 0);
        });
        m_ready.Wait(-1);
    }

    ~MainThread()
    {
        m_stop.Set();
        m_thread.join();
    }

    MainThread(const MainThread&) = delete;
    MainThread& operator=(const MainThread&) = delete;

private:
    OrvikOs::Event m_ready;
    OrvikOs::Event m_stop;
    std::thread m_thread;
};

void callAcrossTheGate(benchmark::State& state)
{
    const MainThread mainThread;
    int count = 0;
    for (auto _ : state) {
        CallGate::Call([&count] { ++count; });
    }
    benchmark::DoNotOptimize(count);
}
BENCHMARK(callAcrossTheGate)->Name("CallGate/Call/across_threads")->UseRealTime();

void callWithoutGate(benchmark::State& state)
{
    int count = 0;
    for (auto _ : state) {
        CallGate::Call([&count] { ++count; });
    }
    benchmark::DoNotOptimize(count);
}
BENCHMARK(callWithoutGate)->Name("CallGate/Call/at_once");

void postPrints(benchmark::State& state)
{
    const MainThread mainThread;
    const std::wstring line(80, L'x');
    std::size_t characters = 0; // touched on the main thread only
    for (auto _ : state) {
        CallGate::Post([line, &characters] { characters += line.size(); },
                       line.size() * sizeof(wchar_t));
    }
    CallGate::Call([] {});
    state.SetItemsProcessed(state.iterations());
}
BENCHMARK(postPrints)->Name("CallGate/Post/80_characters")->UseRealTime();

void runCommand(benchmark::State& state)
{
    CommandTable table;
    Command command;
    command.name = "bench:box";
    command.parameters = {{"low", ValueType::Point, "one corner"},
                          {"high", ValueType::Point, "the other corner"}};
    command.summary = "Does nothing.";
    command.example = "(bench:box '(0 0 0) '(1 1 1))";
    command.handler = [](const TambCommandsInfra::Arguments&) { return Value(); };
    table.Register(command);
    const Value corner = Value::FromVector({1.0, 2.0, 3.0});
    for (auto _ : state) {
        benchmark::DoNotOptimize(table.Run("bench:box", {corner, corner}));
    }
}
BENCHMARK(runCommand)->Name("CommandTable/Run/two_points");

} // namespace
