#include "../PostedOutput.h"

#include <TambCommandsInfra/CallGate.h>

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

using OrvikCore::MessageType;
using Pellux::PostedOutput;
using Texts = std::vector<std::wstring>;

TEST(PostedOutput, TextsOfTheWorkerAreShownInOrderWhenTheGateIsDrained)
{
    TambCommandsInfra::CallGate gate;
    Texts shown;
    PostedOutput output([&shown](const std::wstring& text, MessageType) { shown.push_back(text); });

    std::thread([&output] {
        output.PrintMessage(L"one", MessageType::Output);
        output.PrintMessage(L"two", MessageType::Error);
    }).join();

    EXPECT_EQ(shown, Texts{});
    gate.Drain();
    EXPECT_EQ(shown, (Texts{L"one", L"two"}));
}

TEST(PostedOutput, TheKindIsHandedOn)
{
    TambCommandsInfra::CallGate gate;
    std::vector<MessageType> kinds;
    PostedOutput output([&kinds](const std::wstring&, MessageType kind) { kinds.push_back(kind); });

    output.PrintMessage(L"careful", MessageType::Warning);

    EXPECT_EQ(kinds, std::vector<MessageType>{MessageType::Warning});
}

TEST(PostedOutput, ClearingKeepsWhatWasShown)
{
    Texts shown;
    PostedOutput output([&shown](const std::wstring& text, MessageType) { shown.push_back(text); });
    output.PrintMessage(L"one", MessageType::Output);

    output.ClearOutput();

    EXPECT_EQ(shown, Texts{L"one"});
}

} // namespace
