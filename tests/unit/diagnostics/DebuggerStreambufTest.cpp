#include "OrvikCore/Dbg.h"
#include "OrvikCore/debugger_streambuf.h"

#include <OrvikOs/DebugOutput.h>

#include <gtest/gtest.h>

#include <atomic>
#include <ostream>
#include <string>
#include <thread>
#include <type_traits>
#include <vector>

using OrvikCore::dbg;
using OrvikCore::debugger_streambuf;

static_assert(std::is_base_of_v<std::streambuf, debugger_streambuf>);
static_assert(std::is_copy_constructible_v<debugger_streambuf>);
static_assert(std::is_copy_assignable_v<debugger_streambuf>);
static_assert(std::is_move_constructible_v<debugger_streambuf>);
static_assert(std::is_move_assignable_v<debugger_streambuf>);

namespace {

/// Writes down each text sent to the debugger.
class DebuggerStreambuf : public ::testing::Test
{
protected:
    DebuggerStreambuf()
    {
        OrvikOs::SetDebugSink([this](const char* text) { sent.emplace_back(text); });
    }

    ~DebuggerStreambuf() override { OrvikOs::SetDebugSink(nullptr); }

    std::string joined() const
    {
        std::string text;
        for (const std::string& part : sent) {
            text += part;
        }
        return text;
    }

    std::vector<std::string> sent;
};

/// Opens up the operations for stream buffers.
class OpenStreambuf : public debugger_streambuf
{
public:
    using debugger_streambuf::overflow;
    using debugger_streambuf::sync;
};

} // namespace

TEST_F(DebuggerStreambuf, LastCharacterIsHeldBackUntilTheFlush)
{
    dbg << "ab";
    EXPECT_EQ(joined(), "a");

    dbg << std::flush;
    EXPECT_EQ(joined(), "ab");
}

TEST_F(DebuggerStreambuf, CharactersAreSentOneByOne)
{
    dbg << "xyz" << std::flush;

    EXPECT_EQ(sent, (std::vector<std::string>{"", "x", "y", "z"}));
}

TEST_F(DebuggerStreambuf, FlushWithNothingPendingSendsAnEmptyText)
{
    dbg << std::flush;

    EXPECT_EQ(sent, std::vector<std::string>{""});
}

TEST_F(DebuggerStreambuf, EndOfLineSendsTheWholeLine)
{
    dbg << "value " << 42 << std::endl;

    EXPECT_EQ(joined(), "value 42\n");
}

TEST_F(DebuggerStreambuf, HeldBackCharacterPrecedesTheNextMessage)
{
    dbg << "one";
    dbg << "two" << std::flush;

    EXPECT_EQ(joined(), "onetwo");
}

TEST_F(DebuggerStreambuf, OperationsReturnZero)
{
    OpenStreambuf buffer;

    EXPECT_EQ(buffer.overflow('a'), 0);
    EXPECT_EQ(buffer.sync(), 0);
    EXPECT_EQ(buffer.overflow(std::char_traits<char>::eof()), 0);
}

TEST_F(DebuggerStreambuf, EndOfFileFlushesAndIsNotKept)
{
    OpenStreambuf buffer;
    buffer.overflow('a');
    buffer.overflow(std::char_traits<char>::eof());
    buffer.sync();

    EXPECT_EQ(sent, (std::vector<std::string>{"", "a", ""}));
}

TEST_F(DebuggerStreambuf, CopyHasThePendingCharacterToo)
{
    OpenStreambuf buffer;
    buffer.overflow('a');
    OpenStreambuf copy(buffer);
    sent.clear();

    buffer.sync();
    copy.sync();

    EXPECT_EQ(joined(), "aa");
}

TEST_F(DebuggerStreambuf, ThreadsMayWriteAtTheSameTime)
{
    std::atomic<int> characters{0};
    OrvikOs::SetDebugSink([&characters](const char* text) {
        characters += static_cast<int>(std::char_traits<char>::length(text));
    });
    OpenStreambuf buffer;
    const auto write = [&buffer] {
        for (int i = 0; i < 1000; ++i) {
            buffer.overflow('x');
        }
    };
    std::thread other(write);
    write();
    other.join();
    buffer.sync();

    EXPECT_GT(characters, 0);
    EXPECT_LE(characters, 4000);
}
