#include <OrvikOs/MsgWait.h>
#include <OrvikOs/Thread.h>

#include <benchmark/benchmark.h>

#include <atomic>

namespace {

void SetAndTake(benchmark::State& state)
{
    OrvikOs::Event event;
    event.Create();
    for (auto _ : state) {
        event.Set();
        benchmark::DoNotOptimize(event.Wait(-1));
    }
}
BENCHMARK(SetAndTake)->Name("Event/set_and_wait");

/// Answers a call of another thread.
class EchoSource : public OrvikOs::IWakeSource
{
public:
    EchoSource()
    {
        m_event.Create();
        m_answer.Create();
    }
    OrvikOs::Event& WakeEvent() override { return m_event; }
    void Serve() override { m_answer.Set(); }
    void Call()
    {
        m_event.Set();
        m_answer.Wait(-1);
    }

private:
    OrvikOs::Event m_event;
    OrvikOs::Event m_answer;
};

/// A call from this thread to one that waits for messages, and back.
void CallAcross(benchmark::State& state)
{
    EchoSource echo;
    OrvikOs::Event end;
    OrvikOs::Event ready;
    end.Create();
    ready.Create();
    OrvikOs::Thread waiting;
    waiting.Start([&] {
        OrvikOs::RegisterWakeSource(echo);
        ready.Set();
        OrvikOs::MsgWait(end, -1, 0x36);
        OrvikOs::UnregisterWakeSource(echo);
    });
    ready.Wait(-1);
    for (auto _ : state) {
        echo.Call();
    }
    end.Set();
    waiting.Join();
}
BENCHMARK(CallAcross)->Name("WakeSource/call_and_answer")->UseRealTime();

} // namespace
