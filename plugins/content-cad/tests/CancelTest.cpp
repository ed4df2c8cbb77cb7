#include "CadTest.h"

#include <OrvikOs/ThreadWatch.h>
#include <TambCommandsInfra/CancelToken.h>
#include <TambCommandsInfra/Progress.h>

#include <gtest/gtest.h>

#include <atomic>
#include <string>
#include <vector>

namespace OrvikCad {
namespace {

using TambCommandsInfra::CancelToken;
using TambCommandsInfra::Progress;
using TambCommandsInfra::ProgressReport;

/// A file, and the phases that reading it has, each by how its name begins.
struct Phases
{
    const wchar_t* file;
    std::vector<std::wstring> names;
};

std::vector<Phases> allPhases()
{
    const std::wstring reading = L"Reading ";
    const std::wstring making = L"Making shapes of ";
    const std::wstring cutting = L"Cutting into triangles: ";
    return {{L"assembly_ap214.step", {reading, making, cutting}},
            {L"colors.iges", {reading, making, cutting}},
            {L"solids.brep", {reading, cutting}}};
}

/// Cancels the running job when a phase begins, and keeps the names of all that began.
class CancelsInPhase
{
public:
    explicit CancelsInPhase(const std::wstring& begin)
    {
        Progress::Instance().SetObserver([this, begin](const ProgressReport& report) {
            if (report.isFinished)
                return;
            if (seen.empty() || seen.back() != report.phase)
                seen.push_back(report.phase);
            if (report.phase.rfind(begin, 0) == 0)
                CancelToken::Instance().CancelCurrent();
        });
    }
    ~CancelsInPhase() { Progress::Instance().SetObserver(nullptr); }
    CancelsInPhase(const CancelsInPhase&) = delete;
    CancelsInPhase& operator=(const CancelsInPhase&) = delete;

    std::vector<std::wstring> seen;
};

TEST(CadCancel, InAnyPhaseIsTheLastOfReading)
{
    for (const Phases& phases : allPhases())
        for (std::size_t i = 0; i < phases.names.size(); ++i) {
            const CancelsInPhase observer(phases.names[i]);

            const ReadResult read = ReadCad(phases.file);

            EXPECT_FALSE(read.isRead);
            EXPECT_NE(read.error.find(L": reading was cancelled"), std::wstring::npos);
            EXPECT_TRUE(read.model.nodes.empty());
            EXPECT_EQ(observer.seen.size(), i + 1);
        }
}

TEST(CadCancel, EndsAComputationThatWouldNotEnd)
{
#if defined(__SANITIZE_THREAD__) || !defined(__x86_64__)
    GTEST_SKIP() << "no thread can be watched here";
#endif
    std::string text = TestModelText("colors.iges");
    const std::size_t arc = text.find("100,0.,0.,0.,6.,0.,6.,0.;");
    ASSERT_NE(arc, std::string::npos);
    text[arc + 13] = 'x';
    const CancelsInPhase observer(L"Making shapes of ");

    // The only way out is the cancel.
    const ReadResult read =
        ReadCadText(text, "arc.iges", {.silentMs = 1'000'000, .silentMsPerMegabyte = 0});

    EXPECT_NE(read.error.find(L": reading was cancelled"), std::wstring::npos);
}

TEST(CadCancel, GivesTheMemoryBack)
{
#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
    GTEST_SKIP() << "the sanitizer's own memory counts, too";
#endif
    // What the kernel sets up once is there afterwards.
    for (const Phases& phases : allPhases())
        ReadCad(phases.file);
    const std::size_t before = OrvikOs::ResidentBytes();

    for (int turn = 0; turn < 10; ++turn)
        for (const Phases& phases : allPhases())
            for (const std::wstring& name : phases.names) {
                const CancelsInPhase observer(name);
                ReadCad(phases.file);
            }

    EXPECT_LE(OrvikOs::ResidentBytes(), before + (std::size_t{4} << 20));
}

} // namespace
} // namespace OrvikCad
