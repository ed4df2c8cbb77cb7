// What a job costs beside its own work, and what a fault costs.

#include "OrvikCore/CircularFifo.h"
#include "OrvikCore/IJob.h"
#include "OrvikCore/IJobStatusObserver.h"
#include "OrvikCore/JobDispatcher.h"
#include "OrvikCore/JobTicket.h"
#include "OrvikCore/ProcessGlobals.h"
#include "OrvikCore/SignalHandlingContext.h"
#include "OrvikCore/StructuredException.h"

#include <OrvikOs/Thread.h>

#include <benchmark/benchmark.h>

#include <atomic>
#include <string>

namespace {

using OrvikCore::CircularFifo;
using OrvikCore::IJob;
using OrvikCore::JobDispatcher;
using OrvikCore::JobTicket;

class CountingJob : public IJob
{
public:
    bool Execute() override
    {
        runs.fetch_add(1, std::memory_order_release);
        return true;
    }

    std::atomic<int> runs{0};
};

JobDispatcher& dispatcher()
{
    Orvik_mainThreadId = OrvikOs::CurrentThreadId();
    return JobDispatcher::Instance();
}

JobTicket ticketFor(IJob& job, bool sync)
{
    return JobTicket(OrvikCore::JID_EXECUTE_JOB, nullptr, sync, reinterpret_cast<long long>(&job));
}

void writeToNull()
{
    volatile int* volatile nowhere = nullptr;
    *nowhere = 1;
}

void divideByZero()
{
    volatile double zero = 0.0;
    volatile double result = 1.0 / zero;
    static_cast<void>(result);
}

void doNothing() {}

/// The whole way of a job that is waited for, from a worker that sleeps between its looks.
void synchronousJob(benchmark::State& state)
{
    CountingJob job;
    for (auto _ : state) {
        dispatcher().ExecuteJob(job);
    }
}

/// Jobs that the worker finds waiting: what each costs while it need not sleep.
void hundredAsynchronousJobs(benchmark::State& state)
{
    CountingJob job;
    for (auto _ : state) {
        job.runs = 0;
        for (int i = 0; i < 100; ++i) {
            JobTicket ticket = ticketFor(job, /*sync=*/false);
            dispatcher().ExecuteJob(ticket);
        }
        while (dispatcher().IsBusy()) {
            OrvikOs::YieldThread();
        }
        if (job.runs != 100) {
            state.SkipWithError("a job was lost");
            break;
        }
    }
    state.SetItemsProcessed(state.iterations() * 100);
}

/// One ticket into the ring and out of it, on one thread.
void ring(benchmark::State& state)
{
    static CircularFifo<JobTicket, 100> fifo;
    CountingJob job;
    JobTicket sent = ticketFor(job, /*sync=*/false);
    sent.SetMessageText(std::wstring(static_cast<std::size_t>(state.range(0)), L'x'));
    JobTicket received;
    for (auto _ : state) {
        fifo.Push(sent);
        fifo.Pop(received);
        benchmark::DoNotOptimize(received);
    }
}

void ticketText(benchmark::State& state)
{
    CountingJob job;
    JobTicket ticket = ticketFor(job, /*sync=*/true);
    ticket.SetMessageText(std::wstring(static_cast<std::size_t>(state.range(0)), L'x'));
    for (auto _ : state) {
        benchmark::DoNotOptimize(ticket.ToString());
    }
}

/// A context that guards @p subject, and the catching of what it throws.
void guarded(benchmark::State& state, void (*subject)(), bool floatingPointControl)
{
    void (*volatile opaque)() = subject;
    int caught = 0;
    for (auto _ : state) {
        try {
            const OrvikCore::SignalHandlingContext context(floatingPointControl);
            opaque();
        } catch (const OrvikCore::StructuredException& fault) {
            benchmark::DoNotOptimize(fault.what());
            ++caught;
        }
    }
    state.counters["caught"] = benchmark::Counter(caught, benchmark::Counter::kAvgIterations);
}

} // namespace

BENCHMARK(synchronousJob)->Name("Dispatch/synchronous")->UseRealTime();
BENCHMARK(hundredAsynchronousJobs)->Name("Dispatch/asynchronous_100")->UseRealTime();
BENCHMARK(ring)->Name("CircularFifo/message")->Arg(0)->Arg(10000);
BENCHMARK(ticketText)->Name("JobTicket/ToString")->Arg(0)->Arg(10000);
BENCHMARK_CAPTURE(guarded, plain, doNothing, false)->Name("Context/nothing_happens");
BENCHMARK_CAPTURE(guarded, traps, doNothing, true)->Name("Context/nothing_happens_with_traps");
BENCHMARK_CAPTURE(guarded, fault, writeToNull, false)->Name("Context/null_write_caught");
BENCHMARK_CAPTURE(guarded, trap, divideByZero, true)->Name("Context/division_by_zero_caught");
