#ifndef TESTS_RECORDINGSLEEPER_H
#define TESTS_RECORDINGSLEEPER_H

#include <OrvikOs/Sleeper.h>

#include <vector>

/// Remembers the sleeps of a test with one thread and lets no time pass.
class RecordingSleeper : public OrvikOs::ISleeper
{
public:
    RecordingSleeper() : m_before(OrvikOs::SetSleeper(this)) {}
    ~RecordingSleeper() override { OrvikOs::SetSleeper(m_before); }
    RecordingSleeper(const RecordingSleeper&) = delete;
    RecordingSleeper& operator=(const RecordingSleeper&) = delete;

    void SleepMs(int milliseconds) override { m_sleepsMs.push_back(milliseconds); }

    std::vector<int> m_sleepsMs;

private:
    OrvikOs::ISleeper* m_before;
};

#endif
