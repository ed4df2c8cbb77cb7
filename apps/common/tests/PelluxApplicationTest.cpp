#include "../PelluxApplication.h"

#include <TambCommandsInfra/CancelToken.h>

#include <gtest/gtest.h>

namespace {

using Pellux::PelluxApplication;

/// The application of one test; it lies in static storage and is ended in place.
class Application : public testing::Test
{
protected:
    ~Application() override { m_application->~PelluxApplication(); }

    PelluxApplication* m_application = PelluxApplication::Create({L"pellux-batch", true});
};

TEST_F(Application, TellsNameAndKind)
{
    EXPECT_EQ(m_application->GetName(), L"pellux-batch");
    EXPECT_TRUE(m_application->IsBatchMode());
    EXPECT_EQ(m_application->GetVersion(), Pellux::ProgramVersion());
}

TEST_F(Application, QuitAsksForTheEndWithTheGreatestExitCode)
{
    EXPECT_FALSE(m_application->IsQuitRequested());

    m_application->Quit(3);
    m_application->Quit(1);

    EXPECT_TRUE(m_application->IsQuitRequested());
    EXPECT_EQ(m_application->Shutdown(), 3);
}

TEST_F(Application, WithoutTroubleItEndsWell)
{
    EXPECT_EQ(m_application->Shutdown(), 0);
}

TEST_F(Application, AnEngineThatDoesNotEndIsAFailure)
{
    m_application->ReportEngineTerminationFailure(L"stuck");

    EXPECT_EQ(m_application->Shutdown(), 1);
}

TEST_F(Application, PausesAndGoesOn)
{
    m_application->Pause(true);
    EXPECT_TRUE(m_application->IsPaused());
    m_application->Pause(false);
    EXPECT_FALSE(m_application->IsPaused());
}

TEST_F(Application, CancelsTheRunningJob)
{
    auto& token = TambCommandsInfra::CancelToken::Instance();
    const TambCommandsInfra::CancelScope job(token, token.NextJobNumber());

    m_application->CancelRunningJob();

    EXPECT_TRUE(token.IsCancelled());
}

} // namespace
