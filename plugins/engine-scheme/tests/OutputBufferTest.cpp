#include "../OutputBuffer.h"

#include <gtest/gtest.h>

namespace {

using OrvikScheme::OutputBuffer;

TEST(OutputBuffer, KeepsWhatIsAppended)
{
    OutputBuffer buffer;

    buffer.Append("one ");
    buffer.Append("two\n");

    EXPECT_EQ(buffer.Text(), L"one two\n");
}

TEST(OutputBuffer, ACharacterCutBetweenTwoWritesIsWhole)
{
    OutputBuffer buffer;

    buffer.Append("\xC3");
    buffer.Append("\xA4");

    EXPECT_EQ(buffer.Text(), L"\u00E4");
}

TEST(OutputBuffer, SaysHowMuchWasLeftOut)
{
    OutputBuffer buffer;
    const std::string chunk(1024 * 1024, 'x');

    for (int i = 0; i < 20; ++i)
        buffer.Append(chunk);

    EXPECT_EQ(buffer.Text(), std::wstring(16 * 1024 * 1024, L'x') +
                                 L"\n... 4194304 bytes of output were left out\n");
}

TEST(OutputBuffer, ClearForgetsTextAndCount)
{
    OutputBuffer buffer;
    buffer.Append(std::string(17 * 1024 * 1024, 'x'));

    buffer.Clear();
    buffer.Append("y");

    EXPECT_EQ(buffer.Text(), L"y");
}

} // namespace
