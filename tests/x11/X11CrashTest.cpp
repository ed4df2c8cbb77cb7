#include "XSession.h"

#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

class ACrash : public ::testing::Test
{
protected:
    void SetUp() override
    {
        if (!m_x.WhyNot().empty())
            GTEST_SKIP() << m_x.WhyNot();
    }

    bool StartAndWait()
    {
        fs::remove(m_x.Dir().Path() / "ready");
        return m_x.Start({"--eval", "(app:print 1)", "--eval", m_x.Writing("ready", "1")}) &&
               XSession::Until([&] { return m_x.Read("ready") == "1"; });
    }

    std::size_t Marks() const
    {
        const fs::path folder = m_x.Dir().Path() / "state/pellux/running";
        return static_cast<std::size_t>(
            std::distance(fs::directory_iterator(folder), fs::directory_iterator()));
    }

    XSession m_x;
};

TEST_F(ACrash, LeavesItsMarkForTheNextStart)
{
    ASSERT_TRUE(StartAndWait());
    EXPECT_EQ(Marks(), 1U);
    m_x.Signal(SIGKILL);
    EXPECT_EQ(m_x.WaitForEnd(), 128 + SIGKILL);
    EXPECT_EQ(Marks(), 1U);

    // It stays until somebody has answered.
    ASSERT_TRUE(StartAndWait());
    EXPECT_EQ(Marks(), 2U);
}

TEST_F(ACrash, AGoodEndLeavesNone)
{
    ASSERT_TRUE(StartAndWait());
    m_x.Signal(SIGINT);
    EXPECT_EQ(m_x.WaitForEnd(), 130);

    EXPECT_EQ(Marks(), 0U);
}

} // namespace
