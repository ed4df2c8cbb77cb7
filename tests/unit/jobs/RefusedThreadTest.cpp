// A system without threads to give. This program puts its own function in the place of that of
// OrvikOs: the dynamic linker takes that of the program first.
#include "DispatcherFixture.h"

#include <OrvikOs/Event.h>
#include <OrvikOs/Thread.h>

#include <gtest/gtest.h>

#include <cstddef>
#include <functional>
#include <stdexcept>
#include <string>

bool OrvikOs::Thread::Start(std::function<void()>, std::size_t)
{
    return false;
}

namespace {

using JobDispatcherWithoutThread = DispatcherTest;

std::string startError()
{
    try {
        OrvikCore::JobDispatcher::Instance();
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "started";
}

TEST_F(JobDispatcherWithoutThread, StartIsAnErrorEachTime)
{
    EXPECT_EQ(startError(), "JobDispatcher cannot start its worker thread");
    EXPECT_EQ(startError(), "JobDispatcher cannot start its worker thread");
}

TEST_F(JobDispatcherWithoutThread, AFailedStartGivesTheNameOfItsEventBack)
{
    startError();

    OrvikOs::Event probe;
    EXPECT_TRUE(probe.Create(L"Local\\JobDispatcherEvent_" +
                             std::to_wstring(OrvikOs::CurrentThreadId()) + L"_" +
                             std::to_wstring(OrvikOs::CurrentProcessId())));
}

} // namespace
