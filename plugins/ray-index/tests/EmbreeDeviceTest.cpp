#include "EmbreeDevice.h"

#include "FaceTree.h"
#include "Shapes.h"

#include <gtest/gtest.h>

#include <atomic>
#include <new>
#include <stdexcept>
#include <string>

namespace OrvikRay {
namespace {

/// What the replaced functions of a test report; threads that join a build write it together.
std::atomic<RTCError> g_error = RTC_ERROR_NONE;

RTCDevice noDevice(const char* /*configuration*/)
{
    return nullptr;
}

RTCError givenError(RTCDevice /*device*/)
{
    return g_error;
}

/// Commits nothing and leaves an error behind, as Embree does when it fails.
void failToCommit(RTCScene /*scene*/)
{
    g_error = RTC_ERROR_OUT_OF_MEMORY;
}

void failForAnotherReason(RTCScene /*scene*/)
{
    g_error = RTC_ERROR_UNKNOWN;
}

struct EmbreeDeviceErrors : ::testing::Test
{
    void SetUp() override
    {
        if (EmbreeDevice::Shared() == nullptr)
            GTEST_SKIP() << "Embree is not installed.";
        api = EmbreeDevice::Shared()->Api();
        g_error = RTC_ERROR_NONE;
    }

    EmbreeApi api;
};

/// @return the text of the runtime_error that building a tree with @p api throws.
std::string failureOf(const EmbreeApi& api)
{
    try {
        const EmbreeDevice device(api);
        MakeEmbreeFaces(*MakeRing({}), device);
    } catch (const std::runtime_error& error) {
        return error.what();
    }
    return "none";
}

} // namespace

TEST(EmbreeApi, AMissingLibraryIsNoErrorOfTheProgram)
{
    EmbreeApi api;
    std::string error;

    EXPECT_FALSE(LoadEmbree(L"libno-such-embree.so.3", api, error));

    EXPECT_NE(error, "");
}

TEST(EmbreeApi, ALibraryWithoutItsFunctionsIsRefused)
{
    EmbreeApi api;
    std::string error;

    EXPECT_FALSE(LoadEmbree(L"libm.so.6", api, error));

    EXPECT_EQ(error, "no function rtcNewDevice");
}

TEST_F(EmbreeDeviceErrors, NoMemoryForAnIndexIsBadAlloc)
{
    api.joinCommitScene = &failToCommit;
    api.getDeviceError = &givenError;
    const auto geometry = MakeRing({});
    const EmbreeDevice device(api);

    EXPECT_THROW(MakeEmbreeFaces(*geometry, device), std::bad_alloc);
}

TEST_F(EmbreeDeviceErrors, AnyOtherFailureSaysItsNumber)
{
    api.joinCommitScene = &failForAnotherReason;
    api.getDeviceError = &givenError;

    EXPECT_EQ(failureOf(api), "Embree failed with error 1.");
}

TEST_F(EmbreeDeviceErrors, ADeviceThatCannotBeMadeSaysItsNumber)
{
    g_error = RTC_ERROR_UNSUPPORTED_CPU;
    api.newDevice = &noDevice;
    api.getDeviceError = &givenError;

    EXPECT_EQ(failureOf(api), "Embree failed with error 5.");
}

} // namespace OrvikRay
