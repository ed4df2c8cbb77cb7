#include <OrvikOs/Environment.h>
#include <OrvikOs/FaultHook.h>
#include <OrvikOs/FaultScope.h>
#include <OrvikOs/FpMasked.h>
#include <OrvikOs/ParallelFor.h>
#include <OrvikOs/Thread.h>

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cwchar>
#include <exception>
#include <list>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace OrvikOs {

namespace {

constexpr unsigned kMaxWidth = 256;

thread_local bool t_insidePiece = false; ///< The calling thread runs a piece of some loop.

/// One running loop.
struct Loop
{
    std::size_t count = 0;
    std::size_t grain = 1;
    std::size_t pieces = 0;
    const std::function<void(std::size_t, std::size_t)>* body =
        nullptr;                       ///< The caller's; not owned.
    FaultHandlers handlers;            ///< The caller's own handlers, used by every piece.
    std::atomic<std::size_t> next{0};  ///< Number of the next piece to hand out.
    std::atomic<bool> stopped{false};  ///< A piece has thrown: hand out no more.
    std::exception_ptr firstException; ///< Guarded by the pool's lock while helpers run.
    unsigned helpersWanted = 0;        ///< Guarded by the pool's lock.
    unsigned helpersInside = 0;        ///< Guarded by the pool's lock.
    std::condition_variable helpersLeft;
};

/// Threads that help with loops. Made on first use, never destroyed: idle threads do not hinder the
/// end of the process, and nothing is left to static destructors.
class HelperPool
{
public:
    static HelperPool& Instance()
    {
        static auto* const pool = new HelperPool();
        return *pool;
    }

    /// Runs @p loop on the calling thread and on helpers; returns when all of it has ended.
    void Run(Loop& loop, unsigned helpers)
    {
        {
            const std::lock_guard<std::mutex> lock(m_mutex);
            growTo(helpers);
            loop.helpersWanted = helpers;
            m_loops.push_back(&loop);
        }
        m_work.notify_all();
        RunPieces(loop);

        std::unique_lock<std::mutex> lock(m_mutex);
        m_loops.remove(&loop);
        loop.helpersLeft.wait(lock, [&loop] { return loop.helpersInside == 0; });
    }

    /// Runs pieces until none is left; keeps the first exception.
    void RunPieces(Loop& loop)
    {
        const FaultScope faults;
        const FaultHookScope noHook(nullptr, nullptr);
        const FpMasked masked;
        const FaultHandlers ownHandlers = SetThreadFaultHandlers(loop.handlers);
        t_insidePiece = true;
        try {
            while (!loop.stopped.load(std::memory_order_relaxed)) {
                const std::size_t piece = loop.next.fetch_add(1, std::memory_order_relaxed);
                if (piece >= loop.pieces) {
                    break;
                }
                const std::size_t begin = piece * loop.grain;
                (*loop.body)(begin, begin + std::min(loop.grain, loop.count - begin));
            }
        } catch (...) {
            keepException(loop, std::current_exception());
        }
        t_insidePiece = false;
        SetThreadFaultHandlers(ownHandlers);
    }

private:
    HelperPool() = default;

    void keepException(Loop& loop, const std::exception_ptr& exception)
    {
        FaultScope::RearmStackGuard();
        loop.stopped.store(true, std::memory_order_relaxed);
        const std::lock_guard<std::mutex> lock(m_mutex);
        if (!loop.firstException) {
            loop.firstException = exception;
        }
    }

    /// Starts threads until there are @p helpers; fewer when the system refuses. Under the lock.
    void growTo(unsigned helpers)
    {
        while (m_threads.size() < helpers) {
            auto thread = std::make_unique<Thread>();
            if (!thread->Start([this] { help(); })) {
                return;
            }
            thread->SetName("OrvikHelper");
            m_threads.push_back(std::move(thread));
        }
    }

    /// The life of a helper.
    void help()
    {
        std::unique_lock<std::mutex> lock(m_mutex);
        for (;;) {
            const auto wanting = std::find_if(m_loops.begin(), m_loops.end(), [](const Loop* loop) {
                return loop->helpersWanted > 0;
            });
            if (wanting == m_loops.end()) {
                m_work.wait(lock);
                continue;
            }
            Loop& loop = **wanting;
            --loop.helpersWanted;
            ++loop.helpersInside;
            lock.unlock();
            RunPieces(loop);
            lock.lock();
            if (--loop.helpersInside == 0) {
                loop.helpersLeft.notify_all();
            }
        }
    }

    std::mutex m_mutex;
    std::condition_variable m_work;
    std::list<Loop*> m_loops; ///< Loops that run now; not owned.
    std::vector<std::unique_ptr<Thread>> m_threads;
};

unsigned readWidth()
{
    if (const auto wish = EnvironmentVariable("ORVIK_THREADS")) {
        const unsigned long width = std::wcstoul(wish->c_str(), nullptr, 10);
        if (width >= 1 && width <= kMaxWidth) {
            return static_cast<unsigned>(width);
        }
    }
    return std::clamp(std::thread::hardware_concurrency(), 1u, kMaxWidth);
}

} // namespace

unsigned ParallelWidth()
{
    static const unsigned width = readWidth();
    return width;
}

void ParallelFor(std::size_t count, std::size_t grain,
                 const std::function<void(std::size_t begin, std::size_t end)>& body)
{
    if (count == 0) {
        return;
    }
    Loop loop;
    loop.count = count;
    loop.grain = std::max<std::size_t>(grain, 1);
    loop.pieces = (count - 1) / loop.grain + 1;
    loop.body = &body;
    loop.handlers = GetThreadFaultHandlers();

    const std::size_t helpers = std::min<std::size_t>(ParallelWidth(), loop.pieces) - 1;
    const bool isNested = t_insidePiece;
    // Helpers inherit the floating-point setting of the thread that makes them.
    const FpMasked masked;
    if (helpers == 0 || isNested) {
        HelperPool::Instance().RunPieces(loop);
        t_insidePiece = isNested;
    } else {
        HelperPool::Instance().Run(loop, static_cast<unsigned>(helpers));
    }
    if (loop.firstException) {
        std::rethrow_exception(loop.firstException);
    }
}

} // namespace OrvikOs
