#include "ViewSessionFixture.h"

#include "OrvikCore/EnhancedSelectionJob.h"
#include "OrvikCore/RayPickJob.h"

#include <stdexcept>

using OrvikCore::EnhancedSelectionJob;
using OrvikCore::RayPickJob;
using ::testing::HasSubstr;

namespace {

using PickJobs = ViewSession;

} // namespace

TEST_F(PickJobs, RayPickFindsNothingBeforeItHasRun)
{
    m_content->m_hit = m_entity;
    const RayPickJob job(m_session.Document(), TambVizCore::Ray());

    EXPECT_FALSE(job.IsFound());
    EXPECT_TRUE(job.Entity().IsEmpty());
}

TEST_F(PickJobs, RayPickFindsWhatTheDocumentHits)
{
    m_content->m_hit = m_entity;
    const float origin[3] = {1.0f, 2.0f, 3.0f};
    const float direction[3] = {0.0f, 0.0f, -1.0f};
    RayPickJob job(m_session.Document(), TambVizCore::Ray(origin, direction, 0.5));

    EXPECT_TRUE(job.Execute());

    EXPECT_TRUE(job.IsFound());
    EXPECT_EQ(job.Entity(), m_entity);
    EXPECT_EQ(m_content->m_ray, TambVizCore::Ray(origin, direction, 0.5));
}

TEST_F(PickJobs, RayPickThatHitsNothingFails)
{
    RayPickJob job(m_session.Document(), TambVizCore::Ray());

    EXPECT_FALSE(job.Execute());

    EXPECT_FALSE(job.IsFound());
    EXPECT_TRUE(job.Entity().IsEmpty());
}

TEST_F(PickJobs, EnhancedSelectionKeepsTheAnswerOfTheContent)
{
    m_content->m_onHighlight = [] { return true; };
    EnhancedSelectionJob job(m_session.Document(), m_content, nodeId(7));

    EXPECT_TRUE(job.Execute());

    EXPECT_TRUE(job.Result());
    EXPECT_EQ(m_content->m_idAsked, nodeId(7));
}

TEST_F(PickJobs, EnhancedSelectionThatIsDeclinedIsNoFailure)
{
    EnhancedSelectionJob job(m_session.Document(), m_content, nodeId(7));

    EXPECT_TRUE(job.Execute());

    EXPECT_FALSE(job.Result());
}

TEST_F(PickJobs, EnhancedSelectionWithoutContentDoesNothing)
{
    EnhancedSelectionJob job(m_session.Document(), nullptr, nodeId(7));

    EXPECT_TRUE(job.Execute());

    EXPECT_FALSE(job.Result());
}

TEST_F(PickJobs, ExceptionInAnEnhancedSelectionIsTracedAndFails)
{
    m_content->m_onHighlight = []() -> bool { throw std::runtime_error("no index"); };
    EnhancedSelectionJob job(m_session.Document(), m_content, nodeId(7));

    EXPECT_FALSE(job.Execute());

    EXPECT_FALSE(job.Result());
    EXPECT_THAT(debugOutput().Text(),
                HasSubstr("-- Exception in EnhancedSelectionJob: no index\n"));
}
