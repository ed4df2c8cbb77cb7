#include <OrvikOs/FaultScope.h>
#include <OrvikOs/FpMasked.h>

#include <benchmark/benchmark.h>

#include <cstdlib>
#include <exception>
#include <memory>

// What it costs to turn a fault into an exception and to catch it, and to hold scopes open.

namespace {

/// Something whose destructor is due on the way out, as in real callers.
struct Cleanup
{
    explicit Cleanup(int* target) : m_target(target) {}
    ~Cleanup() { ++*m_target; }
    Cleanup(const Cleanup&) = delete;
    Cleanup& operator=(const Cleanup&) = delete;

private:
    int* m_target;
};

class Job
{
public:
    virtual ~Job() = default;
    virtual void Execute() = 0;
};

class FaultyJob : public Job
{
public:
    explicit FaultyJob(int depth) : m_depth(depth) {}
    void Execute() override { descend(m_depth); }

private:
    __attribute__((noinline)) void descend(int depth)
    {
        const Cleanup cleanup(&m_cleaned);
        if (depth > 0) {
            descend(depth - 1);
        } else {
            int* volatile address = nullptr;
            *address = 1;
        }
        asm volatile("");
    }

    int m_depth;
    int m_cleaned = 0;
};

bool runCaught(Job& job)
{
    try {
        job.Execute();
        return true;
    } catch (const std::exception&) {
        return false;
    }
}

void NullWrite(benchmark::State& state)
{
    const OrvikOs::FaultScope scope;
    const std::unique_ptr<Job> job = std::make_unique<FaultyJob>(static_cast<int>(state.range(0)));
    for (auto _ : state) {
        benchmark::DoNotOptimize(runCaught(*job));
    }
}
BENCHMARK(NullWrite)->Name("FaultToException/depth")->Arg(1)->Arg(10)->Arg(50);

void AbortCall(benchmark::State& state)
{
    class AbortingJob : public Job
    {
    public:
        void Execute() override { std::abort(); }
    };
    const OrvikOs::FaultScope scope;
    const std::unique_ptr<Job> job = std::make_unique<AbortingJob>();
    for (auto _ : state) {
        benchmark::DoNotOptimize(runCaught(*job));
    }
}
BENCHMARK(AbortCall)->Name("AbortToException");

void OutermostScope(benchmark::State& state)
{
    for (auto _ : state) {
        const OrvikOs::FaultScope scope;
        benchmark::ClobberMemory();
    }
}
BENCHMARK(OutermostScope)->Name("FaultScope/outermost");

void NestedScope(benchmark::State& state)
{
    const OrvikOs::FaultScope outer;
    for (auto _ : state) {
        const OrvikOs::FaultScope scope;
        benchmark::ClobberMemory();
    }
}
BENCHMARK(NestedScope)->Name("FaultScope/nested");

void MaskedScope(benchmark::State& state)
{
    for (auto _ : state) {
        const OrvikOs::FpMasked masked;
        benchmark::ClobberMemory();
    }
}
BENCHMARK(MaskedScope)->Name("FpMasked");

} // namespace
