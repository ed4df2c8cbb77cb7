#include <TambCommandsInfra/CommandTable.h>
#include <TambCommandsInfra/ICommandJournal.h>

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace {

using TambCommandsInfra::Arguments;
using TambCommandsInfra::Command;
using TambCommandsInfra::CommandError;
using TambCommandsInfra::CommandHandler;
using TambCommandsInfra::CommandTable;
using TambCommandsInfra::ICommandJournal;
using TambCommandsInfra::SetCommandJournal;
using TambCommandsInfra::Value;

class RecordingJournal : public ICommandJournal
{
public:
    RecordingJournal() { SetCommandJournal(this); }
    ~RecordingJournal() override { SetCommandJournal(nullptr); }

    void NoteCommand(const Command& command, const Arguments& arguments) noexcept override
    {
        m_calls.push_back(command.name + " " + std::to_string(arguments.Size()));
    }
    std::wstring GetPath() const override { return L"here"; }

    std::vector<std::string> m_calls;
};

Command makeCommand(const std::string& name, CommandHandler handler)
{
    Command command;
    command.name = name;
    command.summary = "Does something.";
    command.example = "(" + name + ")";
    command.handler = std::move(handler);
    return command;
}

TEST(CommandJournal, LearnsOfCommandsThatSucceedAndThatFail)
{
    CommandTable table;
    table.Register(makeCommand("test:good", [](const Arguments&) { return Value(); }));
    table.Register(
        makeCommand("test:bad", [](const Arguments&) -> Value { throw std::runtime_error("no"); }));
    RecordingJournal journal;

    table.Run("test:good", {});
    EXPECT_THROW(table.Run("test:bad", {}), std::runtime_error);

    EXPECT_EQ(journal.m_calls, (std::vector<std::string>{"test:good 0", "test:bad 0"}));
}

TEST(CommandJournal, LearnsNothingOfCallsThatAreRefused)
{
    CommandTable table;
    table.Register(makeCommand("test:good", [](const Arguments&) { return Value(); }));
    RecordingJournal journal;

    EXPECT_THROW(table.Run("test:good", {Value(1)}), CommandError);
    EXPECT_THROW(table.Run("test:none", {}), CommandError);

    EXPECT_TRUE(journal.m_calls.empty());
}

} // namespace
