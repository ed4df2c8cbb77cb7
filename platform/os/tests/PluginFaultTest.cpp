#include "FaultProbe.h"

#include <OrvikOs/Library.h>
#include <OrvikOs/Utf8.h>

#include <gtest/gtest.h>

namespace {

using Entry = void (*)();

Entry entryOf(const char* name)
{
    static OrvikOs::Library library;
    if (!library.IsLoaded()) {
        library.Load(OrvikOs::Utf8ToWide(ORVIKOS_TEST_LIBRARY_FOLDER "/PlainFaults.dll"));
    }
    return reinterpret_cast<Entry>(library.Symbol(name));
}

class PluginFault : public testing::TestWithParam<const char*>
{
};

TEST_P(PluginFault, InALibraryBuiltWithoutTheFlagIsCaughtByTheCaller)
{
    const Entry entry = entryOf(GetParam());
    ASSERT_NE(entry, nullptr);
    const OrvikOs::FaultScope scope;

    int caught = 0;
    for (int i = 0; i < 1000; ++i) {
        const Outcome outcome = RunAsIs(entry);
        caught += outcome.machineFault && outcome.record.ExceptionCode == 0xC0000005u ? 1 : 0;
    }

    EXPECT_EQ(caught, 1000);
}

INSTANTIATE_TEST_SUITE_P(Entries, PluginFault,
                         testing::Values("PlainRead", "PlainGapBefore", "PlainGapAfter",
                                         "PlainInferredNothrow", "PlainNoexcept", "PlainTry",
                                         "PlainLibraryLeaf"),
                         [](const auto& test) { return std::string(test.param); });

} // namespace
